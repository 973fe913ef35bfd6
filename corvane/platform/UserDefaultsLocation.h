// Where the settings of a user and an application lie, and which application this program is.
#pragma once

#include "corvane/platform/URL.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The directory of settings files, looked for anew on every call, in this order:
/// 1. the override in force;
/// 2. the environment variable CORVANE_DEFAULTS_DIRECTORY, unless empty;
/// 3. corvane in $XDG_CONFIG_HOME where that is an absolute path, else in ~/.config.
/// A relative path counts from the working directory. Whoever writes settings makes the directory.
/// None where the path is empty, or for a user without a home directory.
std::optional<URL> userDefaultsDirectoryURL();

/// Puts a directory in force; none lifts it. To be called before the settings are first asked for.
void setUserDefaultsDirectoryOverride(std::optional<std::string> path);

/// What the application's settings file is named for: what was set, else the text
/// "CFBundleIdentifier" of BundleInfo.h, else the program's name. Programs of one identifier share
/// their settings.
std::string applicationIdentifier();

/// To be called before the settings are first asked for. Throws std::invalid_argument for what
/// cannot be part of a file's name: empty text, and text with "/" or NUL.
void setApplicationIdentifier(std::string identifier);

/// `<directory>/<identifier>.plist`; none where there is no directory.
std::optional<std::string> userDefaultsFilePath();

}  // namespace corvane::platform
