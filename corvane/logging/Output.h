// One place where messages are written, with a queue and a thread of its own. Not for applications:
// these add their outputs through EXLog.
#pragma once

#include "corvane/logging/Level.h"
#include "corvane/logging/Writer.h"
#include "corvane/platform/Instant.h"

#include <memory>
#include <string_view>

namespace corvane::logging {

/// post() and flush() may be called from any thread but that of an output.
class Output {
  public:
    /// Starts the thread, which no signal interrupts. Throws std::system_error where the system has
    /// none to give.
    explicit Output(std::unique_ptr<Writer> writer);

    /// Whatever was posted is written first.
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Waits for as long as the queue is full. The text is copied.
    void post(platform::Instant instant, Level level, std::string_view text);

    /// Returns when everything posted before it was handed to the system.
    void flush();

    /// Whether the caller is the thread of an output.
    static bool isThreadOfOne();

  private:
    class Queue;
    std::unique_ptr<Queue> queue_;
};

}  // namespace corvane::logging
