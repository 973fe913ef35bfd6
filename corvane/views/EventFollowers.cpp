#include "corvane/views/EventFollowers.h"

#include "corvane/platform/RunLoop.h"

#include <utility>

namespace corvane::views {

std::shared_ptr<void> EventFollowers::add(Follower follower) {
    auto kept = std::make_shared<Follower>(std::move(follower));
    followers_->push_back(kept);
    return kept;
}

void EventFollowers::eventHappened() {
    if (followers_->empty() || !told_.expired()) return;
    // The loop holds the token: if the loop goes away, the next event asks another one.
    auto token = std::make_shared<int>();
    told_ = token;
    const std::weak_ptr<List> followers = followers_;
    platform::mainRunLoop().callAtEndOfTurn([token = std::move(token), followers]() mutable {
        token.reset();
        if (const auto list = followers.lock()) tell(*list);
    });
}

void EventFollowers::tell(List& followers) {
    std::erase_if(followers, [](const auto& follower) { return follower.expired(); });
    // Followers may come and go meanwhile.
    for (const auto& weak : List(followers))
        if (const auto follower = weak.lock()) (*follower)();
}

}  // namespace corvane::views
