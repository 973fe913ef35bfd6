#include "corvane/platform/RunLoop.h"

#include "corvane/platform/StandardRunLoop.h"

#include <atomic>

namespace corvane::platform {

namespace {

// Atomic, because other threads post at any moment.
}  // namespace

std::atomic<RunLoop*>& loopInForce() {
    static std::atomic<RunLoop*> loop{&StandardRunLoop::forMainThread()};
    return loop;
}

RunLoop& mainRunLoop() {
    return *loopInForce();
}

}  // namespace corvane::platform
