// What code calls that has something to say to the log. Any thread. Whether and where it is written
// is the application's business: see EXLog.
#pragma once

#include "corvane/logging/Level.h"

#include <fmt/core.h>

#include <atomic>
#include <string_view>

namespace corvane::logging {

namespace detail {

inline constinit std::atomic<LevelMask> levels{kUpToInformation};
inline constinit std::atomic<bool> hasOutputs{false};

void logFormatted(Level level, fmt::string_view format, fmt::format_args arguments) noexcept;

}  // namespace detail

/// Whether a message of this level would be written anywhere. Worth asking only before work that
/// is done for the message alone: log() asks by itself.
inline bool isLogged(Level level) noexcept {
    return contains(detail::levels.load(std::memory_order_relaxed), level) &&
           detail::hasOutputs.load(std::memory_order_relaxed);
}

/// Formats the message and gives it to every output. The format is checked by the compiler; nothing
/// is formatted where nobody listens. Returns as soon as every output's queue has the message, and
/// waits for room in a queue that is full. The messages of one thread keep their order.
///
///     log(Level::Information, "publish: {} tasks in {}", 35, "todo.txt");
///
/// One message is one line in every output. Line breaks at its end are dropped; other control
/// characters and line separators are written as "\n", "\x1b", "\u2028" and the like, except for
/// tabs; what is not UTF-8 becomes U+FFFD; of more than 64 KiB the rest is only counted. Where
/// formatting an argument throws, the format itself is logged.
///
/// On the threads of the outputs themselves nothing is logged, since they would wait for
/// themselves.
template <class... Args>
void log(Level level, fmt::format_string<Args...> format, Args&&... arguments) noexcept {
    if (isLogged(level)) {
        detail::logFormatted(level, format, fmt::make_format_args(arguments...));
    }
}

/// The same for a text that is ready.
void logText(Level level, std::string_view text) noexcept;

}  // namespace corvane::logging
