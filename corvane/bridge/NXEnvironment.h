// Which version of which kind of program runs, and for whom. Functions over process-wide state; any
// thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

class NXEnvironment {
  public:
    /// The text "CFBundleVersion" of the main bundle's information (see platform/BundleInfo.h);
    /// absent where that has none.
    static std::optional<std::string> applicationVersion();

    /// The numbers that the pieces between the version's dots begin with; 0 for a piece that begins
    /// with none or is missing. "4.2b1" is 4, 2 and 0.
    static std::int64_t applicationMajorVersionNumber();
    static std::int64_t applicationMinorVersionNumber();
    static std::int64_t applicationBuildVersionNumber();

    /// Whether the program said that it is one for the desktop.
    static bool isDesktop();
    static void setDesktop(bool desktop);

    static std::string userLocaleIdentifier();

    /// The most wanted of the user's languages.
    static std::string userLanguageCode();

    NXEnvironment() = delete;
};

}  // namespace corvane
