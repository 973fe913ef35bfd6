// The count of holders of a shared object.
#pragma once

#include <atomic>
#include <cstddef>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#define CORVANE_IS_SINGLE_THREADED __libc_single_threaded
#else
#define CORVANE_IS_SINGLE_THREADED false
#endif

namespace corvane::platform {

/// Starts with one holder. Any thread may add and remove holders; while the process has one thread
/// only, as companions mostly do, that costs no locked instruction.
class ReferenceCount {
  public:
    void increment() {
        if (CORVANE_IS_SINGLE_THREADED)
            count_.store(count_.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        else
            count_.fetch_add(1, std::memory_order_relaxed);
    }

    /// Whether the last holder is gone.
    bool decrement() {
        if (!CORVANE_IS_SINGLE_THREADED) return count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
        const std::size_t left = count_.load(std::memory_order_relaxed) - 1;
        count_.store(left, std::memory_order_relaxed);
        return left == 0;
    }

  private:
    std::atomic<std::size_t> count_{1};
};

}  // namespace corvane::platform
