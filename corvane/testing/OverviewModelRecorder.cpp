#include "corvane/testing/OverviewModelRecorder.h"

#include <fmt/format.h>

#include <utility>

namespace corvane::testing {

namespace {

std::string withPaths(std::string event, const EXOverviewModel::IndexPaths& paths) {
    for (const auto& path : paths)
        event += fmt::format(" {}/{}", path.section, path.item);
    return event;
}

}  // namespace

OverviewModelRecorder::OverviewModelRecorder(std::shared_ptr<EXOverviewModel> model)
    : model_(std::move(model)),
      former_(model_->delegate()),
      delegate_(std::make_shared<EXOverviewModelDelegate>()) {
    delegate_->overviewModelDidTransitionToState = [this](auto&, EXOverviewModelState state) {
        record(fmt::format("state {}", static_cast<int>(state)));
    };
    delegate_->didReloadDataForOverviewModel = [this](auto&) { record("reloaded"); };
    delegate_->didResetOverviewModel = [this](auto&) { record("reset"); };
    delegate_->didUpdateTitleForOverviewModel = [this](auto&) { record("title"); };
    delegate_->overviewModelDidInsertObjectsAtIndexPaths = [this](auto&, const auto& paths, bool) {
        record(withPaths("inserted", paths));
    };
    delegate_->overviewModelDidRemoveObjectsAtIndexPaths = [this](auto&, const auto& paths, bool) {
        record(withPaths("removed", paths));
    };
    model_->setDelegate(delegate_);
}

OverviewModelRecorder::~OverviewModelRecorder() {
    model_->setDelegate(former_);
}

std::vector<std::string> OverviewModelRecorder::takeEvents() {
    return std::exchange(events_, {});
}

void OverviewModelRecorder::onNext(std::string event, std::function<void()> action) {
    awaited_ = std::move(event);
    action_ = std::move(action);
}

void OverviewModelRecorder::record(const std::string& event) {
    events_.push_back(event);
    if (!action_ || event != awaited_) return;
    std::exchange(action_, nullptr)();
}

}  // namespace corvane::testing
