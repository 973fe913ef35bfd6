#include "apps/cli/NewFile.h"

#include "corvane/platform/FileMoves.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/Container.h"
#include "apps/cli/Failure.h"

#include <fmt/format.h>

#include <cerrno>

namespace corvane::cli {

NewFile::NewFile(const std::string& name, bool replaces,
                 const std::optional<std::string>& otherDirectory) {
    platform::Error error;
    const auto path = platform::resolvedPath(name, &error);
    if (!path) throw Failure(error);
    path_ = *path;
    std::vector<std::string> directories{directoryOf(path_)};
    if (otherDirectory) directories.push_back(*otherDirectory);
    locks_ = lockDirectories(std::move(directories));
    const bool exists = platform::MappedFile::open(path_, &error) || error.code != ENOENT;
    if (exists && !replaces) {
        throw Failure(fmt::format("'{}' is there already; --force replaces it", name));
    }
}

}  // namespace corvane::cli
