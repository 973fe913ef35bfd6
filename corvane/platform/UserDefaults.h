// The settings of one user and one application, by key, as all processes of that application and
// user share them. Knows nothing of what a setting means. Any thread.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/ScopedOverride.h"
#include "corvane/platform/Value.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// A setting has the value that the user gave it, else its registered fallback, which is never
/// written. What a setter was given is what getters give from then on. It is written before the
/// setter returns; within a turn of the main run loop, at the turn's end, once for all that the
/// turn has set (RunLoop::callAtEndOfTurn); and at the latest when the store ends or the process
/// exits.
///
/// Only what was set here is written, over what other processes have written meanwhile. What they
/// have written shows up here when this one reloads or writes.
///
/// Where the file cannot be read or written, that is reported on the console ("ERROR: …"), once
/// until the reason changes. What was set remains in memory, and the next setter, reload or
/// synchronization tries again; within a run loop also the time. A damaged file gets another name
/// and is reported too.
///
///     UserDefaults& defaults = UserDefaults::standard();
///     defaults.registerFallbacks({{"hour", 8}});
///     defaults.value("hour")            // 8
///     defaults.setValue("hour", 10);
///     defaults.value("hour")            // 10, also in the next run
///     defaults.setValue("hour", {});
///     defaults.value("hour")            // 8
class UserDefaults {
    class State;

  public:
    /// Settings in a file of one's own, which is read now. The path is absolute.
    explicit UserDefaults(std::string path);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The application's (UserDefaultsLocation.h), made at the first call and never ended, unless
    /// a ScopedUserDefaults stands in for it.
    static UserDefaults& standard();

    /// Whether a setting can have the value: null, or what a property list can say within its
    /// limits (PropertyListValue.h) in one level of depth less.
    static bool canStore(const Value& value);

    /// Null where there is none.
    Value value(std::string_view key) const;

    /// Null takes the user's value away. Throws std::invalid_argument where canStore is false, as
    /// the others do.
    void setValue(std::string_view key, const Value& value);

    /// The same for a value that was made of the one just read: it gives way to what another
    /// process has written since.
    void writeBack(std::string_view key, const Value& value);

    /// Adds fallbacks, in place of those of the same keys.
    void registerFallbacks(const std::map<std::string, Value, std::less<>>& fallbacks);

    /// Reads what other processes have written. Values that could not be written yet remain.
    void reload();

    /// Writes what was not written yet; none means success. The error is not reported again.
    std::optional<Error> synchronize();

    /// Keeps what is set from being written until it ends; then all of it is written at once, by
    /// the rule above. Batches nest. The store must outlive them.
    class Batch {
      public:
        explicit Batch(UserDefaults& defaults);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

      private:
        UserDefaults& defaults_;
    };

  private:
    static UserDefaults& ofApplication();
    void writeSoon();

    std::shared_ptr<State> state_;
};

std::atomic<UserDefaults*>& standInInForce();

/// As the standard store; for tests.
using ScopedUserDefaults = ScopedOverride<UserDefaults, standInInForce>;

}  // namespace corvane::platform
