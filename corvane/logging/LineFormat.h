// What a message looks like as a line. One thread at a time.
#pragma once

#include "corvane/logging/Message.h"
#include "corvane/platform/TimeZone.h"

#include <cstdint>
#include <string>

namespace corvane::logging {

/// Lines tell the time in the zone that was current when the format was made.
///
///     Style::File            // "2026-11-21 10:15:00.250+01:00 4242 WARNING late"
///     Style::Terminal        // "10:15:00.250 WARNING late"
///     Style::ColorTerminal   // the same, with the level in its colour
class LineFormat {
  public:
    enum class Style { File, Terminal, ColorTerminal };

    explicit LineFormat(Style style) : style_(style), zone_(platform::TimeZone::current()) {}

    /// With a line break.
    void append(const Message& message, std::string& lines);

  private:
    void show(std::chrono::sys_seconds second);

    Style style_;
    platform::TimeZone zone_;
    std::chrono::sys_seconds shown_ = std::chrono::sys_seconds::min();
    std::string date_, time_, offset_;  ///< of the second that was shown last
};

}  // namespace corvane::logging
