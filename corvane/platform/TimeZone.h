// A region's rules for turning moments into local calendar time and back, from the system's own
// zone data. An immutable value, cheap to copy; every operation is safe on any thread.
#pragma once

#include "corvane/platform/Instant.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane::platform {

/// What a wall calendar and a wall clock show, in the Gregorian calendar extended both ways
/// without end (the year before 1 is 0). Fields may run over their range when they are converted
/// to an instant: February 31 is then March 2 or 3, hour 24 is midnight of the next day.
struct CivilTime {
    std::int64_t year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend auto operator<=>(const CivilTime&, const CivilTime&) = default;
};

/// Which moment to take where the clocks were set back and so show a time twice.
enum class RepeatedTime { First, Second };

///     auto zone = TimeZone::named("America/Sao_Paulo").value();
///     auto start = zone.instantFromCivil({2018, 11, 4});  // midnight was skipped that day
///     zone.civilFromInstant(start)                        // {2018, 11, 4, 1, 0, 0}
class TimeZone {
  public:
    /// UTC.
    TimeZone();

    /// The user's zone: TZ, else /etc/localtime, as they stood at the first call; UTC where neither
    /// can be read. A ScopedTimeZone stands in for it.
    static const TimeZone& current();

    static TimeZone utc() { return {}; }

    /// The zone with this identifier, such as "Europe/Berlin"; none where the system has none.
    static std::optional<TimeZone> named(std::string_view id);

    /// The identifier; "localtime" for a current zone that was read from /etc/localtime.
    std::string name() const;

    /// Fractions of a second are dropped.
    CivilTime civilFromInstant(Instant instant) const;

    /// A time that the clocks skipped gives the first moment after the gap. A date beyond the
    /// range of an Instant (about 290,000 years either way) gives the nearest end of that range.
    Instant instantFromCivil(const CivilTime& civil,
                             RepeatedTime repeated = RepeatedTime::First) const;

    /// Zones are equal when they have the same identifier.
    friend bool operator==(const TimeZone& a, const TimeZone& b) { return a.isEqual(b); }

  private:
    struct Rules;
    explicit TimeZone(std::shared_ptr<const Rules> rules) : rules_(std::move(rules)) {}
    bool isEqual(const TimeZone& other) const;

    std::shared_ptr<const Rules> rules_;
};

/// Puts a zone in force as the current one for as long as it lives; for tests, on one thread.
/// Scopes nest.
class ScopedTimeZone {
  public:
    explicit ScopedTimeZone(TimeZone zone);

    /// Throws std::invalid_argument where the system has no such zone.
    explicit ScopedTimeZone(std::string_view id);

    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

  private:
    TimeZone zone_;
    const TimeZone* previous_;
};

}  // namespace corvane::platform
