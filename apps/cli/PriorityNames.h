// What priorities are called on the command line and in URLs.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::cli {

/// The code of "critical", "high", "medium", "low" or "trivial", or of "A" to "E" for the same, in
/// any letter case; none for anything else.
std::optional<std::int16_t> priorityNamed(std::string_view name);

}  // namespace corvane::cli
