#include "corvane/platform/LogDirectory.h"

#include "corvane/platform/UserDirectories.h"

#include <utility>

namespace corvane::platform {

namespace {

std::optional<std::string>& overrideInForce() {
    static std::optional<std::string> path;
    return path;
}

}  // namespace

std::optional<URL> logDirectoryURL() {
    if (overrideInForce()) return fileURLFromWorkingDirectory(*overrideInForce());
    if (auto path = environmentVariable("CORVANE_LOG_DIRECTORY")) {
        return fileURLFromWorkingDirectory(*path);
    }
    auto directory = userDirectory("XDG_STATE_HOME", ".local/state");
    if (!directory) return std::nullopt;
    return URL::fileURLWithPath(*directory + "/corvane/log");
}

void setLogDirectoryOverride(std::optional<std::string> path) {
    overrideInForce() = std::move(path);
}

ScopedLogDirectory::ScopedLogDirectory(std::optional<std::string> path)
    : previous_(std::exchange(overrideInForce(), std::move(path))) {}

ScopedLogDirectory::~ScopedLogDirectory() {
    overrideInForce() = std::move(previous_);
}

}  // namespace corvane::platform
