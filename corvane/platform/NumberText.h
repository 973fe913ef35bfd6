// Numbers as a locale writes them: its digits, its separators, its percent sign. Any thread.
#pragma once

#include "corvane/platform/Locale.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

///   numberText(12345, Locale("de_DE"))   is "12.345"
///   numberText(42, Locale("ar_EG"))      is "٤٢"
std::string numberText(std::int64_t number, const Locale& locale = currentLocale());

/// Of hundredths.
///   percentText(42, Locale("en_US"))   is "42%"
///   percentText(42, Locale("tr_TR"))   is "%42"
///   percentText(42, Locale("de_DE"))   is "42 %", with a space at which no line breaks
std::string percentText(int percent, const Locale& locale = currentLocale());

// What stands in a field. A plain number is what std::to_chars writes and std::from_chars reads.

/// The number as a user types it: without grouping. What is no digit, sign or point stays.
///   typedNumberText("-1234.5", Locale("de_DE"))   is "-1234,5"
std::string typedNumberText(std::string_view plain, const Locale& locale = currentLocale());

/// None for what is no number. Digits may be those of any script, and groups are passed over where
/// the locale would make them. A point may stand for the decimal separator, unless the locale
/// groups with points and this one stands where it would.
///   plainNumber("1.234", Locale("de_DE"))   is "1234"
///   plainNumber("1.5", Locale("de_DE"))     is "1.5", as is that of "1,5"
std::optional<std::string> plainNumber(std::string_view text,
                                       const Locale& locale = currentLocale());

}  // namespace corvane::platform
