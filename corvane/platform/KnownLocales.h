// Which locales there are data for. Any thread.
#pragma once

#include "corvane/platform/Locale.h"

#include <optional>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// Every locale that the locale data describe, by identifier.
std::vector<Locale> knownLocales();

/// The locale of that name; none where nothing is known of its language.
///   knownLocale("de-AT")   is Locale("de_AT")
///   knownLocale("C")       is the invariant locale
///   knownLocale("xx_YY")   is none, as is knownLocale("")
std::optional<Locale> knownLocale(std::string_view name);

}  // namespace corvane::platform
