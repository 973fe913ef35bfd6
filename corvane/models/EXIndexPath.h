// The place of a cell in a grid of sections, and index paths as the tags of views.
#pragma once

#include "corvane/platform/IndexPath.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace corvane {

/// An index path as one number, for the tag of a view: the row in the low 20 bits, the section in
/// the 8 above them. What does not fit is cut off.
///
///     tagForIndexPath({.section = 2, .item = 5})             // 2,097,157
///     indexPathForTag(2'097'157)                             // section 2, item 5
///     tagForIndexPath({.section = 0, .item = 1'048'576})     // 0
constexpr std::int64_t tagForIndexPath(const platform::IndexPath& path) {
    const auto section = static_cast<std::uint64_t>(path.section) << 20;
    return (path.item & 0xFFFFF) | static_cast<std::int64_t>(section & 0xFF00000);
}
constexpr platform::IndexPath indexPathForTag(std::int64_t tag) {
    return {.section = (tag >> 20) & 0xFF, .item = tag & 0xFFFFF};
}

/// A regular value that does not change.
///
///     EXIndexPath first(0, 0), second(1, 0);     // row, section
///     second.compare(first)                      // -1: what is further down comes first
class EXIndexPath {
  public:
    constexpr EXIndexPath(std::int64_t row, std::int64_t section) : EXIndexPath(row, 0, section) {}
    constexpr EXIndexPath(std::int64_t row, std::int64_t column, std::int64_t section)
        : row_(row), column_(column), section_(section) {}

    static constexpr EXIndexPath indexPathForRow(std::int64_t row, std::int64_t section) {
        return {row, section};
    }
    static constexpr EXIndexPath indexPathForRow(std::int64_t row, std::int64_t column,
                                                 std::int64_t section) {
        return {row, column, section};
    }

    constexpr std::int64_t row() const { return row_; }
    constexpr std::int64_t column() const { return column_; }
    constexpr std::int64_t section() const { return section_; }

    constexpr platform::IndexPath indexPath() const { return {section_, row_}; }

    /// A tag does not hold the column, which reads back as 0.
    static constexpr std::int64_t tagForIndexPath(const EXIndexPath& path) {
        return corvane::tagForIndexPath(path.indexPath());
    }
    static constexpr EXIndexPath indexPathForTag(std::int64_t tag) {
        const platform::IndexPath path = corvane::indexPathForTag(tag);
        return {path.item, path.section};
    }

    /// Descending, by section, column, row: -1 when this path is the greater one. A sorted list of
    /// cells thus begins with the last, so that whoever removes them in order moves none of those
    /// that are still to be removed.
    constexpr int compare(const EXIndexPath& other) const {
        const std::strong_ordering order = *this <=> other;
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }

    /// The order of compare().
    friend constexpr std::strong_ordering operator<=>(const EXIndexPath& a, const EXIndexPath& b) {
        if (a.section_ != b.section_) return b.section_ <=> a.section_;
        if (a.column_ != b.column_) return b.column_ <=> a.column_;
        return b.row_ <=> a.row_;
    }
    friend constexpr bool operator==(const EXIndexPath&, const EXIndexPath&) = default;

  private:
    std::int64_t row_;
    std::int64_t column_;
    std::int64_t section_;
};

}  // namespace corvane

template <>
struct std::hash<corvane::EXIndexPath> {
    std::size_t operator()(const corvane::EXIndexPath& path) const noexcept {
        const auto column = static_cast<std::uint64_t>(path.column()) * 0xC2B2AE3D27D4EB4Fu;
        return std::hash<corvane::platform::IndexPath>()(path.indexPath()) ^ column;
    }
};
