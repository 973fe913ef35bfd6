#include "corvane/dates/TimeCommandGrammar.h"

#include "corvane/dates/DateNameTables.h"
#include "corvane/platform/LocaleData.h"

#include <array>
#include <string>

namespace corvane {

namespace {

constexpr int kHoursOfHalf = 12;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string without(std::string text, char dropped) {
    std::erase(text, dropped);
    return text;
}

/// Takes one or two digits from the front.
std::optional<int> takeNumber(std::string_view& text) {
    std::size_t count = 0;
    int number = 0;
    for (; count < text.size() && isDigit(text[count]); ++count) {
        if (count == 2) return std::nullopt;
        number = 10 * number + (text[count] - '0');
    }
    text.remove_prefix(count);
    return count == 0 ? std::nullopt : std::optional(number);
}

struct Fields {
    int hour = 0;
    int minute = 0;
    int second = 0;
};

std::optional<Fields> takeFields(std::string_view& text) {
    Fields fields;
    auto hour = takeNumber(text);
    if (!hour) return std::nullopt;
    fields.hour = *hour;
    for (int* field : {&fields.minute, &fields.second}) {
        if (!text.starts_with(':')) break;
        text.remove_prefix(1);
        auto number = takeNumber(text);
        if (!number || *number > 59) return std::nullopt;
        *field = *number;
    }
    return fields;
}

}  // namespace

TimeCommandGrammar::TimeCommandGrammar(const platform::Locale& locale)
    : letterCase_(platform::letterCaseOfLocale(locale)) {
    const auto ofLocale = platform::halfDayMarkersOfLocale(locale);
    const std::array<std::string, 2> ofEverybody{"a.m.", "p.m."};
    for (const auto& markers : {ofLocale, ofEverybody})
        for (std::size_t half = 0; half < markers.size(); ++half)
            for (const auto& spelling :
                 spellingsOfName(markers[half], platform::NameLength::Short, locale))
                addMarker(spelling, static_cast<int>(half));
}

/// With and without its blanks and its stops.
void TimeCommandGrammar::addMarker(const std::string& typed, int half) {
    const auto closed = without(typed, ' ');
    for (const auto& spelling : {typed, closed, without(typed, '.'), without(closed, '.')})
        markers_.add(spelling, half);
}

std::optional<EXTimeOnly> TimeCommandGrammar::parse(std::string_view text) const {
    const platform::TypedText typed(text, letterCase_);
    auto rest = typed.text();
    const auto fields = takeFields(rest);
    if (!fields) return std::nullopt;
    if (rest.empty()) {
        if (fields->hour > 23) return std::nullopt;
        return EXTimeOnly(fields->hour, fields->minute, fields->second);
    }
    if (rest.starts_with(' ')) rest.remove_prefix(1);
    const auto half = markers_.find(rest);
    if (!half || fields->hour < 1 || fields->hour > kHoursOfHalf) return std::nullopt;
    return EXTimeOnly(fields->hour % kHoursOfHalf + *half * kHoursOfHalf, fields->minute,
                      fields->second);
}

}  // namespace corvane
