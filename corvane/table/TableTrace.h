// The console lines of tables and lists: what they do, and how long it takes.
#pragma once

#include "corvane/platform/Console.h"
#include "corvane/platform/SteadyClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

namespace corvane {

template <class... Arguments>
void trace(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    platform::currentConsole().writeLine(
        fmt::format(format, std::forward<Arguments>(arguments)...));
}

/// "1.042": whole seconds and milliseconds, truncated.
inline std::string secondsText(std::chrono::nanoseconds duration) {
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(duration).count();
    return fmt::format("{}.{:03}", milliseconds / 1000, milliseconds % 1000);
}

class Stopwatch {
  public:
    /// Of the time since it was made.
    std::string text() const { return secondsText(platform::systemSteadyClock().now() - start_); }

  private:
    platform::SteadyClock::Time start_ = platform::systemSteadyClock().now();
};

}  // namespace corvane
