#include "corvane/logging/Log.h"

#include "corvane/logging/OneLine.h"
#include "corvane/logging/Outputs.h"
#include "corvane/platform/Clock.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace corvane::logging {

namespace {

/// What both the outputs' clocks and four digits of a year can tell.
constexpr platform::Instant kEarliest{std::chrono::sys_days{std::chrono::year{1678} / 1 / 1}};
constexpr platform::Instant kLatest{std::chrono::sys_days{std::chrono::year{2262} / 1 / 1}};

void post(Level level, std::string_view text) {
    const auto now = std::clamp(platform::currentClock().now(), kEarliest, kLatest);
    std::string changed;
    Outputs::shared().post(now, level, onOneLine(text, changed));
}

}  // namespace

void detail::logFormatted(Level level, fmt::string_view format,
                          fmt::format_args arguments) noexcept {
    // Nobody waits for a message: where there is no memory for it, there is none to tell of it.
    try {
        fmt::memory_buffer text;
        try {
            fmt::vformat_to(std::back_inserter(text), format, arguments);
        } catch (...) {
            text.clear();
            fmt::format_to(std::back_inserter(text), "{} (cannot be formatted)", format);
        }
        post(level, {text.data(), text.size()});
    } catch (...) {
    }
}

void logText(Level level, std::string_view text) noexcept {
    if (!isLogged(level)) return;
    try {
        post(level, text);
    } catch (...) {
    }
}

}  // namespace corvane::logging
