#include "corvane/formats/HGCorvaneBackupManager.h"

#include <fmt/format.h>

namespace corvane {

std::string backupFileName(std::string_view distinction) {
    return fmt::format("{}{}.{}", HGCorvaneBackupManagerFilePrefix, distinction,
                       HGCorvaneBackupManagerFileExtension);
}

}  // namespace corvane
