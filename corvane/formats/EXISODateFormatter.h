// Instants as ISO 8601 texts in UTC, the same in every locale and zone. A value without state; any
// thread.
#pragma once

#include "corvane/platform/Instant.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The pattern "yyyy-MM-dd'T'HH:mm:ss'Z'" in the Gregorian calendar extended both ways. Years that
/// four digits cannot hold are written as XML Schema has them: with more digits after 9999, and
/// with a minus sign before the year 0, which precedes 1. So every instant has a text of its own.
///
///     EXISODateFormatter iso;
///     auto date = iso.dateFromString("2015-03-01T10:00:00Z");
///     iso.stringFromDate(*date)                        // "2015-03-01T10:00:00Z"
///     iso.dateFromString("2015-03-01")                 // none
///     iso.dateFromString("2015-02-29T10:00:00Z")       // none
///     iso.dateFromString("2015-03-01T10:00:00.5Z")     // none
class EXISODateFormatter {
  public:
    /// Room for any text; an Instant's years have at most six digits and a sign.
    using Buffer = std::array<char, 24>;

    /// Fractions of a second are dropped, towards the past.
    std::string stringFromDate(platform::Instant date) const;

    /// The same as a view of `buffer`.
    std::string_view stringFromDate(platform::Instant date, Buffer& buffer) const;

    /// None for any deviation from the form, for a day or time that does not exist, and beyond the
    /// range of an Instant.
    std::optional<platform::Instant> dateFromString(std::string_view string) const;
};

}  // namespace corvane
