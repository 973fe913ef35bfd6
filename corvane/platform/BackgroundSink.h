// Lets a program go on while what it wrote is on its way. Not for use outside the library.
#pragma once

#include "corvane/platform/ByteSink.h"
#include "corvane/platform/Bytes.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <span>
#include <thread>

namespace corvane::platform {

/// Hands the pieces on to another sink, in order, which from the second megabyte on happens on a
/// thread of its own. That sink must outlive it and must not be used meanwhile. What the sink does
/// not take is reported by a later write() or by finish().
class BackgroundSink final : public ByteSink {
  public:
    explicit BackgroundSink(ByteSink& sink) : sink_(sink) {}
    ~BackgroundSink() override { finish(); }

    bool write(std::span<const std::byte> piece) override;

    /// Waits until all is handed on; whether all was taken. Nothing can be written after it.
    bool finish();

  private:
    bool start();
    void run();
    bool isRunning() const { return thread_.joinable(); }

    ByteSink& sink_;
    std::size_t handedOn_ = 0;  ///< in bytes, before there was a thread
    std::thread thread_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Bytes> pieces_;  ///< still to be handed on; the first one may be on its way
    std::deque<Bytes> used_;    ///< their memory, for others
    bool isFinished_ = false;
    bool isTaken_ = true;
};

}  // namespace corvane::platform
