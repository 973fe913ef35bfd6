#include "corvane/platform/GroupContainer.h"

#include "corvane/platform/Files.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace corvane::platform {

namespace {

std::optional<std::string>& overrideInForce() {
    static std::optional<std::string> path;
    return path;
}

/// None where the variable is not set or empty, which mean the same to all the variables here.
std::optional<std::string> environment(const char* name) {
    const char* value = std::getenv(name);
    if (!value || !*value) return std::nullopt;
    return value;
}

std::optional<std::string> onlyIfAbsolute(std::optional<std::string> path) {
    return path && path->starts_with('/') ? std::move(path) : std::nullopt;
}

std::optional<std::string> homeFromAccount() {
    std::vector<char> texts(1024);
    passwd account{};
    passwd* found = nullptr;
    int failure = 0;
    do {
        texts.resize(2 * texts.size());
        failure = ::getpwuid_r(::getuid(), &account, texts.data(), texts.size(), &found);
    } while (failure == ERANGE);
    if (!found || !found->pw_dir) return std::nullopt;
    return found->pw_dir;
}

std::optional<std::string> dataHome() {
    if (auto directory = onlyIfAbsolute(environment("XDG_DATA_HOME"))) return directory;
    auto home = onlyIfAbsolute(environment("HOME"));
    if (!home) home = onlyIfAbsolute(homeFromAccount());
    if (!home) return std::nullopt;
    return *home + "/.local/share";
}

bool isDirectoryName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::optional<URL> existingContainer(const std::string& path) {
    std::error_code failure;
    auto absolute = std::filesystem::absolute(path, failure);
    if (failure) return std::nullopt;
    return URL::fileURLWithPath(absolute.native());
}

std::optional<URL> createdContainer(std::string_view identifier) {
    auto directory = dataHome();
    if (!directory || !isDirectoryName(identifier)) return std::nullopt;
    std::string path = directory->append("/").append(identifier);
    if (createDirectories(path, 0700)) return std::nullopt;
    return URL::fileURLWithPath(path);
}

}  // namespace

std::optional<URL> containerURLForSecurityApplicationGroupIdentifier(std::string_view identifier) {
    if (overrideInForce()) return existingContainer(*overrideInForce());
    if (auto path = environment("CORVANE_CONTAINER")) return existingContainer(*path);
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
