#include "corvane/bridge/NXEnvironment.h"

#include "corvane/platform/BundleInfo.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TextScanner.h"

#include <atomic>
#include <string_view>

namespace corvane {

namespace {

std::atomic<bool> desktop = false;

std::int64_t versionNumber(int piece) {
    const auto version = NXEnvironment::applicationVersion().value_or("");
    std::string_view text = version;
    for (; piece > 0; --piece) {
        const auto dot = text.find('.');
        if (dot == text.npos) return 0;
        text.remove_prefix(dot + 1);
    }
    return platform::TextScanner(text.substr(0, text.find('.'))).scanInteger().value_or(0);
}

}  // namespace

std::optional<std::string> NXEnvironment::applicationVersion() {
    return platform::bundleInfo("CFBundleVersion");
}

std::int64_t NXEnvironment::applicationMajorVersionNumber() {
    return versionNumber(0);
}

std::int64_t NXEnvironment::applicationMinorVersionNumber() {
    return versionNumber(1);
}

std::int64_t NXEnvironment::applicationBuildVersionNumber() {
    return versionNumber(2);
}

bool NXEnvironment::isDesktop() {
    return desktop;
}

void NXEnvironment::setDesktop(bool isDesktop) {
    desktop = isDesktop;
}

std::string NXEnvironment::userLocaleIdentifier() {
    return platform::currentLocale().identifier();
}

std::string NXEnvironment::userLanguageCode() {
    return platform::preferredLanguages().front();
}

}  // namespace corvane
