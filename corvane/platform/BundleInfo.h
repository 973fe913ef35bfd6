// What a program's files say about the program, such as its version.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The text under the key in the program's file "Info.strings", a string table (see
/// docs/formats/string-tables.md): the one in the main bundle's directory, else, for programs in a
/// "bin" directory, the one in "share/<program>" beside it. None where neither has the key. Read
/// anew on every call, from any thread.
///
///     CFBundleVersion = 4.2.117
std::optional<std::string> bundleInfo(std::string_view key);

}  // namespace corvane::platform
