#include "corvane/logging/RollingFileWriter.h"

#include "corvane/platform/Console.h"

#include <fmt/format.h>

namespace corvane::logging {

namespace {

/// Bytes of one system call while messages come faster than they are written.
constexpr std::size_t kBlock = 65536;

constexpr std::size_t kMostPending = 1 << 20;

}  // namespace

void RollingFileWriter::write(const Message& message) {
    if (open_ && files_.isFull(open_->creation, message.instant)) {
        flush();
        open_.reset();
    }
    latest_ = message.instant;
    if (pending_.size() >= kMostPending) {
        ++lost_;
        return;
    }
    format_.append(message, pending_);
    const bool isUrgent = message.level == Level::Error || pending_.size() >= kBlock;
    if (isUrgent && !failing_) flush();
}

bool RollingFileWriter::hasFile(platform::Error& error) {
    if (open_ && !open_->file.hasName()) open_.reset();
    if (!open_) open_ = files_.open(latest_, &error);
    return open_.has_value();
}

bool RollingFileWriter::writePending(platform::Error& error) {
    if (!hasFile(error)) return false;
    const std::size_t written = open_->file.appendLines(pending_, &error);
    const bool complete = written == pending_.size();
    pending_.erase(0, written);
    return complete;
}

void RollingFileWriter::tellWhatWasLost() {
    const auto text = fmt::format("{} messages were lost here: they could not be written", lost_);
    format_.append({latest_, 0, Level::Warning, text}, pending_);
    lost_ = 0;
}

void RollingFileWriter::flush() {
    if (pending_.empty()) return;
    platform::Error error;
    bool complete = writePending(error);
    if (complete && lost_ > 0) {
        tellWhatWasLost();
        complete = writePending(error);
    }
    if (!complete && !failing_) {
        platform::currentConsole().writeLine("ERROR: the log is not written: " + error.message);
    }
    failing_ = !complete;
}

}  // namespace corvane::logging
