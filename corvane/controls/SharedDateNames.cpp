#include "corvane/controls/SharedDateNames.h"

#include <optional>

namespace corvane {

std::shared_ptr<const DateNameTables> sharedDateNames(const platform::Locale& locale,
                                                      bool withNarrowMonths) {
    struct Latest {
        std::optional<platform::Locale> locale;
        std::shared_ptr<const DateNameTables> names;
    };
    thread_local Latest latest[2];
    auto& [knownLocale, names] = latest[withNarrowMonths ? 1 : 0];
    if (knownLocale != locale) {
        names = std::make_shared<const DateNameTables>(dateNameTables(locale, withNarrowMonths));
        knownLocale = locale;
    }
    return names;
}

}  // namespace corvane
