#include "corvane/platform/BundleInfo.h"

#include "corvane/platform/Files.h"
#include "corvane/platform/MainBundle.h"
#include "corvane/platform/ProgramName.h"
#include "corvane/platform/StringTable.h"

namespace corvane::platform {

std::optional<std::string> bundleInfo(std::string_view key) {
    const auto bundle = mainBundleDirectory();
    if (!bundle) return std::nullopt;
    for (const std::string& directory : {*bundle, *bundle + "/../share/" + programName()}) {
        const auto text = readTextFile(directory + "/Info.strings");
        if (!text) continue;
        const StringTable table = StringTable::parse(*text).table;
        if (auto* found = table.find(key)) return *found;
    }
    return std::nullopt;
}

}  // namespace corvane::platform
