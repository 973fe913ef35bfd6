#include "corvane/platform/MainBundle.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace corvane::platform {

namespace {

std::optional<std::string>& overrideInForce() {
    static std::optional<std::string> directory;
    return directory;
}

}  // namespace

std::optional<std::string> mainBundleDirectory() {
    if (overrideInForce()) return overrideInForce();
    std::error_code failure;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure) return std::nullopt;
    return executable.parent_path().native();
}

ScopedMainBundle::ScopedMainBundle(std::string directory)
    : previous_(std::exchange(overrideInForce(), std::move(directory))) {}

ScopedMainBundle::~ScopedMainBundle() {
    overrideInForce() = std::move(previous_);
}

}  // namespace corvane::platform
