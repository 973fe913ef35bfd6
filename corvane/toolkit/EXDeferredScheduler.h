// Runs one configured action later on the main thread, and can hold it back for a while.
#pragma once

#include "corvane/platform/RunLoop.h"
#include "corvane/toolkit/EXValue.h"

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// The action is an operation of a target object with one argument. Requests to schedule and to
/// cancel may come from any thread: they are posted to the main run loop and done there in their
/// order. Everything else belongs to the main thread.
///
/// Each schedule runs the action once: three of them run it three times. Cancel before scheduling
/// where only the last one is to count.
///
/// What was scheduled runs even where the scheduler is gone by then, because the run loop holds
/// target and argument too. Whatever else an operation uses, the target must keep alive.
///
///     EXDeferredScheduler<ListView> scheduler;
///     scheduler.setTarget(view);                        // a std::shared_ptr<ListView>
///     scheduler.setSelector(&ListView::reloadSection);  // void reloadSection(const EXValue&)
///     scheduler.setArgument(3);
///     scheduler.setDelay(0.5);
///     scheduler.scheduleDeferredAction();               // view->reloadSection(3) in half a second
template <class Target, class Argument = EXValue>
class EXDeferredScheduler {
  public:
    using Selector = std::function<void(Target&, const Argument&)>;

    EXDeferredScheduler() = default;
    EXDeferredScheduler(const EXDeferredScheduler&) = delete;
    EXDeferredScheduler& operator=(const EXDeferredScheduler&) = delete;

    // The action is what these are when it runs. Without target or selector, requests to schedule
    // and to cancel are passed over.

    const std::shared_ptr<Target>& target() const { return state_->target; }
    void setTarget(std::shared_ptr<Target> target) { state_->target = std::move(target); }
    const Selector& selector() const { return state_->selector; }
    void setSelector(Selector selector) { state_->selector = std::move(selector); }
    const Argument& argument() const { return state_->argument; }
    void setArgument(Argument argument) { state_->argument = std::move(argument); }

    /// In seconds; of the next request that reaches the main thread.
    double delay() const { return state_->delay; }
    void setDelay(double delay) { state_->delay = delay; }

    /// Whether the action was scheduled and has not run since, or was held back by a pause.
    bool actionPending() const { return state_->actionPending; }
    bool paused() const { return state_->paused; }

    /// Runs the action after the delay.
    void scheduleDeferredAction() {
        post([](State& state) { state.schedule(state.delay); });
    }

    /// Runs the action in the next turn of the main run loop.
    void scheduleImmediateAction() {
        post([](State& state) { state.schedule(0); });
    }

    /// Withdraws whatever was scheduled before.
    void cancelDeferredAction() {
        post([](State& state) { state.cancel(); });
    }

    /// What comes due from now on waits.
    void pauseExecution() { state_->paused = true; }

    /// Runs an action that is pending before this returns, once however often it came due and even
    /// where it has not yet. Nothing without a pause.
    void resumeExecution() {
        if (!state_->paused) return;
        state_->paused = false;
        if (state_->actionPending) executeAction();
    }

    /// Runs the action, unless paused; what it throws passes through. Mostly the run loop's to
    /// call.
    void executeAction() {
        const auto state = state_;  // the action may destroy this scheduler
        state->execute();
    }

  private:
    struct State : std::enable_shared_from_this<State> {
        std::shared_ptr<Target> target;
        Selector selector;
        Argument argument{};
        double delay = 0;
        bool actionPending = false;
        bool paused = false;

        bool hasAction() const { return target && selector; }

        void schedule(double seconds) {
            if (!hasAction()) return;
            actionPending = true;
            platform::mainRunLoop().callAfterDelay(
                seconds, this, [self = this->shared_from_this()] { self->execute(); });
        }

        void cancel() {
            if (!hasAction()) return;
            platform::mainRunLoop().cancelCalls(this);
            actionPending = false;
        }

        void execute() {
            if (paused) return;
            actionPending = false;
            if (!hasAction()) return;
            // Copies, because the action may configure the scheduler anew.
            const auto receiver = target;
            const auto operation = selector;
            const auto parameter = argument;
            operation(*receiver, parameter);
        }
    };

    void post(void (*request)(State&)) {
        platform::mainRunLoop().post([state = state_, request] { request(*state); });
    }

    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace corvane
