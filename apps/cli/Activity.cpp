#include "apps/cli/Activity.h"

#include "corvane/platform/StandardRunLoop.h"
#include "corvane/toolkit/EXProcessManager.h"

#include <exception>

namespace corvane::cli {

void runInActivity(const std::string& reason, const std::function<void()>& work) {
    auto& manager = EXProcessManager::defaultManager();
    std::exception_ptr failure;
    try {
        manager.performBackgroundActivityWithReason(reason, work);
    } catch (...) {
        failure = std::current_exception();
    }
    platform::StandardRunLoop::forMainThread().runUntil(
        [&] { return !manager.backgroundActivitiesPending(); });
    if (failure) std::rethrow_exception(failure);
}

}  // namespace corvane::cli
