#include "corvane/vocabulary/HGColorNameProvider.h"

namespace corvane {

const std::vector<std::string>& HGColorNameProvider::allColorNames() {
    static const std::vector<std::string> names{"gray", "purple", "violet", "blue",
                                                "cyan", "green",  "orange", "red"};
    return names;
}

const std::string& HGColorNameProvider::nameForColor(std::int64_t code) {
    return allColorNames().at(static_cast<std::size_t>(code));
}

}  // namespace corvane
