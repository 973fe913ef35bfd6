// Who wants to know that the user has done something in a window, whoever took it: commands ask
// then whether they are valid.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace corvane::views {

/// Owned by a window. A follower is called once at the end of the turn of the main run loop in
/// which events came, however many. One thread.
class EventFollowers {
  public:
    using Follower = std::function<void()>;

    /// Follows until the token that it gets is let go of.
    [[nodiscard]] std::shared_ptr<void> add(Follower follower);
    void eventHappened();

  private:
    using List = std::vector<std::weak_ptr<Follower>>;
    static void tell(List& followers);

    std::shared_ptr<List> followers_ = std::make_shared<List>();
    std::weak_ptr<void> told_;  ///< there while a call is on its way
};

}  // namespace corvane::views
