#include "corvane/logging/LineFormat.h"

#include <fmt/format.h>

#include <cstdlib>
#include <iterator>
#include <string_view>

namespace corvane::logging {

namespace {

struct Look {
    std::string_view name;   ///< padded to the longest
    std::string_view color;  ///< what makes a terminal show it so
};

Look lookOf(Level level) {
    switch (level) {
        case Level::Error:
            return {"ERROR  ", "\x1b[1;31m"};
        case Level::Warning:
            return {"WARNING", "\x1b[33m"};
        case Level::Information:
            return {"INFO   ", "\x1b[32m"};
        case Level::Debug:
            return {"DEBUG  ", "\x1b[36m"};
        case Level::Verbose:
            break;
    }
    return {"VERBOSE", "\x1b[2m"};
}

constexpr std::string_view kPlainAgain = "\x1b[0m";

}  // namespace

void LineFormat::show(std::chrono::sys_seconds second) {
    if (second == shown_) return;
    const auto civil = zone_.civilFromInstant(second);
    // By hand, since messages may still come when the shared zones are gone.
    const std::chrono::sys_days day(std::chrono::year(static_cast<int>(civil.year)) / civil.month /
                                    civil.day);
    const auto ahead = std::chrono::floor<std::chrono::minutes>(
        day + std::chrono::hours(civil.hour) + std::chrono::minutes(civil.minute) +
        std::chrono::seconds(civil.second) - second);
    const auto minutes = std::abs(ahead.count());
    date_ = fmt::format("{:04}-{:02}-{:02} ", civil.year, civil.month, civil.day);
    time_ = fmt::format("{:02}:{:02}:{:02}", civil.hour, civil.minute, civil.second);
    offset_ =
        fmt::format("{}{:02}:{:02}", ahead.count() < 0 ? '-' : '+', minutes / 60, minutes % 60);
    shown_ = second;
}

void LineFormat::append(const Message& message, std::string& lines) {
    const auto second = std::chrono::floor<std::chrono::seconds>(message.instant);
    show(second);
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(message.instant - second).count();
    const auto [name, color] = lookOf(message.level);
    auto end = std::back_inserter(lines);
    if (style_ == Style::File) {
        fmt::format_to(end, "{}{}.{:03}{} {} {} ", date_, time_, milliseconds, offset_,
                       message.threadNumber, name);
    } else if (style_ == Style::Terminal) {
        fmt::format_to(end, "{}.{:03} {} ", time_, milliseconds, name);
    } else {
        fmt::format_to(end, "{}.{:03} {}{}{} ", time_, milliseconds, color, name, kPlainAgain);
    }
    lines.append(message.text).append("\n");
}

}  // namespace corvane::logging
