// Text in which everything but letters, digits and "-._~" stands as "%" and two hex digits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::cli {

std::string percentEncoded(std::string_view text);

/// None where a "%" is not followed by two hex digits, or the result is not UTF-8.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace corvane::cli
