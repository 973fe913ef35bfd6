// Notifications by name within the process: who posts one does not know who observes it. Nothing is
// sent to other processes.
#pragma once

#include "corvane/platform/ScopedOverride.h"
#include "corvane/platform/Value.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::platform {

/// Stands for who posts: the address of an object. Never followed; null is nobody.
using NotificationSender = const void*;

using NotificationUserInfo = std::map<std::string, Value, std::less<>>;

/// As observers see it; valid during the call.
struct Notification {
    std::string_view name;
    NotificationSender sender = nullptr;
    const NotificationUserInfo& userInfo;
};

/// Calls observers synchronously, on the thread that posts, in the order in which they came. Any
/// thread. Observers may add, end and destroy observations while they are called, their own too:
/// what is ended before its turn is not called, and what is added waits for the next notification.
/// An observer that throws is reported on the console ("ERROR: …"), and the others are called.
///
///     auto observation = center.addObserver("ListDidChange", nullptr, [&](const Notification& n) {
///         show(n.userInfo.at("count").integerValue());
///     });
///     center.post("ListDidChange", this, {{"count", 3}});   // calls show(3)
///     observation.end();
///     center.post("ListDidChange", this, {{"count", 4}});   // calls nobody
class NotificationCenter {
    struct Observer;
    struct State;

  public:
    using Handler = std::function<void(const Notification&)>;

    /// Keeps an observer in place for as long as it lives. May outlive the centre. Where another
    /// thread posts, a call that it has begun may still be running after the end.
    class Observation {
      public:
        Observation() = default;
        Observation(Observation&& other) noexcept;
        Observation& operator=(Observation&& other) noexcept;
        ~Observation() { end(); }

        void end();

      private:
        friend class NotificationCenter;
        std::weak_ptr<State> state_;
        std::shared_ptr<Observer> observer_;
    };

    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    /// Observes notifications of the name, of any sender or, where one is given, of that one alone.
    /// Throws std::invalid_argument for an empty handler.
    [[nodiscard]] Observation addObserver(std::string_view name, NotificationSender sender,
                                          Handler handler);

    void post(std::string_view name, NotificationSender sender = nullptr,
              const NotificationUserInfo& userInfo = {});

  private:
    std::shared_ptr<State> state_;
};

/// The process's centre in force, which never ends, unless a ScopedNotificationCenter stands in for
/// it. Any thread.
NotificationCenter& defaultNotificationCenter();

std::atomic<NotificationCenter*>& centerInForce();

/// For tests.
using ScopedNotificationCenter = ScopedOverride<NotificationCenter, centerInForce>;

}  // namespace corvane::platform
