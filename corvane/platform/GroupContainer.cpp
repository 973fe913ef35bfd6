#include "corvane/platform/GroupContainer.h"

#include "corvane/platform/Files.h"
#include "corvane/platform/UserDirectories.h"

#include <utility>

namespace corvane::platform {

namespace {

std::optional<std::string>& overrideInForce() {
    static std::optional<std::string> path;
    return path;
}

bool isDirectoryName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::optional<URL> createdContainer(std::string_view identifier) {
    auto directory = userDirectory("XDG_DATA_HOME", ".local/share");
    if (!directory || !isDirectoryName(identifier)) return std::nullopt;
    std::string path = directory->append("/").append(identifier);
    if (createDirectories(path, 0700)) return std::nullopt;
    return URL::fileURLWithPath(path);
}

}  // namespace

std::optional<URL> containerURLForSecurityApplicationGroupIdentifier(std::string_view identifier) {
    if (overrideInForce()) return fileURLFromWorkingDirectory(*overrideInForce());
    if (auto path = environmentVariable("CORVANE_CONTAINER"))
        return fileURLFromWorkingDirectory(*path);
    return createdContainer(identifier);
}

void setGroupContainerOverride(std::optional<std::string> path) {
    overrideInForce() = std::move(path);
}

ScopedGroupContainer::ScopedGroupContainer(std::optional<std::string> path)
    : previous_(std::exchange(overrideInForce(), std::move(path))) {}

ScopedGroupContainer::~ScopedGroupContainer() {
    overrideInForce() = std::move(previous_);
}

}  // namespace corvane::platform
