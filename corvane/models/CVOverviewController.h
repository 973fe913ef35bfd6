// The base of the screens with lists: every question that the view asks and everything that it
// tells, each with an answer that suits an empty screen. Concrete screens override what they need.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace views {
struct Alert;
class Menu;
}  // namespace views

class CVAction;
class CVMacTableView;
class CVMacTableViewCell;
class CVOverview;
class HGMacListView;
enum class CVMacTableViewEditingStyle : std::int32_t;

/// A screen has up to two lists: the navigation list, which is a source list at the side, and the
/// overview list, the main one. Held by a shared pointer; owns its view, which refers back weakly.
/// One thread, the window's.
///
/// Sections and rows count from 0. Null and none mean that there is no such thing. The hooks that
/// are told of a drop before it say whether they take it, those after it whether they took it.
class CVOverviewController {
  public:
    using Text = std::optional<std::string>;
    using IndexPath = CVIndexPath;
    using IndexPaths = std::vector<CVIndexPath>;
    using Texts = std::vector<std::string>;
    using URL = platform::URL;
    using Action = std::shared_ptr<CVAction>;
    using Menu = std::shared_ptr<views::Menu>;

    CVOverviewController() = default;
    virtual ~CVOverviewController() = default;
    CVOverviewController(const CVOverviewController&) = delete;
    CVOverviewController& operator=(const CVOverviewController&) = delete;

    // The screen comes and goes.

    virtual void overviewDidLoad() {}
    virtual void overviewWillAppear() {}
    virtual void overviewDidAppear() {}
    virtual void overviewWillDisappear() {}
    virtual void overviewDidDisappear() {}

    // The navigation list: its sections and rows.

    virtual bool hasNavigation() const { return false; }
    virtual Text navigationTitle() const { return {}; }
    virtual std::int64_t numberOfSectionsInNavigation() const { return 0; }
    virtual Text titleForHeaderInNavigationSection(std::int64_t) const { return {}; }
    /// In points; by default what the view has for all sections, 0 without a view.
    virtual double heightForHeaderInNavigationSection(std::int64_t section) const;
    virtual std::int64_t numberOfRowsInNavigationSection(std::int64_t) const { return 0; }
    virtual void configureNavigationCell(CVMacTableViewCell&, const IndexPath&) {}

    // Selecting in it.

    virtual void navigationDidSelectRowAtIndexPath(const IndexPath&) {}
    virtual void navigationDidDoubleSelectRowAtIndexPath(const IndexPath&) {}
    virtual void navigationDidClearSelection() {}

    // Editing and moving its rows.

    virtual bool navigationCanEditRowAtIndexPath(const IndexPath&) const { return true; }
    virtual bool navigationCanMoveRowAtIndexPath(const IndexPath&) const { return false; }
    virtual IndexPath navigationTargetIndexPathForMoveFromRowAtIndexPath(const IndexPath&,
                                                                         IndexPath proposed) const {
        return proposed;
    }
    virtual void navigationCommitEditingStyle(CVMacTableViewEditingStyle, const IndexPath&) {}
    virtual void navigationBeginMovingRows() {}
    virtual void navigationMoveRowAtIndexPath(const IndexPath&, const IndexPath& /*target*/) {}
    virtual void navigationCommitMovingRows() {}

    // Dragging from it and dropping on it.

    virtual bool navigationAllowsStartDrag() const { return false; }
    virtual bool navigationWillDropSourceIndexPaths(const IndexPaths&, CVOverview& /*source*/,
                                                    const IndexPath&) {
        return false;
    }
    virtual bool navigationWillDropTexts(const Texts&, const IndexPath&) { return false; }
    virtual bool navigationWillDropURL(const URL&, const Text& /*name*/, const IndexPath&) {
        return false;
    }
    virtual bool navigationDidDropSourceIndexPaths(const IndexPaths&, CVOverview& /*source*/,
                                                   const IndexPath&) {
        return false;
    }
    virtual bool navigationDidDropTexts(const Texts&, const IndexPath&) { return false; }
    virtual bool navigationDidDropURL(const URL&, const Text& /*name*/, const IndexPath&) {
        return false;
    }
    virtual Menu navigationContextMenuForRowAtIndexPath(const IndexPath&) { return {}; }

    // Sidebar and commands.

    virtual bool hasSidebar() const { return false; }
    virtual std::int64_t countGlobalActions() const { return 0; }
    virtual std::int64_t countNavigationActions() const { return 0; }
    virtual std::int64_t countOverviewActions() const { return 0; }
    virtual Action globalActionAtIndex(std::int64_t) const { return {}; }
    virtual Action navigationActionAtIndex(std::int64_t) const { return {}; }
    virtual Action overviewActionAtIndex(std::int64_t) const { return {}; }
    virtual void didInvokeGlobalAction(CVAction&) {}
    virtual void didInvokeNavigationAction(CVAction&) {}
    virtual void didInvokeOverviewAction(CVAction&) {}

    // The overview list: its sections and rows.

