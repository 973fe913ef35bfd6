#include "corvane/platform/StandardRunLoop.h"

#include "corvane/platform/GuardedCall.h"

#include <stdexcept>

namespace corvane::platform {

namespace {

std::uintptr_t keyOf(RunLoop::Owner owner) {
    return reinterpret_cast<std::uintptr_t>(owner);
}

}  // namespace

StandardRunLoop::StandardRunLoop(const SteadyClock& clock) : clock_(clock) {}

StandardRunLoop::~StandardRunLoop() {
    // What a call holds may post or cancel as it goes.
    while (!entries_.empty())
        std::exchange(entries_, {}).clear();
}

StandardRunLoop& StandardRunLoop::forMainThread() {
    // Never destroyed: other threads post until the process is gone.
    static auto* loop = new StandardRunLoop;
    return *loop;
}

void StandardRunLoop::callAfterDelay(double seconds, Owner owner, Call call) {
    if (!call) throw std::invalid_argument("an empty call for a run loop");
    std::unique_lock lock(mutex_);
    // Asked under the lock, so that nothing gets a place before what a turn has seen.
    const Place place(timeAfter(clock_.now(), seconds), nextNumber_++);
    if (owner) placesByOwner_.emplace(keyOf(owner), place);
    entries_.emplace(place, Entry{owner, std::move(call)});
    if (entries_.begin()->first == place) earlier_.notify_all();
}

void StandardRunLoop::callAtEndOfTurn(Call call) {
    if (!call || !isInTurn()) return post(std::move(call));
    callsAtEnd_.push_back(std::move(call));
}

void StandardRunLoop::cancelCalls(Owner owner) {
    if (!owner) return;
    std::vector<Entries::node_type> cancelled;  // destroyed without the lock
    std::unique_lock lock(mutex_);
    const auto first = placesByOwner_.lower_bound({keyOf(owner), Place()});
    auto last = first;
    for (; last != placesByOwner_.end() && last->first == keyOf(owner); ++last)
        cancelled.push_back(entries_.extract(last->second));
    placesByOwner_.erase(first, last);
    lock.unlock();
}

StandardRunLoop::Entries::node_type StandardRunLoop::takeFirst() {
    auto entry = entries_.extract(entries_.begin());
    if (entry.mapped().owner) placesByOwner_.erase({keyOf(entry.mapped().owner), entry.key()});
    return entry;
}

std::size_t StandardRunLoop::runTurn() {
    std::unique_lock lock(mutex_);
    const auto now = clock_.now();
    const auto end = nextNumber_;
    const auto outerTurn = turningThread_.exchange(std::this_thread::get_id());
    std::size_t count = 0;
    while (!entries_.empty()) {
        const auto [due, number] = entries_.begin()->first;
        if (due > now || number >= end) break;
        auto entry = takeFirst();
        lock.unlock();
        runGuarded("run loop", entry.mapped().call);
        entry = {};
        ++count;
        lock.lock();
    }
    lock.unlock();
    endTurn();
    turningThread_ = outerTurn;
    return count;
}

void StandardRunLoop::endTurn() {
    while (!callsAtEnd_.empty())
        for (const auto& call : std::exchange(callsAtEnd_, {}))
            runGuarded("run loop", call);
}

void StandardRunLoop::runUntil(const std::function<bool()>& done) {
    while (!done()) {
        waitUntilDue();
        runTurn();
    }
}

void StandardRunLoop::waitUntilDue() {
    std::unique_lock lock(mutex_);
    while (entries_.empty() || entries_.begin()->first.first > clock_.now()) {
        if (entries_.empty())
            earlier_.wait(lock);
        else
            earlier_.wait_until(lock, SteadyClock::Time(entries_.begin()->first.first));
    }
}

std::optional<SteadyClock::Time> StandardRunLoop::nextDue() const {
    std::lock_guard lock(mutex_);
    if (entries_.empty()) return std::nullopt;
    return entries_.begin()->first.first;
}

}  // namespace corvane::platform
