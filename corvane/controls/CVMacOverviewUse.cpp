// What is done with the rows of an overview's tables: selecting, clicking, dragging and dropping.

#include "corvane/controls/OverviewHooks.h"
#include "corvane/table/CVMacTableView.h"

namespace corvane {

using Controller = CVOverviewController;

namespace {

CVOverviewController::Text textUnlessEmpty(const std::string& text) {
    if (text.empty()) return std::nullopt;
    return text;
}

/// The overview that shows the rows; null for a table of somebody else's.
std::shared_ptr<CVOverview> overviewOf(const CVMacTableView& table) {
    return std::dynamic_pointer_cast<CVOverview>(table.dataSource());
}

}  // namespace

void CVMacOverview::passSelection() {
    const Hooks hooks{*this};
    tableViewDidSelectRowAtIndexPath =
        hooks.ofBothLists(&Controller::navigationDidSelectRowAtIndexPath,
                          &Controller::overviewDidSelectRowAtIndexPath);
    tableViewDidDoubleClickRowAtIndexPath =
        hooks.ofBothLists(&Controller::navigationDidDoubleSelectRowAtIndexPath,
                          &Controller::overviewDidDoubleSelectRowAtIndexPath);
    didClearSelectionForTableView = hooks.ofBothLists(&Controller::navigationDidClearSelection,
                                                      &Controller::overviewDidClearSelection);
    tableViewWillTapAccessoryButtonForRowAtIndexPath =
        hooks.ofOverviewAlone(&Controller::overviewWillTapAccessoryButtonForRowAtIndexPath);
    tableViewAccessoryButtonTappedForRowWithIndexPath =
        hooks.ofOverviewAlone(&Controller::overviewAccessoryButtonTappedForRowWithIndexPath);
    tableViewAccessoryButtonDoubleTappedForRowWithIndexPath =
        hooks.ofOverviewAlone(&Controller::overviewAccessoryButtonDoubleTappedForRowWithIndexPath);
}

void CVMacOverview::passMenus() {
    const Hooks hooks{*this};
    tableViewContextMenuForRowAtIndexPath =
        hooks.ofBothLists(&Controller::navigationContextMenuForRowAtIndexPath,
                          &Controller::overviewContextMenuForRowAtIndexPath);
    tableViewContextMenuForAccessoryViewOfRow =
        hooks.ofOverviewAlone(&Controller::overviewContextMenuForAccessoryViewOfRowAtIndexPath);
}

void CVMacOverview::passDrops() {
    const Hooks hooks{*this};
    tableViewAllowsStartDrag = hooks.ofBothLists(&Controller::navigationAllowsStartDrag,
                                                 &Controller::overviewAllowsStartDrag);
    tableViewDragableTextForRowAtIndexPath =
        hooks.ofOverviewAlone(&Controller::dragableTextForOverviewRowAtIndexPath);

    // The navigation list is told whose rows they are, since it takes them as what they stand for;
    // the main list where they come from, since it may take them out there.
    const auto rows = [this](auto navigationHook, auto overviewHook) -> RowsDrop {
        return [this, navigationHook, overviewHook](Table& table, const Paths& paths, Table& source,
                                                    const Path& path) {
            const auto controller = this->controller();
            if (!controller || listOf(table) == List::None) return false;
            if (listOf(table) == List::Overview)
                return ((*controller).*overviewHook)(paths, source, path);
            const auto overview = overviewOf(source);
            return overview && ((*controller).*navigationHook)(paths, *overview, path);
        };
    };
    tableViewWillDropSourceIndexPaths = rows(&Controller::navigationWillDropSourceIndexPaths,
                                             &Controller::overviewWillDropSourceIndexPaths);
    tableViewDidDropSourceIndexPaths = rows(&Controller::navigationDidDropSourceIndexPaths,
                                            &Controller::overviewDidDropSourceIndexPaths);
    tableViewWillDropSourceIndex = hooks.ofOverviewAlone(&Controller::overviewWillDropSourceIndex);
    tableViewDidDropSourceIndex = hooks.ofOverviewAlone(&Controller::overviewDidDropSourceIndex);
    tableViewWillDropTexts =
        hooks.ofBothLists(&Controller::navigationWillDropTexts, &Controller::overviewWillDropTexts);
    tableViewDidDropTexts =
        hooks.ofBothLists(&Controller::navigationDidDropTexts, &Controller::overviewDidDropTexts);

    const auto url = [hooks](auto navigationHook, auto overviewHook) -> URLDrop {
        const auto pass = hooks.ofBothLists(navigationHook, overviewHook);
        return
            [pass](Table& table, const platform::URL& dropped, const std::string& name,
                   const Path& path) { return pass(table, dropped, textUnlessEmpty(name), path); };
    };
    tableViewWillDropURL =
        url(&Controller::navigationWillDropURL, &Controller::overviewWillDropURL);
    tableViewDidDropURL = url(&Controller::navigationDidDropURL, &Controller::overviewDidDropURL);
}

}  // namespace corvane