    virtual std::int64_t numberOfSectionsInOverview() const { return 0; }
    virtual Text titleForHeaderInOverviewSection(std::int64_t) const { return {}; }
    /// In points; by default what the view has for all sections, 0 without a view.
    virtual double heightForHeaderInOverviewSection(std::int64_t section) const;
    virtual Text overviewTitle() const { return {}; }
    virtual std::int64_t numberOfRowsInOverviewSection(std::int64_t) const { return 0; }
    virtual void configureOverviewCell(CVMacTableViewCell&, const IndexPath&) {}

    // Selecting in it, and the accessories of its rows.

    virtual void overviewDidSelectRowAtIndexPath(const IndexPath&) {}
    virtual void overviewDidDoubleSelectRowAtIndexPath(const IndexPath&) {}
    virtual void overviewDidClearSelection() {}
    virtual void overviewWillTapAccessoryButtonForRowAtIndexPath(const IndexPath&) {}
    virtual void overviewAccessoryButtonTappedForRowWithIndexPath(const IndexPath&) {}
    virtual void overviewAccessoryButtonDoubleTappedForRowWithIndexPath(const IndexPath&) {}

    // Editing and moving its rows.

    virtual bool overviewCanEditRowAtIndexPath(const IndexPath&) const { return true; }
    virtual bool overviewCanMoveRowAtIndexPath(const IndexPath&) const { return false; }
    virtual IndexPath overviewTargetIndexPathForMoveFromRowAtIndexPath(const IndexPath&,
                                                                       IndexPath proposed) const {
        return proposed;
    }
    virtual void overviewCommitEditingStyle(CVMacTableViewEditingStyle, const IndexPath&) {}
    virtual void overviewBeginMovingRows() {}
    virtual void overviewMoveRowAtIndexPath(const IndexPath&, const IndexPath& /*target*/) {}
    virtual void overviewCommitMovingRows() {}

    // Editing and inserting in the rows themselves.

    virtual bool canStartInlineEditingOverviewRowAtIndexPath(const IndexPath&) const {
        return false;
    }
    virtual std::optional<IndexPath> placeholderIndexPathForAppendingToOverviewSection(
        std::int64_t) const {
        return {};
    }
    virtual void overviewInsertPlaceholderRowAtIndexPath(const IndexPath&) {}
    virtual bool overviewCanInlineInsertRowAtIndexPath(const IndexPath&) const { return false; }
    virtual bool overviewCanInlineEditRowAtIndexPath(const IndexPath&) const { return false; }

    // Dragging from it and dropping on it.

    virtual bool overviewAllowsStartDrag() const { return false; }
    virtual Text dragableTextForOverviewRowAtIndexPath(const IndexPath&) const { return {}; }
    virtual bool overviewWillDropSourceIndexPaths(const IndexPaths&, CVMacTableView& /*source*/,
                                                  const IndexPath&) {
        return false;
    }
    virtual bool overviewWillDropSourceIndex(std::int64_t, HGMacListView& /*source*/,
                                             const IndexPath&) {
        return false;
    }
    virtual bool overviewWillDropTexts(const Texts&, const IndexPath&) { return false; }
    virtual bool overviewWillDropURL(const URL&, const Text& /*name*/, const IndexPath&) {
        return false;
    }
    virtual bool overviewDidDropSourceIndexPaths(const IndexPaths&, CVMacTableView& /*source*/,
                                                 const IndexPath&) {
        return false;
    }
    virtual bool overviewDidDropSourceIndex(std::int64_t, HGMacListView& /*source*/,
                                            const IndexPath&) {
        return false;
    }
    virtual bool overviewDidDropTexts(const Texts&, const IndexPath&) { return false; }
    virtual bool overviewDidDropURL(const URL&, const Text& /*name*/, const IndexPath&) {
        return false;
    }

    // Menus, filters and the search.

    virtual Menu overviewContextMenuForRowAtIndexPath(const IndexPath&) { return {}; }
    virtual Menu overviewContextMenuForAccessoryViewOfRowAtIndexPath(const IndexPath&) {
        return {};
    }
    virtual Menu overviewContextMenuForStatusIcon() { return {}; }
    virtual void overviewDidSelectScope(std::int64_t) {}
    virtual void overviewStatusIconSelected() {}
    virtual void overviewDidSelectFilterItemAtIndexPath(const IndexPath&) {}
    virtual void overviewDidSelectSearchCategoryAtIndex(std::int64_t) {}
    virtual void overviewDidSearchForString(const std::string&) {}
    virtual void overviewDidClearSearch() {}
    /// Hides the search bar.
    virtual void overviewDidExitSearch();

    virtual void confirmationSheet(const views::Alert&, std::int64_t /*button*/) {}

    /// The view; null before it is set.
    const std::shared_ptr<CVOverview>& overview() const { return overview_; }
    void setOverview(std::shared_ptr<CVOverview> overview);

  private:
    std::shared_ptr<CVOverview> overview_;
};

}  // namespace corvane
