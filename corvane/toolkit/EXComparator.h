// Comparisons of values that may be missing. Any thread.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/URL.h"
#include "corvane/toolkit/EXValue.h"

#include <optional>
#include <string_view>

namespace corvane {

/// Every operation gives -1, 0 or 1. A missing value comes before any other, and equals a missing
/// one.
///
///     EXComparator::compareNumber(3, 3.5)                          // -1
///     EXComparator::compareString(std::nullopt, "")                // -1
///     EXComparator::compareString(std::nullopt, std::nullopt)      // 0
///     EXComparator::caseInsensitiveCompareString("b", "A")         // 1
class EXComparator {
  public:
    EXComparator() = delete;

    /// By amount, whatever their kinds; NaN comes before other numbers. What is no number counts
    /// as missing.
    static int compareNumber(const EXValue& number, const EXValue& other);

    /// By code points.
    static int compareString(std::optional<std::string_view> string,
                             std::optional<std::string_view> other);

    /// By the code points of case foldings, the same in every locale.
    static int caseInsensitiveCompareString(std::optional<std::string_view> string,
                                            std::optional<std::string_view> other);

    /// By the texts.
    static int compareURIRepresentation(const std::optional<platform::URL>& uri,
                                        const std::optional<platform::URL>& other);

    static int compareDateOnly(std::optional<EXDateOnly> day, std::optional<EXDateOnly> other);
};

}  // namespace corvane
