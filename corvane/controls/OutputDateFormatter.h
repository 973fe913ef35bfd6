// How a field shows its value: a date or a time in one of the locale's own styles, and a date read
// back from what was shown. One thread.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/LocaleData.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Moments are shown as the current time zone has them, always in the Gregorian calendar.
///
///     OutputDateFormatter formatter(platform::Locale("en_US"));   // Medium
///     formatter.stringFromDate(noon)              // "Mar 5, 2026"
///     formatter.dayFromString("mar 5, 2026")      // 2026-03-05
///     formatter.dayFromString("tomorrow")         // none
class OutputDateFormatter {
  public:
    using Style = platform::DateStyle;

    /// Of the two styles, one is given: a field shows either a day or a time.
    explicit OutputDateFormatter(platform::Locale locale, Style dateStyle = Style::Medium,
                                 Style timeStyle = Style::None);
    ~OutputDateFormatter();
    OutputDateFormatter(OutputDateFormatter&&) noexcept;
    OutputDateFormatter& operator=(OutputDateFormatter&&) noexcept;

    const platform::Locale& locale() const { return locale_; }
    Style dateStyle() const { return dateStyle_; }
    void setDateStyle(Style style);
    Style timeStyle() const { return timeStyle_; }
    void setTimeStyle(Style style);

    /// Empty where both styles are None.
    std::string stringFromDate(platform::Instant date) const;

    /// Letter case, kinds of blanks and of digits do not matter. None for anything but a whole date
    /// of the style; always none without a date style.
    std::optional<EXDateOnly> dayFromString(std::string_view text) const;

  private:
    struct Writer;
    struct Reader;

    std::string pattern() const;
    const Reader& reader() const;

    platform::Locale locale_;
    Style dateStyle_;
    Style timeStyle_;
    mutable std::unique_ptr<Writer> writer_;  ///< made at the first use, as is the other
    mutable std::unique_ptr<Reader> reader_;
};

}  // namespace corvane
