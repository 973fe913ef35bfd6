// What a table tells about its use, and asks about its looks.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace views {
class Menu;
}

class CVMacSectionHeaderView;
class CVMacTableView;
class HGMacListView;

/// The table holds a weak reference. Every operation may be left empty, and may change the table
/// that it is called from.
class CVMacTableViewDelegate {
  public:
    using Table = CVMacTableView;
    using Path = CVIndexPath;
    using Paths = std::vector<CVIndexPath>;
    using MenuPtr = std::shared_ptr<views::Menu>;
    using RowNotice = std::function<void(Table&, const Path&)>;
    using ColorQuestion = std::function<std::optional<platform::Color>(Table&)>;

    virtual ~CVMacTableViewDelegate() = default;

    RowNotice tableViewWillTapAccessoryButtonForRowAtIndexPath;
    RowNotice tableViewAccessoryButtonTappedForRowWithIndexPath;
    RowNotice tableViewAccessoryButtonDoubleTappedForRowWithIndexPath;
    /// Anything but the path itself leaves the selection as it is.
    std::function<std::optional<Path>(Table&, const Path&)> tableViewWillSelectRowAtIndexPath;
    RowNotice tableViewDidSelectRowAtIndexPath;
    RowNotice tableViewDidDoubleClickRowAtIndexPath;
    std::function<void(Table&)> didClearSelectionForTableView;
    /// Null for one that the table makes.
    std::function<std::shared_ptr<CVMacSectionHeaderView>(Table&, std::int64_t section)>
        tableViewViewForHeaderInSection;
    /// In points; -1 for the table's own height.
    std::function<double(Table&, std::int64_t section)> tableViewHeightForHeaderInSection;
    /// Where a row would go instead; the proposed path, or a veto.
    std::function<std::optional<Path>(Table&, const Path& from, const Path& proposed)>
        tableViewTargetIndexPathForMove;
    ColorQuestion backgroundColorForTableView;
    std::function<platform::ImagePtr(Table&)> backgroundTileForTableView;
    std::function<std::optional<platform::Color>(Table&, std::int64_t section)>
        tableViewBackgroundColorForSection;
    ColorQuestion rowSeparatorColorForTableView;
    std::function<platform::ImagePtr(Table&)> rowSeparatorImageForTableView;
    std::function<void(Table&)> didExitTableView;
    std::function<bool(Table&)> tableViewAllowsStartDrag;
    std::function<std::optional<std::string>(Table&, const Path&)>
        tableViewDragableTextForRowAtIndexPath;

    // Drops: a question before each, a notice after it, onto the row of the path.

    using RowsDrop = std::function<bool(Table&, const Paths&, Table& source, const Path&)>;
    using ItemDrop =
        std::function<bool(Table&, std::int64_t index, HGMacListView& source, const Path&)>;
    using TextsDrop = std::function<bool(Table&, const std::vector<std::string>&, const Path&)>;
    using URLDrop =
        std::function<bool(Table&, const platform::URL&, const std::string& name, const Path&)>;
    RowsDrop tableViewWillDropSourceIndexPaths;
    ItemDrop tableViewWillDropSourceIndex;
    TextsDrop tableViewWillDropTexts;
    URLDrop tableViewWillDropURL;
    RowsDrop tableViewDidDropSourceIndexPaths;
    ItemDrop tableViewDidDropSourceIndex;
    TextsDrop tableViewDidDropTexts;
    URLDrop tableViewDidDropURL;

    std::function<MenuPtr(Table&, const Path&)> tableViewContextMenuForRowAtIndexPath;
    std::function<MenuPtr(Table&, const Path&)> tableViewContextMenuForAccessoryViewOfRow;

    /// Never called: that it is there says that whoever controls the table wants its rows to be
    /// moved by keys. The call itself goes to the data source.
    std::function<void(Table&)> beginMovingRowsInTableView;
};

}  // namespace corvane
