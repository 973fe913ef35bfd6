// Numbers in fields, as a user types them in a locale. A plain number is what std::to_chars writes
// and std::from_chars reads. Any thread.
#pragma once

#include "corvane/platform/Locale.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The number as a user types it: without grouping. What is no digit, sign or point stays.
///   typedNumberText("-1234.5", Locale("de_DE"))   is "-1234,5"
std::string typedNumberText(std::string_view plain, const Locale& locale = currentLocale());

std::string typedNumberText(std::int64_t number, const Locale& locale = currentLocale());

/// None for what is no number. Digits may be those of any script, and groups are passed over where
/// the locale would make them. A point may stand for the decimal separator, unless the locale
/// groups with points and this one stands where it would.
///   plainNumber("1.234", Locale("de_DE"))   is "1234"
///   plainNumber("1.5", Locale("de_DE"))     is "1.5", as is that of "1,5"
std::optional<std::string> plainNumber(std::string_view text,
                                       const Locale& locale = currentLocale());

}  // namespace corvane::platform
