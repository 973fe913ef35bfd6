#include "corvane/platform/KnownLocales.h"

#include <unicode/locid.h>

#include <algorithm>

namespace corvane::platform {

std::vector<Locale> knownLocales() {
    int32_t count = 0;
    const auto* available = icu::Locale::getAvailableLocales(count);
    std::vector<Locale> locales;
    for (int32_t i = 0; i < count; ++i)
        locales.emplace_back(available[i].getName());
    return locales;
}

std::optional<Locale> knownLocale(std::string_view name) {
    const Locale locale(name);
    // Unreadable names give the invariant locale as well.
    if (locale == Locale()) {
        bool isMeant = name.starts_with("C.") || name == "C" || name == "POSIX" ||
                       name.starts_with("en_US_POSIX") || name.starts_with("en-US-POSIX");
        return isMeant ? std::optional(locale) : std::nullopt;
    }
    const auto known = knownLocales();
    bool hasData = std::any_of(known.begin(), known.end(), [&](const Locale& each) {
        return each.language() == locale.language();
    });
    return hasData ? std::optional(locale) : std::nullopt;
}

}  // namespace corvane::platform
