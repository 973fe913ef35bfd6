#include "corvane/platform/UserDefaultsLocation.h"

#include "corvane/platform/BundleInfo.h"
#include "corvane/platform/ProgramName.h"
#include "corvane/platform/UserDirectories.h"

#include <stdexcept>
#include <utility>

namespace corvane::platform {

namespace {

std::optional<std::string>& overrideInForce() {
    static std::optional<std::string> path;
    return path;
}

bool canBePartOfName(std::string_view identifier) {
    return !identifier.empty() &&
           identifier.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::optional<std::string>& identifierInForce() {
    static std::optional<std::string> identifier;
    return identifier;
}

}  // namespace

std::optional<URL> userDefaultsDirectoryURL() {
    if (overrideInForce()) return fileURLFromWorkingDirectory(*overrideInForce());
    if (auto path = environmentVariable("CORVANE_DEFAULTS_DIRECTORY")) {
        return fileURLFromWorkingDirectory(*path);
    }
    auto directory = userDirectory("XDG_CONFIG_HOME", ".config");
    if (!directory) return std::nullopt;
    return URL::fileURLWithPath(*directory + "/corvane");
}

void setUserDefaultsDirectoryOverride(std::optional<std::string> path) {
    overrideInForce() = std::move(path);
}

std::string applicationIdentifier() {
    if (identifierInForce()) return *identifierInForce();
    auto identifier = bundleInfo("CFBundleIdentifier");
    return identifier && canBePartOfName(*identifier) ? *identifier : programName();
}

void setApplicationIdentifier(std::string identifier) {
    if (!canBePartOfName(identifier))
        throw std::invalid_argument("'" + identifier + "' cannot name an application");
    identifierInForce() = std::move(identifier);
}

std::optional<std::string> userDefaultsFilePath() {
    const auto directory = userDefaultsDirectoryURL();
    const auto path = directory ? directory->path() : std::nullopt;
    if (!path) return std::nullopt;
    return *path + "/" + applicationIdentifier() + ".plist";
}

}  // namespace corvane::platform
