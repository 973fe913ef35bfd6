// A mutex that is held for the time of a callback.
#pragma once

#include <functional>
#include <mutex>
#include <utility>

namespace corvane {

class EXThreadMutex {
  public:
    EXThreadMutex() = default;
    EXThreadMutex(const EXThreadMutex&) = delete;
    EXThreadMutex& operator=(const EXThreadMutex&) = delete;

    /// Runs the callback while no other thread runs one under this mutex, and gives its result;
    /// what it throws passes through. A callback should not come back to the same mutex. One that
    /// does runs on inside the hold it has: better than waiting for itself for ever.
    template <class Callback>
    decltype(auto) synchronize(Callback&& callback) {
        std::lock_guard lock(mutex_);
        return std::invoke(std::forward<Callback>(callback));
    }

  private:
    std::recursive_mutex mutex_;
};

}  // namespace corvane
