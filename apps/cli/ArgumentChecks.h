// What the commands ask of their arguments. A check tells what is wrong with a text, and gives the
// empty one where nothing is.
#pragma once

#include "apps/cli/Commands.h"

#include <map>
#include <optional>
#include <string>

namespace corvane::cli {

// Headings of the help.
inline constexpr const char* kMainApplication = "As the main application";
inline constexpr const char* kCompanion = "As a companion";
inline constexpr const char* kAnyone = "As anyone";

/// By the names that users type.
const std::map<std::string, View>& views();

std::string checkUTF8(const std::string& text);
std::string checkNotEmpty(const std::string& text);
std::string checkView(const std::string& text);

/// None for an option that was not given: its text is empty.
std::optional<std::string> given(const std::string& text);

}  // namespace corvane::cli
