#include "apps/cli/DocumentChange.h"
#include "apps/cli/DocumentCommands.h"

namespace corvane::cli {

void runComplete(const std::string& file, const std::string& uri) {
    changeDocument(file, [&](backup::BackupDocument& document) {
        return completeTask(document, backup::URL(uri));
    });
}

}  // namespace corvane::cli
