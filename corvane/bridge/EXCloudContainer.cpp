#include "corvane/bridge/EXCloudContainer.h"

#include "corvane/platform/CloudContainer.h"

#include <mutex>

namespace corvane {

namespace {

std::mutex mutex;
int determined = 0;  // until it is; under the mutex

}  // namespace

int EXCloudContainer::environment() {
    const std::lock_guard lock(mutex);
    if (determined == 0) determined = determineEnvironment();
    return determined;
}

int EXCloudContainer::determineEnvironment() {
    const platform::Value environment = platform::cloudContainerEnvironment();
    return environment == platform::Value(2) ? 1 : 2;
}

void EXCloudContainer::resetEnvironment() {
    const std::lock_guard lock(mutex);
    determined = 0;
}

}  // namespace corvane
