// Reads numbers and separators from the front of a text, the lenient way people type them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane::platform {

/// The text without white space and line breaks (Unicode's too) at its ends.
std::string_view withoutOuterSpace(std::string_view text);

/// Steps over white space and line breaks (Unicode's too) before each thing it reads. The text must
/// outlive it. For one thread; a failed reading leaves the position where it was.
class TextScanner {
  public:
    explicit TextScanner(std::string_view text) : rest_(text) {}

    /// Digits, with or without a sign. A number beyond 64 bits gives the nearest end of them.
    std::optional<std::int64_t> scanInteger();

    /// The integer that follows exactly one `separator`; two in a row are not one.
    std::optional<std::int64_t> scanIntegerAfter(char separator);

    /// A decimal number, with or without a sign, point and exponent, whatever the locale. One too
    /// large for a double gives the largest finite one, one too small gives 0.
    std::optional<double> scanDouble();

  private:
    std::string_view rest_;
};

}  // namespace corvane::platform
