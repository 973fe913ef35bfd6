#include "apps/cli/PriorityNames.h"

#include "corvane/vocabulary/VocabularyKeys.h"

#include "apps/cli/TaskCodes.h"
#include "apps/cli/TypedWords.h"

namespace corvane::cli {

std::optional<std::int16_t> priorityNamed(std::string_view name) {
    for (std::int16_t code = 0; code <= kHighestPriority; ++code) {
        const std::string_view key = kPriorityKeys[static_cast<std::size_t>(code)];
        const bool isLetter = name.size() == 1 && lowered(name[0]) == 'a' + kHighestPriority - code;
        if (isLetter || equalIgnoringCase(name, key)) return code;
    }
    return std::nullopt;
}

}  // namespace corvane::cli
