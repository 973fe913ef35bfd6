#include "corvane/vocabulary/ShippedStrings.h"

#include <array>

namespace corvane {

// Defined in the sources that the build makes of the files in strings/.
extern const std::string_view kEnglishStrings;
extern const std::string_view kGermanStrings;

std::span<const ShippedStrings> shippedStrings() {
    static const std::array tables{ShippedStrings{"en", kEnglishStrings},
                                   ShippedStrings{"de", kGermanStrings}};
    return tables;
}

}  // namespace corvane
