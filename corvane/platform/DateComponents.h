// The calendar fields of a moment, each of which may be unset.
#pragma once

#include <cstdint>
#include <optional>

namespace corvane::platform {

/// Plain data; months and days count from 1, weekdays from 1 = Sunday to 7 = Saturday. Nothing
/// checks that the fields make a real date.
struct DateComponents {
    std::optional<std::int64_t> year = std::nullopt;
    std::optional<std::int64_t> month = std::nullopt;
    std::optional<std::int64_t> day = std::nullopt;
    std::optional<std::int64_t> hour = std::nullopt;
    std::optional<std::int64_t> minute = std::nullopt;
    std::optional<std::int64_t> second = std::nullopt;

    /// What a calendar tells beside the others; they say nothing when a moment is made of fields.
    std::optional<std::int64_t> weekday = std::nullopt;
    std::optional<std::int64_t> weekOfYear = std::nullopt;

    friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

}  // namespace corvane::platform
