// What a delegate hears of an overview model, as a list of texts; for tests.
#pragma once

#include "corvane/models/EXOverviewModel.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::testing {

/// Is the model's delegate for as long as it lives, and gives the model its former one back. One
/// text an event: "state 1", "reloaded", "reset", "title", "inserted 0/3", "removed 0/3 1/0".
class OverviewModelRecorder {
  public:
    explicit OverviewModelRecorder(std::shared_ptr<EXOverviewModel> model);
    ~OverviewModelRecorder();
    OverviewModelRecorder(const OverviewModelRecorder&) = delete;
    OverviewModelRecorder& operator=(const OverviewModelRecorder&) = delete;

    const std::vector<std::string>& events() const { return events_; }
    /// The events so far, which are then forgotten.
    std::vector<std::string> takeEvents();

    /// Calls the action when the event comes next, once, from inside the delegate's operation.
    void onNext(std::string event, std::function<void()> action);

  private:
    void record(const std::string& event);

    std::shared_ptr<EXOverviewModel> model_;
    std::weak_ptr<EXOverviewModelDelegate> former_;
    std::shared_ptr<EXOverviewModelDelegate> delegate_;
    std::vector<std::string> events_;
    std::string awaited_;
    std::function<void()> action_;
};

}  // namespace corvane::testing
