#include "apps/cli/PriorityNames.h"

#include "corvane/vocabulary/VocabularyKeys.h"

#include "apps/cli/TaskCodes.h"

#include <algorithm>

namespace corvane::cli {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

}  // namespace

std::optional<std::int16_t> priorityNamed(std::string_view name) {
    for (std::int16_t code = 0; code <= kHighestPriority; ++code) {
        const std::string_view key = kPriorityKeys[static_cast<std::size_t>(code)];
        const bool isLetter = name.size() == 1 && lower(name[0]) == 'a' + kHighestPriority - code;
        const bool isKey = std::equal(name.begin(), name.end(), key.begin(), key.end(),
                                      [](char a, char b) { return lower(a) == lower(b); });
        if (isLetter || isKey) return code;
    }
    return std::nullopt;
}

}  // namespace corvane::cli
