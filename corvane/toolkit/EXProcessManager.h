// The process's register of background activities: work, such as saving and exporting, during which
// the system must neither suspend nor end the process. One for the process; it lives as long.
#pragma once

#include "corvane/platform/ProcessActivities.h"
#include "corvane/toolkit/EXWeakReference.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// Posted with the manager as the sender.
inline constexpr std::string_view EXProcessManagerAllBackgroundActivitiesCompletedNotification =
    "EXProcessManagerAllBackgroundActivitiesCompletedNotification";
inline constexpr std::string_view EXProcessManagerApplicationWillEnterForegroundNotification =
    "EXProcessManagerApplicationWillEnterForegroundNotification";
inline constexpr std::string_view EXProcessManagerApplicationDidEnterBackgroundNotification =
    "EXProcessManagerApplicationDidEnterBackgroundNotification";

/// Holds the system through platform::processActivities(), counts what is still running, and posts
/// the first notification above when the last of it has ended. Any thread; notifications are posted
/// on the thread that ends the activity, which for work done by callback is the main one. An empty
/// callback throws std::invalid_argument.
///
///     auto& manager = EXProcessManager::defaultManager();
///     auto activity = manager.beginBackgroundActivityWithReason("Exporting");
///     manager.backgroundActivitiesPending()      // true
///     manager.endBackgroundActivity(activity);   // posts the notification
///     manager.backgroundActivitiesPending()      // false
class EXProcessManager {
  public:
    using Activity = std::shared_ptr<platform::ProcessActivity>;

    static EXProcessManager& defaultManager();

    /// 49407: in the background, with sudden and automatic termination disabled.
    static constexpr platform::ActivityOptions optionsForBackgroundActivity() {
        return platform::kBackgroundActivity | platform::kSuddenTerminationDisabled |
               platform::kAutomaticTerminationDisabled;
    }

    /// The activity lasts until endBackgroundActivity, or until nobody holds it any more; in the
    /// second case no notification is posted. Never null. The reason is a text for the user.
    [[nodiscard]] Activity beginBackgroundActivityWithReason(const std::string& reason);
    void endBackgroundActivity(const Activity& activity);

    /// Runs the callback as an activity before this returns; what it throws passes through. It
    /// counts as pending until the main run loop has come round to its completion.
    void performBackgroundActivityWithReason(const std::string& reason,
                                             const std::function<void()>& callback);

    /// Runs the callback as an activity on a thread of its own, with false: it has not expired. The
    /// activity is ended by the main run loop afterwards. What the callback throws becomes an
    /// "ERROR: " line on the console.
    void performExpiringBackgroundActivityWithReason(const std::string& reason,
                                                     std::function<void(bool expired)> callback);

    bool backgroundActivitiesPending() const;

    /// Forgets activities that nobody holds any more.
    void cleanUp();
    void cleanUpAndNotifyIfAllBackgroundActivitiesCompleted();

    /// For the application to tell of its transitions; they go out as notifications.
    void sendApplicationWillEnterForegroundNotification();
    void sendApplicationDidEnterBackgroundNotification();

    /// Whether the program's provisioning profile names the development environment of its cloud
    /// container; true without a readable profile.
    bool runningDevelopmentBuild() const;

  private:
    EXProcessManager() = default;

    bool isAnyPending() const;
    void removeGoneReferences();
    void post(std::string_view name);
    void change(const std::function<void()>& alteration);

    mutable std::mutex mutex_;
    std::vector<EXWeakReference<platform::ProcessActivity>> backgroundActivityReferences_;
    std::int64_t blockBasedBackgroundActivityCount_ = 0;
};

}  // namespace corvane
