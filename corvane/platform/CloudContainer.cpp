#include "corvane/platform/CloudContainer.h"

#include "corvane/platform/GuardedCall.h"

#include <mutex>

namespace corvane::platform {

namespace {

struct Setting {
    std::mutex mutex;
    CloudContainerEnvironment environment;
};

Setting& settingInForce() {
    static Setting setting;
    return setting;
}

}  // namespace

void setCloudContainerEnvironment(CloudContainerEnvironment environment) {
    Setting& setting = settingInForce();
    const std::lock_guard lock(setting.mutex);
    setting.environment.swap(environment);
}

Value cloudContainerEnvironment() {
    Setting& setting = settingInForce();
    std::unique_lock lock(setting.mutex);
    const CloudContainerEnvironment environment = setting.environment;
    lock.unlock();
    Value answer;
    if (environment) runGuarded("cloud container", [&] { answer = environment(); });
    return answer;
}

}  // namespace corvane::platform
