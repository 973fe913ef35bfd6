#include "apps/cli/DocumentChange.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/FieldChange.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

void runSet(const std::string& file, const std::string& uri, const std::string& field,
            const std::string& value) {
    changeDocument(file, [&](backup::BackupDocument& document) {
        setField(document, backup::URL(uri), field, value);
        return value.empty() ? fmt::format("Cleared {}\n", field)
                             : fmt::format("Set {} to '{}'\n", field, onOneLine(value));
    });
}

}  // namespace corvane::cli
