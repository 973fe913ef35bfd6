#include "corvane/platform/NotificationCenter.h"

#include "corvane/platform/GuardedCall.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <utility>
#include <vector>

namespace corvane::platform {

struct NotificationCenter::Observer {
    std::string name;
    NotificationSender sender = nullptr;
    Handler handler;
    std::atomic<bool> ended{false};
};

struct NotificationCenter::State {
    using Observers = std::vector<std::shared_ptr<Observer>>;

    std::mutex mutex;
    std::map<std::string, Observers, std::less<>> observersByName;

    void remove(const std::shared_ptr<Observer>& observer) {
        std::lock_guard lock(mutex);
        const auto found = observersByName.find(observer->name);
        if (found == observersByName.end()) return;
        std::erase(found->second, observer);
        if (found->second.empty()) observersByName.erase(found);
    }

    Observers observersOf(std::string_view name, NotificationSender sender) {
        std::lock_guard lock(mutex);
        const auto found = observersByName.find(name);
        if (found == observersByName.end()) return {};
        Observers observers;
        std::copy_if(
            found->second.begin(), found->second.end(), std::back_inserter(observers),
            [&](const auto& observer) { return !observer->sender || observer->sender == sender; });
        return observers;
    }
};

NotificationCenter::Observation::Observation(Observation&& other) noexcept
    : state_(std::move(other.state_)), observer_(std::move(other.observer_)) {}

NotificationCenter::Observation& NotificationCenter::Observation::operator=(
    Observation&& other) noexcept {
    if (this == &other) return *this;
    end();
    state_ = std::move(other.state_);
    observer_ = std::move(other.observer_);
    return *this;
}

void NotificationCenter::Observation::end() {
    // The handler may hold this observation, and is destroyed last.
    const auto observer = std::move(observer_);
    if (!observer) return;
    observer->ended = true;
    if (const auto state = state_.lock()) state->remove(observer);
}

NotificationCenter::NotificationCenter() : state_(std::make_shared<State>()) {}

NotificationCenter::~NotificationCenter() = default;

NotificationCenter::Observation NotificationCenter::addObserver(std::string_view name,
                                                                NotificationSender sender,
                                                                Handler handler) {
    if (!handler) throw std::invalid_argument("an empty handler for notifications");
    Observation observation;
    observation.observer_ = std::make_shared<Observer>();
    observation.observer_->name = name;
    observation.observer_->sender = sender;
    observation.observer_->handler = std::move(handler);
    observation.state_ = state_;
    std::lock_guard lock(state_->mutex);
    state_->observersByName[std::string(name)].push_back(observation.observer_);
    return observation;
}

void NotificationCenter::post(std::string_view name, NotificationSender sender,
                              const NotificationUserInfo& userInfo) {
    const Notification notification{name, sender, userInfo};
    for (const auto& observer : state_->observersOf(name, sender)) {
        if (observer->ended) continue;
        runGuarded(observer->name, [&] { observer->handler(notification); });
    }
}

namespace {

// Atomic, because other threads post at any moment; never destroyed for the same reason.
}  // namespace

std::atomic<NotificationCenter*>& centerInForce() {
    static std::atomic<NotificationCenter*> center{new NotificationCenter};
    return center;
}

NotificationCenter& defaultNotificationCenter() {
    return *centerInForce();
}

}  // namespace corvane::platform
