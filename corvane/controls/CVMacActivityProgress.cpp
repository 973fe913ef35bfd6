#include "corvane/controls/CVMacActivityProgress.h"

#include "corvane/platform/RunLoop.h"

#include <utility>

namespace corvane {

CVMacActivityProgress::CVMacActivityProgress(std::shared_ptr<CVMacProgressView> view)
    : view_(std::move(view)) {}

CVMacActivityProgress::~CVMacActivityProgress() {
    didEnd = nullptr;
    end(true);
}

bool CVMacActivityProgress::begin(const std::string& reason, Step step) {
    if (isRunning() || !step) return false;
    step_ = std::move(step);
    cancelRequested_ = false;
    activity_ = EXProcessManager::defaultManager().beginBackgroundActivityWithReason(reason);
    if (view_) {
        view_->setTitle(reason);
        view_->setFraction(0);
        view_->didCancel = [weak = weak_from_this()] {
            if (const auto self = weak.lock()) self->cancel();
        };
        view_->setCancellable(true);
    }
    schedule();
    return true;
}

void CVMacActivityProgress::schedule() {
    platform::mainRunLoop().callAfterDelay(0, this, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->runStep();
    });
}

void CVMacActivityProgress::runStep() {
    if (!isRunning() || inStep_) return;
    inStep_ = true;
    std::optional<double> fraction;
    try {
        fraction = step_();
    } catch (...) {
        inStep_ = false;
        end(true);
        throw;
    }
    inStep_ = false;
    const bool isDone = fraction && *fraction >= 1;
    if (view_) {
        view_->setFraction(fraction);
        view_->advance();
    }
    if (isDone || cancelRequested_) return end(!isDone);
    schedule();
}

void CVMacActivityProgress::cancel() {
    if (!isRunning()) return;
    if (inStep_) {
        cancelRequested_ = true;  // what it is called from may still be needed
    } else {
        end(true);
    }
}

void CVMacActivityProgress::end(bool cancelled) {
    const auto activity = std::exchange(activity_, nullptr);
    if (!activity) return;
    // Whoever hears that no activity is left may let go of this.
    const auto keepAlive = weak_from_this().lock();
    platform::mainRunLoop().cancelCalls(this);
    const Step step = std::exchange(step_, nullptr);  // may hold this object
    if (view_) {
        view_->didCancel = nullptr;
        view_->setCancellable(false);
    }
    EXProcessManager::defaultManager().endBackgroundActivity(activity);
    const auto notice = didEnd;
    if (notice) notice(cancelled);
}

}  // namespace corvane
