#include "corvane/toolkit/EXProcessManager.h"

#include "corvane/platform/GuardedCall.h"
#include "corvane/platform/MainBundle.h"
#include "corvane/platform/MappedFile.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/platform/RunLoop.h"
#include "corvane/platform/SerialQueue.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace corvane {

namespace {

using platform::mainRunLoop;

constexpr const char* kExpiringQueueLabel = "EX.expiringActivityQueue";
constexpr const char* kProfilePath = "/Contents/embedded.provisionprofile";
constexpr std::string_view kDevelopmentEntry =
    "<key>com.apple.developer.icloud-container-environment</key>"
    "<array><string>Development</string>";

/// White space among the characters 0 to 255. Each byte of a profile counts as one of them, since
/// what surrounds its text is not text.
bool isWhiteSpace(std::byte character) {
    const auto code = std::to_integer<unsigned>(character);
    return (code >= 0x09 && code <= 0x0D) || code == 0x20 || code == 0x85 || code == 0xA0;
}

}  // namespace

EXProcessManager& EXProcessManager::defaultManager() {
    // Never destroyed: activities may still be ended while the process ends.
    static auto* manager = new EXProcessManager;
    return *manager;
}

EXProcessManager::Activity EXProcessManager::beginBackgroundActivityWithReason(
    const std::string& reason) {
    auto activity =
        platform::processActivities().beginActivity(optionsForBackgroundActivity(), reason);
    std::lock_guard lock(mutex_);
    backgroundActivityReferences_.emplace_back(activity);
    return activity;
}

void EXProcessManager::endBackgroundActivity(const Activity& activity) {
    if (!activity) return;
    activity->end();
    change([&] { std::erase(backgroundActivityReferences_, EXWeakReference(activity)); });
}

void EXProcessManager::performBackgroundActivityWithReason(const std::string& reason,
                                                           const std::function<void()>& callback) {
    if (!callback) throw std::invalid_argument("an empty callback for an activity");
    {
        std::lock_guard lock(mutex_);
        ++blockBasedBackgroundActivityCount_;
    }
    const auto complete = [this] {
        mainRunLoop().post([this] { change([this] { --blockBasedBackgroundActivityCount_; }); });
    };
    try {
        const auto activity =
            platform::processActivities().beginActivity(optionsForBackgroundActivity(), reason);
        callback();
    } catch (...) {
        complete();
        throw;
    }
    complete();
}

void EXProcessManager::performExpiringBackgroundActivityWithReason(
    const std::string& reason, std::function<void(bool expired)> callback) {
    if (!callback) throw std::invalid_argument("an empty callback for an activity");
    auto activity = beginBackgroundActivityWithReason(reason);
    auto queue = std::make_shared<platform::SerialQueue>(kExpiringQueueLabel);
    // The queue is handed on to the main thread, because its own could not wait for its end.
    queue->async(
        [this, activity = std::move(activity), queue, callback = std::move(callback)]() mutable {
            platform::runGuarded(kExpiringQueueLabel, [&] { callback(false); });
            mainRunLoop().post([this, activity = std::move(activity), queue = std::move(queue)] {
                endBackgroundActivity(activity);
            });
        });
}

bool EXProcessManager::backgroundActivitiesPending() const {
    std::lock_guard lock(mutex_);
    return isAnyPending();
}

bool EXProcessManager::isAnyPending() const {
    return blockBasedBackgroundActivityCount_ > 0 ||
           std::any_of(backgroundActivityReferences_.begin(), backgroundActivityReferences_.end(),
                       [](const auto& reference) { return reference.object() != nullptr; });
}

void EXProcessManager::cleanUp() {
    std::lock_guard lock(mutex_);
    removeGoneReferences();
}

void EXProcessManager::removeGoneReferences() {
    std::erase_if(backgroundActivityReferences_,
                  [](const auto& reference) { return !reference.object(); });
}

void EXProcessManager::cleanUpAndNotifyIfAllBackgroundActivitiesCompleted() {
    change([] {});
}

/// Under one lock with the question what is left, so that of two activities that end at once only
/// the last one notifies.
void EXProcessManager::change(const std::function<void()>& alteration) {
    std::unique_lock lock(mutex_);
    alteration();
    removeGoneReferences();
    const bool pending = isAnyPending();
    lock.unlock();
    if (!pending) post(EXProcessManagerAllBackgroundActivitiesCompletedNotification);
}

void EXProcessManager::sendApplicationWillEnterForegroundNotification() {
    post(EXProcessManagerApplicationWillEnterForegroundNotification);
}

void EXProcessManager::sendApplicationDidEnterBackgroundNotification() {
    post(EXProcessManagerApplicationDidEnterBackgroundNotification);
}

void EXProcessManager::post(std::string_view name) {
    platform::defaultNotificationCenter().post(name, this);
}

bool EXProcessManager::runningDevelopmentBuild() const {
    const auto bundle = platform::mainBundleDirectory();
    if (!bundle) return true;
    const auto profile = platform::MappedFile::open(*bundle + kProfilePath);
    if (!profile) return true;
    std::string text;
    for (const std::byte character : profile->bytes())
        if (!isWhiteSpace(character)) text += static_cast<char>(character);
    return text.find(kDevelopmentEntry) != std::string::npos;
}

}  // namespace corvane
