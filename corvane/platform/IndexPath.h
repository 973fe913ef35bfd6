// The place of an item in a list of sections.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>

namespace corvane::platform {

/// Counts sections, and items within their section, from 0. A regular value, ordered by section,
/// then item. A table calls its items rows.
struct IndexPath {
    std::int64_t section = 0;
    std::int64_t item = 0;

    static constexpr IndexPath indexPathForRow(std::int64_t row, std::int64_t section) {
        return {section, row};
    }
    static constexpr IndexPath indexPathForItem(std::int64_t item, std::int64_t section) {
        return {section, item};
    }

    constexpr std::int64_t row() const { return item; }

    friend constexpr bool operator==(const IndexPath&, const IndexPath&) = default;
    friend constexpr std::strong_ordering operator<=>(const IndexPath&, const IndexPath&) = default;
};

}  // namespace corvane::platform

template <>
struct std::hash<corvane::platform::IndexPath> {
    std::size_t operator()(const corvane::platform::IndexPath& path) const noexcept {
        auto mixed = static_cast<std::uint64_t>(path.section) * 0x9E3779B97F4A7C15u;
        return static_cast<std::size_t>(mixed ^ static_cast<std::uint64_t>(path.item));
    }
};
