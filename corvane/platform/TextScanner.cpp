#include "corvane/platform/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>

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

// The length in bytes of the white space at the end; 0 where there is none.
std::size_t spaceLengthAtEnd(std::string_view text) {
    if (text.empty()) return 0;
    if (static_cast<unsigned char>(text.back()) < 0x80)
        return spaceLength(text.substr(text.size() - 1));
    auto* space = std::find_if(std::begin(kWideSpaces), std::end(kWideSpaces),
                               [&](std::string_view each) { return text.ends_with(each); });
    return space == std::end(kWideSpaces) ? 0 : space->size();
}

// Of a number that from_chars found too large or too small, without telling which.
double nearestDouble(std::string_view number) {
    static const locale_t invariant = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const double nearest = ::strtod_l(std::string(number).c_str(), nullptr, invariant);
    return std::min(nearest, std::numeric_limits<double>::max());
}

}  // namespace

std::string_view withoutOuterSpace(std::string_view text) {
    text = withoutLeadingSpace(text);
    while (std::size_t length = spaceLengthAtEnd(text))
        text.remove_suffix(length);
    return text;
}

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

std::optional<double> TextScanner::scanDouble() {
    std::string_view text = withoutLeadingSpace(rest_);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    // from_chars also knows names of numbers and takes a second sign.
    const bool isNumber = !text.empty() && (isDigit(text[0]) || text[0] == '.');
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!isNumber || result.ec == std::errc::invalid_argument) return std::nullopt;
    const auto length = static_cast<std::size_t>(result.ptr - text.data());
    if (result.ec == std::errc::result_out_of_range) number = nearestDouble(text.substr(0, length));
    rest_ = text.substr(length);
    return negative ? -number : number;
}

}  // namespace corvane::platform
