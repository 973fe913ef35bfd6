#include "corvane/bridge/BackupFileType.h"
#include "corvane/bridge/HGImportExtensionHandler.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/Activity.h"
#include "apps/cli/Container.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

/// A file that the user shares. Its name tells its type.
class FileItemProvider final : public platform::ItemProvider {
  public:
    explicit FileItemProvider(std::string path) : path_(std::move(path)) {}

    bool hasItemConformingToTypeIdentifier(std::string_view typeIdentifier) const override {
        return typeIdentifier == HGCorvaneBackupManagerFileUTI && backup::isBackupPath(path_);
    }

    void loadItemForTypeIdentifier(std::string_view typeIdentifier, LoadHandler handler) override {
        if (hasItemConformingToTypeIdentifier(typeIdentifier)) {
            handler(platform::URL::fileURLWithPath(path_), std::nullopt);
        } else {
            handler({}, platform::Error{"corvane", 1, "not of that type"});
        }
    }

  private:
    std::string path_;
};

}  // namespace

void runImport(const std::string& file) {
    existingContainerPath();
    platform::Error error;
    const auto path = platform::resolvedPath(file, &error);
    if (!path || !platform::MappedFile::open(*path, &error)) throw Failure(error);
    if (!backup::isBackupPath(*path)) {
        throw Failure(fmt::format("'{}' is not a document: its name does not end in .cvbx", file));
    }
    const auto locks = lockDirectories({containerPath()});
    std::optional<bool> imported;  // the first answer counts
    runInActivity("Handing over a document", [&] {
        platform::ExtensionContext context{{{{std::make_shared<FileItemProvider>(*path)}}}};
        HGImportExtensionHandler().importWithExtensionContext(context, [&](bool success) {
            if (!imported) imported = success;
        });
    });
    if (!imported.value_or(false)) {
        throw Failure(fmt::format("cannot hand over '{}' to '{}'", file, containerPath()));
    }
    print(fmt::format("Handed over {} to the main application, which restores it\n", file));
}

}  // namespace corvane::cli
