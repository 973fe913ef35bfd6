// What a table knows of its rows: headers, cells and heights, by position.
#pragma once

#include "corvane/platform/IndexPath.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

class CVMacSectionHeaderView;
class CVMacTableViewCell;

using platform::IndexPath;

/// Keeps three caches in step: a header for each section, and a cell and a height for each row. A
/// header that is null is none; a cell that is null is not built yet. The cells' own index paths
/// follow their positions. A path beyond the rows gives none, and changes nothing.
class RowCache {
  public:
    using CellPtr = std::shared_ptr<CVMacTableViewCell>;
    using HeaderPtr = std::shared_ptr<CVMacSectionHeaderView>;
    using Index = std::int64_t;

    struct Section {
        HeaderPtr header;
        std::vector<CellPtr> cells;
        std::vector<float> heights;  ///< as many
    };
    /// Rows of one section that follow each other.
    struct Run {
        IndexPath first;
        Index count = 0;
    };

    Index sectionCount() const { return static_cast<Index>(sections_.size()); }
    /// 0 for a section that does not exist.
    Index rowCount(Index section) const {
        return hasSection(section) ? static_cast<Index>(cellsOf(section).size()) : 0;
    }
    bool hasSection(Index section) const { return section >= 0 && section < sectionCount(); }
    bool contains(const IndexPath& path) const {
        return hasSection(path.section) && path.item >= 0 && path.item < rowCount(path.section);
    }
    const std::vector<Section>& sections() const { return sections_; }

    /// A share, since whoever is called with the cell may take it out.
    CellPtr cellAt(const IndexPath& path) const;
    float heightAt(const IndexPath& path) const;
    HeaderPtr headerOf(Index section) const;
    /// Whether the cell stands where it says it does.
    bool holds(const CVMacTableViewCell& cell) const;

    void setCell(const IndexPath& path, const CellPtr& cell);
    void setHeight(const IndexPath& path, float height);

    void clear();
    /// Beyond the end: at the end.
    void insertSection(Index section, HeaderPtr header);
    Section removeSection(Index section);
    void moveSection(Index from, Index to);

    /// Rows that are not built. One after the last row is allowed.
    void insertRows(const IndexPath& first, Index count) { insertRuns({Run{first, count}}); }
    /// Many at once, in one pass. The paths are those that the rows have afterwards. Gives the runs
    /// that there was a place for. Of these and of removeRuns: the runs are in ascending order, and
    /// one that begins within the one before is left out.
    std::vector<Run> insertRuns(const std::vector<Run>& runs);
    void insertRow(const IndexPath& path, const CellPtr& cell, float height);
    std::vector<CellPtr> removeRows(const IndexPath& first, Index count) {
        return removeRuns({Run{first, count}});
    }
    /// The paths are those that the rows have before.
    std::vector<CellPtr> removeRuns(const std::vector<Run>& runs);
    /// The target counts without the row.
    void moveRow(const IndexPath& from, const IndexPath& to);
    void exchangeRows(const IndexPath& a, const IndexPath& b);

    /// Counts what changed positions: as long as it is the same, paths mean the same rows.
    std::uint64_t revision() const { return revision_; }

  private:
    const std::vector<CellPtr>& cellsOf(Index section) const {
        return sections_[static_cast<std::size_t>(section)].cells;
    }
    using Runs = std::vector<Run>;
    /// Calls `change` for each section with those of the runs that are in it.
    template <class Change>
    void changeSections(const Runs& runs, const Change& change);
    void renumber(Index section, Index firstRow);
    void renumberSections(Index first);
    Section* sectionAt(Index section);

    std::vector<Section> sections_;
    std::uint64_t revision_ = 0;
};

}  // namespace corvane
