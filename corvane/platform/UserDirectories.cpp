#include "corvane/platform/UserDirectories.h"

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

}  // namespace

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    if (!value || !*value) return std::nullopt;
    return value;
}

std::optional<std::string> userDirectory(const char* variable, std::string_view belowHome) {
    if (auto directory = onlyIfAbsolute(environmentVariable(variable))) return directory;
    auto home = onlyIfAbsolute(environmentVariable("HOME"));
    if (!home) home = onlyIfAbsolute(homeFromAccount());
    if (!home) return std::nullopt;
    return home->append("/").append(belowHome);
}

std::optional<URL> fileURLFromWorkingDirectory(const std::string& path) {
    std::error_code failure;
    auto absolute = std::filesystem::absolute(path, failure);
    if (failure) return std::nullopt;
    return URL::fileURLWithPath(absolute.native());
}

}  // namespace corvane::platform
