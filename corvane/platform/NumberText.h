// Numbers as a locale writes them: its digits, its separators, its percent sign. Any thread.
#pragma once

#include "corvane/platform/Locale.h"

#include <cstdint>
#include <string>

namespace corvane::platform {

///   numberText(12345, Locale("de_DE"))   is "12.345"
///   numberText(42, Locale("ar_EG"))      is "٤٢"
std::string numberText(std::int64_t number, const Locale& locale = currentLocale());

/// Of hundredths.
///   percentText(42, Locale("en_US"))   is "42%"
///   percentText(42, Locale("tr_TR"))   is "%42"
///   percentText(42, Locale("de_DE"))   is "42 %", with a space at which no line breaks
std::string percentText(int percent, const Locale& locale = currentLocale());

}  // namespace corvane::platform
