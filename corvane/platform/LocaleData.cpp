#include "corvane/platform/LocaleData.h"

#include "corvane/platform/CivilDays.h"
#include "corvane/platform/TimeZone.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace corvane::platform {

namespace {

icu::UnicodeString unicodeText(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
}

std::string utf8Text(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

/// Persian, Thai and Saudi locales would otherwise count by calendars of their own.
icu::Locale gregorian(const Locale& locale) {
    icu::Locale result(locale.identifier().c_str());
    UErrorCode status = U_ZERO_ERROR;
    result.setKeywordValue("calendar", "gregorian", status);
    return result;
}

/// The weekday that the keyword "fw" asks for, which ICU 72 leaves to its callers; 0 for none.
int firstWeekdayOfKeyword(const icu::Locale& locale) {
    static constexpr std::array<std::string_view, 7> days{"sun", "mon", "tue", "wed",
                                                          "thu", "fri", "sat"};
    char value[16] = {};
    UErrorCode status = U_ZERO_ERROR;
    locale.getKeywordValue("fw", value, sizeof value - 1, status);
    if (U_FAILURE(status)) return 0;
    auto found = std::find(days.begin(), days.end(), std::string_view(value));
    return found == days.end() ? 0 : static_cast<int>(found - days.begin()) + 1;
}

icu::DateFormatSymbols::DtWidthType widthOfLength(NameLength length) {
    switch (length) {
        case NameLength::Full:
            return icu::DateFormatSymbols::WIDE;
        case NameLength::Short:
            return icu::DateFormatSymbols::ABBREVIATED;
        case NameLength::Narrow:
            return icu::DateFormatSymbols::NARROW;
    }
    return icu::DateFormatSymbols::WIDE;
}

icu::DateFormat::EStyle styleOf(DateStyle style) {
    switch (style) {
        case DateStyle::Short:
            return icu::DateFormat::kShort;
        case DateStyle::Medium:
            return icu::DateFormat::kMedium;
        case DateStyle::Long:
            return icu::DateFormat::kLong;
        case DateStyle::Full:
            return icu::DateFormat::kFull;
        case DateStyle::None:
            break;
    }
    return icu::DateFormat::kNone;
}

std::string patternOf(std::unique_ptr<icu::DateFormat> format) {
    icu::UnicodeString pattern;
    if (const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get()))
        simple->toPattern(pattern);
    return utf8Text(pattern);
}

/// Copies as many names as both sides have, so that short locale data leave empty names.
template <std::size_t Count>
void copyNames(const icu::UnicodeString* names, int32_t count,
               std::array<std::string, Count>& result) {
    auto usable = std::min(static_cast<std::size_t>(std::max(count, int32_t{0})), Count);
    for (std::size_t i = 0; i < usable; ++i)
        result[i] = utf8Text(names[i]);
}

}  // namespace

WeekRules weekRulesOfLocale(const Locale& locale) {
    auto icuLocale = gregorian(locale);
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(*icu::TimeZone::getGMT(), icuLocale, status);
    WeekRules rules;
    if (U_FAILURE(status)) return rules;
    rules.firstWeekday = calendar.getFirstDayOfWeek(status);
    rules.minimalDaysInFirstWeek = calendar.getMinimalDaysInFirstWeek();
    for (std::size_t i = 0; i < rules.weekend.size(); ++i) {
        auto type = calendar.getDayOfWeekType(static_cast<UCalendarDaysOfWeek>(i + 1), status);
        // Where a weekend begins or ends within a day, that day is no whole day off.
        rules.weekend[i] = type == UCAL_WEEKEND;
    }
    if (int weekday = firstWeekdayOfKeyword(icuLocale)) rules.firstWeekday = weekday;
    return U_FAILURE(status) ? WeekRules{} : rules;
}

DateNames dateNamesOfLocale(const Locale& locale, NameLength length, NameUse use) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(gregorian(locale), status);
    DateNames names;
    if (U_FAILURE(status)) return names;
    auto width = widthOfLength(length);
    auto context = use == NameUse::InDate ? icu::DateFormatSymbols::FORMAT
                                          : icu::DateFormatSymbols::STANDALONE;
    int32_t count = 0;
    const auto* months = symbols.getMonths(count, context, width);
    copyNames(months, count, names.months);
    const auto* weekdays = symbols.getWeekdays(count, context, width);
    copyNames(weekdays + 1, count - 1, names.weekdays);  // there is no weekday 0
    return names;
}

std::array<std::string, 2> halfDayMarkersOfLocale(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(gregorian(locale), status);
    std::array<std::string, 2> markers;
    if (U_FAILURE(status)) return markers;
    int32_t count = 0;
    const auto* texts = symbols.getAmPmStrings(count);
    copyNames(texts, count, markers);
    return markers;
}

std::string bestDatePattern(const Locale& locale, std::string_view skeleton) {
    return bestDatePatterns(locale, {&skeleton, 1}).front();
}

std::vector<std::string> bestDatePatterns(const Locale& locale,
                                          std::span<const std::string_view> skeletons) {
    std::vector<std::string> patterns(skeletons.size());
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(gregorian(locale), status));
    if (U_FAILURE(status) || !generator) return patterns;
    for (std::size_t i = 0; i < skeletons.size(); ++i) {
        UErrorCode ownStatus = U_ZERO_ERROR;
        auto pattern = generator->getBestPattern(unicodeText(skeletons[i]), ownStatus);
        if (U_SUCCESS(ownStatus)) patterns[i] = utf8Text(pattern);
    }
    return patterns;
}

std::string datePatternOfStyle(const Locale& locale, DateStyle style) {
    if (style == DateStyle::None) return {};
    return patternOf(std::unique_ptr<icu::DateFormat>(
        icu::DateFormat::createDateInstance(styleOf(style), gregorian(locale))));
}

std::string timePatternOfStyle(const Locale& locale, DateStyle style) {
    if (style == DateStyle::None) return {};
    return patternOf(std::unique_ptr<icu::DateFormat>(
        icu::DateFormat::createTimeInstance(styleOf(style), gregorian(locale))));
}

struct DateFormatter::Format {
    icu::SimpleDateFormat format;
};

DateFormatter::DateFormatter(std::string_view pattern, const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    auto icuLocale = gregorian(locale);
    icu::SimpleDateFormat format(unicodeText(pattern), icuLocale, status);
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), status);
    if (U_FAILURE(status)) return;
    calendar->setGregorianChange(-8.64e15, status);  // before every day that ICU can count
    format.adoptCalendar(calendar.release());
    if (U_SUCCESS(status)) format_ = std::make_unique<Format>(Format{std::move(format)});
}

DateFormatter::~DateFormatter() = default;
DateFormatter::DateFormatter(DateFormatter&&) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&&) noexcept = default;

std::string DateFormatter::stringFromCivil(const CivilTime& civil) const {
    if (!format_) return {};
    const auto day = dayNumber({civil.year, civil.month, civil.day});
    const double seconds = static_cast<double>(day) * 86400.0 + civil.hour * 3600.0 +
                           civil.minute * 60.0 + civil.second;
    icu::UnicodeString text;
    // ICU counts in a copy of the format's calendar, so this may be any thread.
    format_->format.format(seconds * U_MILLIS_PER_SECOND, text);
    return utf8Text(text);
}

}  // namespace corvane::platform
