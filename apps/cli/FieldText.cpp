#include "apps/cli/FieldText.h"

#include "corvane/dates/EXTimeOnlyCommandParser.h"
#include "corvane/formats/EXXMLScanner.h"

#include "apps/cli/Failure.h"
#include "apps/cli/TypedDay.h"
#include "apps/cli/TypedWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <charconv>
#include <vector>

namespace corvane::cli {

using backup::Part;

namespace {

Failure notAValue(const Part& field, const std::string& value, std::string_view wanted) {
    return Failure(fmt::format("'{}' is no value of {}: it is {}", value, field.name, wanted));
}

/// Codes go by the names that the document has for them, in any letter case.
EXValue codeNamed(const Part& field, const std::string& value) {
    // Beyond the longest mapping.
    constexpr std::int64_t kEnd = 64;
    std::vector<std::string> names;
    for (std::int64_t code = 0; code < kEnd; ++code) {
        const auto name = field.mapping().objectForKey(code);
        if (!name) continue;
        if (equalIgnoringCase(*name, value)) return EXValue(code);
        names.push_back(*name);
    }
    throw notAValue(field, value, fmt::format("one of {}", fmt::join(names, ", ")));
}

EXValue flagIn(const Part& field, const std::string& value) {
    const auto flag = flagNamed(value);
    if (!flag) throw notAValue(field, value, "true or false");
    return EXValue(*flag);
}

EXValue numberIn(const Part& field, const std::string& value) {
    std::int64_t number = 0;
    const char* end = value.data() + value.size();
    const auto [stop, problem] = std::from_chars(value.data(), end, number);
    if (problem != std::errc() || stop != end) throw notAValue(field, value, "a whole number");
    return EXValue(number);
}

EXValue momentIn(const Part& field, const std::string& value) {
    const auto moment = EXXMLScanner::isoDateFormatter().dateFromString(value);
    if (!moment) throw notAValue(field, value, "a moment such as 2024-03-05T08:30:00Z");
    return EXValue(*moment);
}

}  // namespace

EXValue valueFromText(const Part& field, const std::string& text) {
    if (text.empty()) return {};
    switch (field.type) {
        case EXXMLTypeBool:
            return flagIn(field, text);
        case EXXMLTypeInt64:
            return numberIn(field, text);
        case EXXMLTypeDate:
            return momentIn(field, text);
        case EXXMLTypeDateOnly:
            if (const auto day = typedDay(text)) return EXValue(*day);
            throw notAValue(field, text, "a day such as 2024-03-05 or a weekday");
        case EXXMLTypeTimeOnly:
            if (const auto time = EXTimeOnlyCommandParser::timeOnlyFromString(text)) {
                return EXValue(*time);
            }
            throw notAValue(field, text, "a time of day such as 8:30");
        case EXXMLTypeEnum:
            return codeNamed(field, text);
        default:
            return EXValue(text);
    }
}

}  // namespace corvane::cli
