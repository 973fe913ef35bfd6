// Keeps an overview model in step with the application: reset in the background, reloaded in the
// foreground. For the owner of the model to hold beside it.
#pragma once

#include "corvane/platform/NotificationCenter.h"

#include <memory>

namespace corvane {

class EXOverviewModel;

/// Observes the notifications of EXProcessManager for as long as it lives. The model is held
/// weakly. Notifications must be posted on the model's thread.
///
///     EXOverviewModelSubscription subscription_{model_};
class EXOverviewModelSubscription {
  public:
    EXOverviewModelSubscription() = default;
    explicit EXOverviewModelSubscription(const std::shared_ptr<EXOverviewModel>& model);

    void end();

  private:
    platform::NotificationCenter::Observation background_;
    platform::NotificationCenter::Observation foreground_;
};

}  // namespace corvane
