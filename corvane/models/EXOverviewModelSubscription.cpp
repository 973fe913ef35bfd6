#include "corvane/models/EXOverviewModelSubscription.h"

#include "corvane/models/EXOverviewModel.h"
#include "corvane/toolkit/EXProcessManager.h"

#include <string_view>

namespace corvane {

namespace {

using Handler = void (EXOverviewModel::*)(const platform::Notification&);

platform::NotificationCenter::Observation observe(std::string_view name,
                                                  const std::weak_ptr<EXOverviewModel>& model,
                                                  Handler handler) {
    return platform::defaultNotificationCenter().addObserver(
        name, &EXProcessManager::defaultManager(),
        [model, handler](const platform::Notification& notification) {
            if (auto live = model.lock()) (*live.*handler)(notification);
        });
}

}  // namespace

EXOverviewModelSubscription::EXOverviewModelSubscription(
    const std::shared_ptr<EXOverviewModel>& model)
    : background_(observe(EXProcessManagerApplicationDidEnterBackgroundNotification, model,
                          &EXOverviewModel::handleApplicationDidEnterBackgroundNotification)),
      foreground_(observe(EXProcessManagerApplicationWillEnterForegroundNotification, model,
                          &EXOverviewModel::handleApplicationWillEnterForegroundNotification)) {}

void EXOverviewModelSubscription::end() {
    background_.end();
    foreground_.end();
}

}  // namespace corvane
