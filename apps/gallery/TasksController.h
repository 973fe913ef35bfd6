// The screens of the gallery that list tasks: the views of a companion at the side, their tasks in
// the middle. One thread, the window's.
#pragma once

#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/controls/OverviewModelController.h"

#include "apps/gallery/Tools.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {
class HGTaskProxy;
}

namespace corvane::gallery {

class EditableTasksModel;

/// Of whatever the models hold; what is changed stays in the window. Fills TaskCell and
/// CVMacTabularCell rows. Held by std::shared_ptr.
class TasksController final : public OverviewModelController {
  public:
    TasksController(const HGTaskProxyModels& models, Notes note);
    ~TasksController() override;

    /// By a column of the table.
    void sortBy(const std::string& column, bool ascending);

    void overviewDidLoad() override;
    void overviewDidAppear() override;

    bool hasNavigation() const override { return true; }
    Text navigationTitle() const override;
    std::int64_t numberOfSectionsInNavigation() const override { return 1; }
    std::int64_t numberOfRowsInNavigationSection(std::int64_t section) const override;
    double heightForHeaderInNavigationSection(std::int64_t) const override { return 0; }
    void configureNavigationCell(CVMacTableViewCell& cell, const IndexPath& path) override;
    void navigationDidSelectRowAtIndexPath(const IndexPath& path) override;
    bool navigationWillDropSourceIndexPaths(const IndexPaths& paths, CVOverview& source,
                                            const IndexPath& target) override;
    bool navigationDidDropSourceIndexPaths(const IndexPaths& paths, CVOverview& source,
                                           const IndexPath& target) override;
    bool navigationWillDropTexts(const Texts&, const IndexPath&) override { return true; }
    bool navigationDidDropTexts(const Texts& texts, const IndexPath& target) override;

    std::int64_t countOverviewActions() const override { return std::ssize(actions_); }
    Action overviewActionAtIndex(std::int64_t index) const override;
    void didInvokeOverviewAction(CVAction& action) override;

    void configureOverviewCell(CVMacTableViewCell& cell, const IndexPath& path) override;
    void overviewDidSelectRowAtIndexPath(const IndexPath& path) override;
    void overviewDidDoubleSelectRowAtIndexPath(const IndexPath& path) override;
    void overviewAccessoryButtonTappedForRowWithIndexPath(const IndexPath& path) override;
    bool canStartInlineEditingOverviewRowAtIndexPath(const IndexPath&) const override {
        return true;
    }
    bool overviewCanInlineInsertRowAtIndexPath(const IndexPath&) const override { return true; }
    bool overviewCanInlineEditRowAtIndexPath(const IndexPath&) const override { return true; }
    void overviewCommitEditingStyle(CVMacTableViewEditingStyle style,
                                    const IndexPath& path) override;
    bool overviewAllowsStartDrag() const override { return true; }
    bool overviewWillDropTexts(const Texts&, const IndexPath&) override { return true; }
    bool overviewDidDropTexts(const Texts& texts, const IndexPath& target) override;
    Menu overviewContextMenuForRowAtIndexPath(const IndexPath& path) override;
    Menu overviewContextMenuForStatusIcon() override;
    void overviewDidSearchForString(const std::string& text) override;
    void overviewDidClearSearch() override;
    void overviewDidSelectScope(std::int64_t scope) override;
    void confirmationSheet(const views::Alert& alert, std::int64_t button) override;

  protected:
    void modelDidChange() override;

  private:
    using TasksModel = std::shared_ptr<EditableTasksModel>;

    void makeActions();
    void deleteSelection();
    void completeSelection();
    void filter();
    void showCounts();
    bool hasSelection() const;
    TasksModel currentModel() const;
    std::shared_ptr<HGTaskProxy> taskAt(const IndexPath& path) const;

    HGTaskProxyManager manager_;
    Notes note_;
    std::vector<TasksModel> models_;
    std::vector<Action> actions_;
    std::string searched_;
    bool onlyStarred_ = false;
};

}  // namespace corvane::gallery
