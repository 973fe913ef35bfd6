#include "corvane/platform/BackgroundSink.h"

#include <system_error>
#include <utility>

namespace corvane::platform {

namespace {

// Below, a thread takes longer to start than the writing.
constexpr std::size_t kForeground = std::size_t{1} << 20;

constexpr std::size_t kMostPieces = 4;

}  // namespace

bool BackgroundSink::write(std::span<const std::byte> piece) {
    if (!isRunning() && handedOn_ + piece.size() <= kForeground) {
        handedOn_ += piece.size();
        return isTaken_ = isTaken_ && sink_.write(piece);
    }
    if (!isRunning() && !start()) return isTaken_ = isTaken_ && sink_.write(piece);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return pieces_.size() < kMostPieces || !isTaken_; });
    if (!isTaken_) return false;
    Bytes copy;
    if (!used_.empty()) {
        copy = std::move(used_.front());
        used_.pop_front();
    }
    lock.unlock();
    copy.assign(piece.begin(), piece.end());
    lock.lock();
    pieces_.push_back(std::move(copy));
    changed_.notify_all();
    return true;
}

bool BackgroundSink::start() {
    if (!isTaken_) return false;
    try {
        thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {  // as many threads as there may be: then without
    }
    return isRunning();
}

bool BackgroundSink::finish() {
    if (!isRunning()) return isTaken_;
    {
        const std::lock_guard lock(mutex_);
        isFinished_ = true;
    }
    changed_.notify_all();
    thread_.join();
    return isTaken_;
}

void BackgroundSink::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return !pieces_.empty() || isFinished_; });
        if (pieces_.empty()) return;
        lock.unlock();
        // Only this thread takes pieces away, so the first one stays.
        const bool isTaken = sink_.write(pieces_.front());
        lock.lock();
        used_.push_back(std::move(pieces_.front()));
        pieces_.pop_front();
        isTaken_ = isTaken_ && isTaken;
        if (!isTaken_) pieces_.clear();
        changed_.notify_all();
    }
}

}  // namespace corvane::platform
