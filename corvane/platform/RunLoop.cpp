#include "corvane/platform/RunLoop.h"

#include "corvane/platform/StandardRunLoop.h"

#include <atomic>

namespace corvane::platform {

namespace {

// Atomic, because other threads post at any moment.
std::atomic<RunLoop*>& loopInForce() {
    static std::atomic<RunLoop*> loop{&StandardRunLoop::forMainThread()};
    return loop;
}

}  // namespace

RunLoop& mainRunLoop() {
    return *loopInForce();
}

ScopedMainRunLoop::ScopedMainRunLoop(RunLoop& loop) : previous_(loopInForce().exchange(&loop)) {}

ScopedMainRunLoop::~ScopedMainRunLoop() {
    loopInForce() = previous_;
}

}  // namespace corvane::platform
