// The run loop of a program without a widget toolkit. Calls come from any thread; one thread runs
// the turns.
#pragma once

#include "corvane/platform/RunLoop.h"
#include "corvane/platform/SteadyClock.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace corvane::platform {

/// Sleeps while nothing is due. Calls that are left when it is destroyed do not run.
class StandardRunLoop final : public RunLoop {
  public:
    /// The clock must outlive the loop.
    explicit StandardRunLoop(const SteadyClock& clock = systemSteadyClock());
    ~StandardRunLoop() override;

    /// The main thread's, which never ends. Nobody runs it but the program.
    static StandardRunLoop& forMainThread();

    void callAfterDelay(double seconds, Owner owner, Call call) override;
    void cancelCalls(Owner owner) override;
    bool isInTurn() const override { return turningThread_ == std::this_thread::get_id(); }
    void callAtEndOfTurn(Call call) override;

    /// Runs one turn and tells how many calls ran, without those at its end; never waits. A call
    /// may run a turn itself, which is then the next one.
    std::size_t runTurn();

    /// Runs turns until `done` is true, which is asked before each one. What makes it true on
    /// another thread must post a call to end the wait. REQUIRES: the system's steady clock.
    void runUntil(const std::function<bool()>& done);

    /// When the next call is due; none where there is none.
    std::optional<SteadyClock::Time> nextDue() const;

  private:
    /// Calls of one time are told apart by their number, which grows.
    using Place = std::pair<SteadyClock::Time, std::uint64_t>;
    struct Entry {
        Owner owner;
        Call call;
    };
    using Entries = std::map<Place, Entry>;

    Entries::node_type takeFirst();
    void endTurn();
    void waitUntilDue();

    const SteadyClock& clock_;
    mutable std::mutex mutex_;
    std::condition_variable earlier_;  ///< the first call has become another one
    std::uint64_t nextNumber_ = 0;
    Entries entries_;
    std::set<std::pair<std::uintptr_t, Place>> placesByOwner_;
    std::vector<Call> callsAtEnd_;                ///< the turning thread's alone
    std::atomic<std::thread::id> turningThread_;  ///< that of none between turns
};

}  // namespace corvane::platform
