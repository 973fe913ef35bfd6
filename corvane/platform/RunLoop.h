// The seam to the main thread's run loop: calls that run there later. Running the loop is the
// business of whoever owns the main thread: StandardRunLoop, or a widget toolkit behind this
// interface.
#pragma once

#include "corvane/platform/ScopedOverride.h"

#include <atomic>
#include <functional>
#include <utility>

namespace corvane::platform {

/// Takes calls from any thread and runs them on one thread, in turns, each call once:
/// - a turn runs the calls that are due when it begins, by due time, and those of one time in the
///   order in which they came; so calls without delay run in the order posted;
/// - what is added during a turn runs in a later one;
/// - what is cancelled before its place in the turn has come does not run;
/// - a call that throws is reported on the console ("ERROR: …"), and the others run.
class RunLoop {
  public:
    using Call = std::function<void()>;

    /// Stands for whoever asked for a call, to cancel by: the address of an object. Never followed.
    using Owner = const void*;

    virtual ~RunLoop() = default;

    /// Runs the call in the next turn. Throws std::invalid_argument for an empty call, as the other
    /// one does.
    void post(Call call) { callAfterDelay(0, nullptr, std::move(call)); }

    /// Runs the call after a delay on the steady clock. A negative delay and NaN count as 0. A null
    /// owner is nobody. An owner cancels before it ceases to exist, or its calls keep it alive.
    virtual void callAfterDelay(double seconds, Owner owner, Call call) = 0;

    /// Whether a turn is running on the calling thread: then its end is near, and can do once what
    /// every change of this turn needs.
    virtual bool isInTurn() const { return false; }

    /// Runs the call as the last thing that the turn does which is running on the calling thread,
    /// or one that this turn runs itself; where none is running, in the next turn. So nothing can
    /// come between a turn and what must follow it. A loop that does not override this runs the
    /// call in the next turn in any case.
    virtual void callAtEndOfTurn(Call call) { post(std::move(call)); }

    /// Withdraws every call of the owner that has not begun, and releases what these calls hold. On
    /// another thread than the loop's, a call that has begun may still be running afterwards.
    virtual void cancelCalls(Owner owner) = 0;
};

/// The main thread's run loop in force: StandardRunLoop::forMainThread(), unless a
/// ScopedMainRunLoop puts another one in its place. Any thread.
RunLoop& mainRunLoop();

std::atomic<RunLoop*>& loopInForce();

/// For tests, and for programs whose main thread runs a loop of its own.
using ScopedMainRunLoop = ScopedOverride<RunLoop, loopInForce>;

}  // namespace corvane::platform
