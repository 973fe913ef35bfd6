#include "corvane/logging/Output.h"

#include "corvane/logging/Crowd.h"
#include "corvane/platform/SignalMask.h"

#include <spdlog/async_logger.h>
#include <spdlog/details/thread_pool.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <pthread.h>
#include <utility>

namespace corvane::logging {

namespace {

/// Messages, of which each takes some 400 bytes here, and more only where its text is long.
constexpr std::size_t kQueueLength = 2048;
constexpr int kCrowded = 2000;
constexpr int kEased = 1000;

/// So long an output that has nothing more to do waits for more before it writes what it has.
constexpr auto kPatience = std::chrono::milliseconds(1);

thread_local bool isOutputThread = false;

spdlog::level::level_enum spdlogLevel(Level level) {
    switch (level) {
        case Level::Error:
            return spdlog::level::err;
        case Level::Warning:
            return spdlog::level::warn;
        case Level::Information:
            return spdlog::level::info;
        case Level::Debug:
            return spdlog::level::debug;
        case Level::Verbose:
            break;
    }
    return spdlog::level::trace;
}

Level levelOf(spdlog::level::level_enum level) {
    switch (level) {
        case spdlog::level::trace:
            return Level::Verbose;
        case spdlog::level::debug:
            return Level::Debug;
        case spdlog::level::info:
            return Level::Information;
        case spdlog::level::warn:
            return Level::Warning;
        default:
            return Level::Error;
    }
}

/// Owns the writer, and tells how many of the flushes that were announced are done.
class WriterSink final : public spdlog::sinks::sink {
  public:
    explicit WriterSink(std::unique_ptr<Writer> writer) : writer_(std::move(writer)) {}

    Crowd& crowd() { return crowd_; }

    void log(const spdlog::details::log_msg& message) override {
        const int left = crowd_.leave();
        writer_->write({std::chrono::floor<std::chrono::microseconds>(message.time),
                        message.thread_id,
                        levelOf(message.level),
                        {message.payload.data(), message.payload.size()}});
        // Followers see each message soon, and many share a system call when there are many.
        if (left == 0 && !moreComes()) writer_->flush();
    }

    void flush() override {
        const std::shared_ptr<void> inAnyCase(nullptr, [this](void*) {
            const std::lock_guard lock(mutex_);
            ++flushesDone_;
            changed_.notify_all();
        });
        writer_->flush();
    }

    std::uint64_t announceFlush() {
        const std::lock_guard lock(mutex_);
        changed_.notify_all();
        return ++flushesAnnounced_;
    }

    void waitForFlush(std::uint64_t number) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return flushesDone_ >= number; });
    }

    void writeRest() { writer_->flush(); }

    void set_pattern(const std::string&) override {}
    void set_formatter(std::unique_ptr<spdlog::formatter>) override {}

  private:
    bool moreComes() {
        std::unique_lock lock(mutex_);
        auto flushComes = [&] { return flushesAnnounced_ > flushesDone_; };
        return changed_.wait_for(lock, kPatience, flushComes) || crowd_.count() > 0;
    }

    std::unique_ptr<Writer> writer_;
    Crowd crowd_{kCrowded, kEased};
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t flushesAnnounced_ = 0, flushesDone_ = 0;
};

std::shared_ptr<spdlog::details::thread_pool> makePool() {
    const platform::SignalsBlocked forTheThread;
    return std::make_shared<spdlog::details::thread_pool>(kQueueLength, 1, [] {
        isOutputThread = true;
        ::pthread_setname_np(::pthread_self(), "log output");
    });
}

}  // namespace

class Output::Queue {
  public:
    explicit Queue(std::unique_ptr<Writer> writer)
        : pool_(makePool()),
          sink_(std::make_shared<WriterSink>(std::move(writer))),
          logger_(std::make_shared<spdlog::async_logger>("corvane", sink_, pool_)) {
        logger_->set_level(spdlog::level::trace);
    }

    ~Queue() {
        pool_.reset();
        const bool before = std::exchange(isOutputThread, true);  // in the place of the one gone
        sink_->writeRest();
        isOutputThread = before;
    }

    void post(platform::Instant instant, Level level, std::string_view text) {
        sink_->crowd().enter();
        try {
            logger_->log(instant, spdlog::source_loc{}, spdlogLevel(level),
                         spdlog::string_view_t(text.data(), text.size()));
        } catch (...) {  // there was no memory for it
            sink_->crowd().leave();
            throw;
        }
    }

    // The number is taken first: a flush that is posted later than another one, and yet has the
    // lower number, follows all messages of its own caller either way.
    void flush() {
        const std::uint64_t number = sink_->announceFlush();
        logger_->flush();
        sink_->waitForFlush(number);
    }

  private:
    std::shared_ptr<spdlog::details::thread_pool> pool_;
    std::shared_ptr<WriterSink> sink_;
    std::shared_ptr<spdlog::async_logger> logger_;
};

Output::Output(std::unique_ptr<Writer> writer)
    : queue_(std::make_unique<Queue>(std::move(writer))) {}

Output::~Output() = default;

void Output::post(platform::Instant instant, Level level, std::string_view text) {
    queue_->post(instant, level, text);
}

void Output::flush() {
    queue_->flush();
}

bool Output::isThreadOfOne() {
    return isOutputThread;
}

}  // namespace corvane::logging
