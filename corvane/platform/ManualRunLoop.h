// A run loop whose time and turns are a test's to decide.
#pragma once

#include "corvane/platform/StandardRunLoop.h"

#include <algorithm>

namespace corvane::platform {

/// Time stands still but for advance(). Calls may come from any thread.
class ManualRunLoop final : public RunLoop {
  public:
    void callAfterDelay(double seconds, Owner owner, Call call) override {
        loop_.callAfterDelay(seconds, owner, std::move(call));
    }
    void cancelCalls(Owner owner) override { loop_.cancelCalls(owner); }
    bool isInTurn() const override { return loop_.isInTurn(); }
    void callAtEndOfTurn(Call call) override { loop_.callAtEndOfTurn(std::move(call)); }

    /// Runs one turn at the present time and tells how many calls ran.
    std::size_t runTurn() { return loop_.runTurn(); }

    /// Lets the time pass, turn by turn, each at the time for which it is due. Ends when nothing is
    /// due any more, so a call that always posts another one keeps it from ending.
    void advance(double seconds) {
        const auto end = timeAfter(clock_.now(), seconds);
        for (auto due = loop_.nextDue(); due && *due <= end; due = loop_.nextDue()) {
            clock_.set(std::max(*due, clock_.now()));
            runTurn();
        }
        clock_.set(end);
    }

  private:
    ManualSteadyClock clock_;
    StandardRunLoop loop_{clock_};
};

}  // namespace corvane::platform
