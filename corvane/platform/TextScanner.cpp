#include "corvane/platform/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace corvane::platform {

namespace {

// U+0085, U+00A0, U+1680, U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F and U+3000.
constexpr std::string_view kWideSpaces[] = {
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81",
    "\xE2\x80\x82", "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86",
    "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8",
    "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80"};

// The length in bytes of the white space at the front; 0 where there is none.
std::size_t spaceLength(std::string_view text) {
    if (text.empty()) return 0;
    char first = text.front();
    if (first == ' ' || (first >= '\t' && first <= '\r')) return 1;
    auto* space = std::find_if(std::begin(kWideSpaces), std::end(kWideSpaces),
                               [&](std::string_view each) { return text.starts_with(each); });
    return space == std::end(kWideSpaces) ? 0 : space->size();
}

std::string_view withoutLeadingSpace(std::string_view text) {
    while (std::size_t length = spaceLength(text))
        text.remove_prefix(length);
    return text;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::optional<std::int64_t> TextScanner::scanInteger() {
    std::string_view text = withoutLeadingSpace(rest_);
    bool negative = text.starts_with('-');
    std::size_t sign = negative || text.starts_with('+') ? 1 : 0;
    auto* digits = text.data() + sign;
    auto* end = std::find_if_not(digits, text.data() + text.size(), isDigit);
    if (digits == end) return std::nullopt;
    rest_ = text.substr(static_cast<std::size_t>(end - text.data()));

    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t number = 0;
    // With the minus sign included, so that the lowest number can be read as well.
    auto result = std::from_chars(negative ? digits - 1 : digits, end, number);
    if (result.ec == std::errc{}) return number;
    return negative ? Limits::min() : Limits::max();
}

std::optional<std::int64_t> TextScanner::scanIntegerAfter(char separator) {
    std::string_view start = rest_;
    std::string_view text = withoutLeadingSpace(rest_);
    if (text.find_first_not_of(separator) != 1) return std::nullopt;
    rest_ = text.substr(1);
    auto number = scanInteger();
    if (!number) rest_ = start;
    return number;
}

}  // namespace corvane::platform
