#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/ArchiveJson.h"
#include "apps/cli/Commands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/TextOutput.h"

namespace corvane::cli {

void runInspect(const std::string& file) {
    platform::Error error;
    const auto view = platform::MappedFile::open(file, &error);
    if (!view) throw Failure(error);
    const auto root = platform::KeyedUnarchiver::unarchiveData(
        view->bytes(), platform::ArchivedRecord::anyClass());
    if (root.isNull()) throw Failure("cannot read '" + file + "': not a keyed archive with a root");
    const auto json = archiveJson(root, view->bytes().size());
    if (!json) throw Failure("cannot show '" + file + "': it repeats its parts beyond measure");
    print(*json);
}

}  // namespace corvane::cli
