// Toolbar, search bar, title bar, status bar and split view; sheets, panels and alerts. One thread,
// the window's.
#pragma once

#include "apps/gallery/Stack.h"
#include "apps/gallery/Tools.h"

#include <cstdint>
#include <memory>

namespace corvane {
class CVAction;
class CVMacPanel;
class CVMacSearchBar;
class CVMacSplitView;
class CVMacStatusBar;
class CVMacTitleBar;
class CVMacToolbar;
}  // namespace corvane

namespace corvane::gallery {

class TaskForm;

class BarsPage final : public Stack {
  public:
    explicit BarsPage(const Notes& note);
    ~BarsPage() override;

    CVMacToolbar& toolbar() { return *toolbar_; }
    void showSheet();
    void showPanel();

  private:
    std::shared_ptr<CVMacToolbar> makeToolbar();
    std::shared_ptr<CVMacTitleBar> makeTitleBar();
    std::shared_ptr<CVMacSearchBar> makeSearchBar();
    std::shared_ptr<CVMacStatusBar> makeStatusBar();
    std::shared_ptr<CVMacSplitView> makeSplitView();
    std::shared_ptr<Stack> makeSettings();
    std::shared_ptr<Stack> makeFloating();
    void showAlert();

    Notes note_;
    std::shared_ptr<CVMacToolbar> toolbar_;
    std::shared_ptr<TaskForm> formOfSheet_;
    std::shared_ptr<TaskForm> formOfPanel_;
    std::weak_ptr<CVMacPanel> panel_;
    std::shared_ptr<bool> actionsAreValid_;
};

}  // namespace corvane::gallery
