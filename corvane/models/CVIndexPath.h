// The address of a row, as tables give it and drags carry it: section, row, and a text for whoever
// takes it as plain text.
#pragma once

#include "corvane/platform/Archivable.h"
#include "corvane/platform/ArchiveClasses.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/platform/Pasteboard.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

// These values are a file format and must not change.
inline constexpr std::string_view CVIndexPathSection = "CVIndexPathSection";
inline constexpr std::string_view CVIndexPathRow = "CVIndexPathRow";
inline constexpr std::string_view CVIndexPathPasteboardText = "CVIndexPathPasteboardText";

/// The type under which a pasteboard has the archive of a path.
inline constexpr std::string_view CVPasteboardTypeIndexPath = "org.corvane.index-path";

/// A value of section and row, ordered by section, then row. The text belongs to the one path that
/// it was given to, not to its value: it moves with that path, and copies, comparisons and archives
/// leave it out. Sections and rows count from 0; nothing checks them.
///
///     CVIndexPath path(2, 5);                                // section, row
///     path.setPasteboardText("Water the plants");
///     CVIndexPath(path).pasteboardText()                     // none
///     CVIndexPath(path) == path                              // true
///     CVIndexPath::fromNSIndexPath(path.toNSIndexPath())     // equal to path
class CVIndexPath final : public platform::Archivable, public platform::PasteboardWriting {
  public:
    static constexpr std::string_view kArchiveClassName = "CVIndexPath";
    static constexpr bool supportsSecureCoding = true;

    /// Section 0, row 0.
    CVIndexPath() = default;
    CVIndexPath(std::int64_t section, std::int64_t row) : path_{section, row} {}
    CVIndexPath(const platform::IndexPath& path) : path_(path) {}
    explicit CVIndexPath(platform::KeyedUnarchiver& coder);
    /// What a pasteboard holds is an archive and is read as one, never as a property list: none.
    static std::optional<CVIndexPath> withPasteboardPropertyList(const platform::Value& list,
                                                                 std::string_view type);

    CVIndexPath(const CVIndexPath& other) : Archivable(), PasteboardWriting(), path_(other.path_) {}
    CVIndexPath(CVIndexPath&&) noexcept = default;
    CVIndexPath& operator=(const CVIndexPath& other) { return *this = CVIndexPath(other); }
    CVIndexPath& operator=(CVIndexPath&&) noexcept = default;

    static CVIndexPath indexPathForRow(std::int64_t row, std::int64_t section) {
        return {section, row};
    }

    std::int64_t section() const { return path_.section; }
    void setSection(std::int64_t section) { path_.section = section; }
    std::int64_t row() const { return path_.item; }
    void setRow(std::int64_t row) { path_.item = row; }

    const std::optional<std::string>& pasteboardText() const { return pasteboardText_; }
    void setPasteboardText(std::optional<std::string> text) { pasteboardText_ = std::move(text); }

    // Conversions, which give nothing for nothing and keep the order of lists.

    platform::IndexPath toNSIndexPath() const { return path_; }
    static std::optional<CVIndexPath> fromNSIndexPath(const std::optional<platform::IndexPath>&);
    static std::optional<platform::IndexPath> toNSIndexPath(const std::optional<CVIndexPath>&);

    template <class Path>
    using Array = std::optional<std::vector<Path>>;
    template <class Path>
    using Set = std::optional<std::set<Path>>;
    static Array<CVIndexPath> fromNSIndexPathArray(const Array<platform::IndexPath>& paths);
    static Set<CVIndexPath> fromNSIndexPathSet(const Set<platform::IndexPath>& paths);
    static Array<platform::IndexPath> toNSIndexPathArray(const Array<CVIndexPath>& paths);
    static Set<platform::IndexPath> toNSIndexPathSet(const Set<CVIndexPath>& paths);

    bool isEqual(const CVIndexPath& other) const { return path_ == other.path_; }
    /// -1, 0 or 1.
    int compare(const CVIndexPath& other) const;
    std::uint64_t hash() const {
        return static_cast<std::uint64_t>(section()) | static_cast<std::uint64_t>(row()) << 8;
    }

    friend bool operator==(const CVIndexPath& a, const CVIndexPath& b) {
        return a.path_ == b.path_;
    }
    friend std::strong_ordering operator<=>(const CVIndexPath& a, const CVIndexPath& b) {
        return a.path_ <=> b.path_;
    }

    // Archives and pasteboards.

    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    static const platform::ArchiveClasses& archiveClasses();

    static std::string_view pasteboardType() { return CVPasteboardTypeIndexPath; }
    std::vector<std::string> writableTypes() const override;
    platform::Value pasteboardValueForType(std::string_view type) const override;

    static std::vector<std::string> readableTypes();
    /// None where the item has no path, or what it has is no archive of one.
    static std::optional<CVIndexPath> fromPasteboardItem(const platform::PasteboardItem& item);
    /// The paths of all items that have one, in order.
    static std::vector<CVIndexPath> fromPasteboard(const platform::Pasteboard& pasteboard);

  private:
    platform::IndexPath path_;
    std::optional<std::string> pasteboardText_;
};

}  // namespace corvane

template <>
struct std::hash<corvane::CVIndexPath> {
    std::size_t operator()(const corvane::CVIndexPath& path) const noexcept { return path.hash(); }
};
