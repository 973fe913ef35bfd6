#include "apps/gallery/BarsPage.h"

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/CVMacPanel.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacSheet.h"
#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/controls/MapImage.h"
#include "corvane/views/Alert.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/views/Menu.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "apps/gallery/Panels.h"
#include "apps/gallery/TaskForm.h"
#include "apps/gallery/Texts.h"

#include <utility>

namespace corvane::gallery {

namespace {

/// One that can be switched off.
class ExampleAction final : public CVAction {
  public:
    ExampleAction(const char* identifier, std::int64_t index, std::shared_ptr<bool> valid)
        : CVAction(identifier, index), valid_(std::move(valid)) {}
    bool validate() const override { return !valid_ || *valid_; }

  private:
    std::shared_ptr<bool> valid_;
};

platform::ImagePtr icon(const char* map, std::int64_t index) {
    return mapImage(EXImageMap::imageMapNamed(map).get(), index);
}

std::shared_ptr<CVAction> action(const char* title, std::int64_t index, platform::ImagePtr icon,
                                 std::shared_ptr<bool> valid = {}) {
    auto made = std::make_shared<ExampleAction>(title, index, std::move(valid));
    made->setTitle(localized(title));
    made->setIcon(std::move(icon));
    made->setTooltip(localized(title));
    return made;
}

std::shared_ptr<CVAction> actionWithParts(const char* title, std::int64_t index,
                                          std::vector<const char*> parts, bool toggles) {
    auto made = action(title, index, nullptr);
    CVAction::SubActions subActions;
    for (const char* part : parts)
        subActions.push_back(action(part, static_cast<std::int64_t>(subActions.size()), nullptr));
    made->setSubActions(std::move(subActions));
    made->setAllowToggling(toggles);
    return made;
}

}  // namespace

BarsPage::BarsPage(const Notes& note)
    : Stack(Axis::Down, 0),
      note_(note),
      formOfSheet_(std::make_shared<TaskForm>(note)),
      formOfPanel_(std::make_shared<TaskForm>(note)),
      actionsAreValid_(std::make_shared<bool>(true)) {
    formOfSheet_->setClosesWhenDone(true);
    formOfPanel_->setClosesWhenDone(true);
    toolbar_ = makeToolbar();
    add(makeTitleBar());
    add(toolbar_);
    add(makeSearchBar());
    add(makeSplitView(), {.share = 1});
    add(makeStatusBar());
}

BarsPage::~BarsPage() = default;

std::shared_ptr<CVMacTitleBar> BarsPage::makeTitleBar() {
    auto bar = std::make_shared<CVMacTitleBar>();
    bar->setTitle(localized("Summer"));
    bar->setSubtitle(localized("12 tasks"));
    bar->setIcon(icon("ProjectStatusSmallImageMap", 1));
    bar->setAccessoryView(button(localized("Share"), [note = note_] { note("Title bar: share"); }));
    return bar;
}

std::shared_ptr<CVMacToolbar> BarsPage::makeToolbar() {
    auto bar = std::make_shared<CVMacToolbar>();
    auto add = action("New Task", 9, icon("TaskStatusImageMap", 3));
    add->setAddAction(true);
    bar->setActions({action("Complete", 0, icon("TaskStatusImageMap", 6), actionsAreValid_),
                     action("Delete", 1, icon("TaskStatusImageMap", 8), actionsAreValid_),
                     actionWithParts("View", 2, {"List", "Board", "Calendar"}, true),
                     actionWithParts("Sort by", 3, {"Title", "Due", "Priority"}, false),
                     action("Print", 4, icon("AttachmentTypeImageMap", 0)), add});
    bar->didInvokeAction = [note = note_](CVAction& invoked) {
        note("Toolbar: " + invoked.identifier());
    };
    return bar;
}

std::shared_ptr<CVMacSearchBar> BarsPage::makeSearchBar() {
    auto bar = std::make_shared<CVMacSearchBar>();
    bar->setScopes({localized("All"), localized("Open"), localized("Done")});
    bar->setCategories({localized("Title"), localized("Notes"), localized("Project")});
    bar->setFilterItems(HGChoiceListFactory::priorityChoiceList(),
                        EXImageMap::imageMapNamed("PriorityImageMap"));
    bar->didSearchForString = [note = note_](const std::string& text) {
        note("Search bar: search for " + text);
    };
    bar->didClearSearch = [note = note_] { note("Search bar: clear"); };
    bar->didExitSearch = [note = note_] { note("Search bar: exit"); };
    bar->didSelectScope = [note = note_](std::int64_t scope) {
        note("Search bar: scope " + std::to_string(scope));
    };
    bar->didSelectSearchCategoryAtIndex = [note = note_](std::int64_t category) {
        note("Search bar: category " + std::to_string(category));
    };
    bar->didSelectFilterItemAtIndexPath = [note = note_](const CVIndexPath& path) {
        note("Search bar: filter " + std::to_string(path.section()) + "." +
             std::to_string(path.row()));
    };
    return bar;
}

std::shared_ptr<CVMacStatusBar> BarsPage::makeStatusBar() {
    auto bar = std::make_shared<CVMacStatusBar>();
    bar->setText(localized("Published a minute ago"));
    bar->setStatusIcon(icon("ContributorIndicatorSmallImageMap", 0), localized("Sharing"));
    bar->statusIconSelected = [note = note_] { note("Status bar: icon"); };
    bar->contextMenuForStatusIcon = [note = note_] {
        auto menu = std::make_shared<views::Menu>();
        menu->addItem(localized("Publish now"),
                      [note](views::MenuItem&) { note("Status bar: publish"); });
        return menu;
    };
    return bar;
}

std::shared_ptr<CVMacSplitView> BarsPage::makeSplitView() {
    auto split = std::make_shared<CVMacSplitView>();
    CVMacSplitView::Pane left;
    left.minimum = 180;
    left.preferred = 420;
    left.collapsible = true;
    auto floating = makeFloating();
    left.keyView = floating;
    split->addPane(Pane::make(floating), left);
    CVMacSplitView::Pane right;
    right.minimum = 290;
    right.stretches = true;
    auto settings = makeSettings();
    right.keyView = settings;
    split->addPane(Pane::make(settings), right);
    split->setAutosaveName("Gallery Bars");
    split->didResizePanes = [note = note_, weak = std::weak_ptr(split)] {
        if (const auto self = weak.lock())
            note("Split view: " + std::to_string(static_cast<int>(self->sizeOfPane(0))));
    };
    return split;
}

std::shared_ptr<Stack> BarsPage::makeSettings() {
    const auto option = [](const char* title, bool on, std::function<void(bool)> set) {
        auto control = std::make_shared<CVMacSwitch>();
        control->setOn(on);
        control->setAction([set = std::move(set)](views::Control& sender) {
            set(static_cast<CVMacSwitch&>(sender).isOn());
        });
        return captioned(localized(title), control, 190);
    };
    auto settings = stackDown(12, 20);
    settings->add(heading(localized("Toolbar")));
    settings->add(option("Shows titles", toolbar_->showsTitles(), [this](bool on) {
        toolbar_->setShowsTitles(on);
        setNeedsApplyLayout();
    }));
    settings->add(option("Large icons", toolbar_->usesLargeIcons(), [this](bool on) {
        toolbar_->setUsesLargeIcons(on);
        setNeedsApplyLayout();
    }));
    settings->add(option("Actions are valid", true, [this](bool on) {
        *actionsAreValid_ = on;
        toolbar_->validateActions();
    }));
    return settings;
}

// What floats over the window.

std::shared_ptr<Stack> BarsPage::makeFloating() {
    auto floating = stackDown(12, 20);
    floating->add(heading(localized("Sheets and Panels")));
    floating->add(
        remark(localized("A sheet must be answered before anything else. A panel floats "
                         "over the window and can be moved.")));
    const Place own{.breadth = Breadth::Own};
    floating->add(button(localized("Form in a Sheet…"), [this] { showSheet(); }), own);
    floating->add(button(localized("Form in a Panel…"), [this] { showPanel(); }), own);
    floating->add(button(localized("Alert…"), [this] { showAlert(); }), own);
    return floating;
}

void BarsPage::showSheet() {
    if (!window()) return;
    auto form = CVMacDetailForm::make(formOfSheet_);
    auto sheet = std::make_shared<CVMacSheet>(form);
    sheet->setTitle(localized("Edit Task"));
    sheet->setDefaultButton(form->okButton());
    sheet->setCancelButton(form->cancelButton());
    form->didClose = [weak = std::weak_ptr(sheet)] {
        if (const auto shown = weak.lock()) shown->end();
    };
    sheet->didEnd = [note = note_] { note("Sheet: ended"); };
    sheet->beginInWindow(*window());
}

void BarsPage::showPanel() {
    if (!window()) return;
    if (const auto shown = panel_.lock(); shown && shown->isShown())
        return shown->showInWindow(*window());
    auto form = CVMacDetailForm::make(formOfPanel_);
    auto panel = std::make_shared<CVMacPanel>(localized("Inspector"), form);
    panel_ = panel;
    form->didClose = [panel = panel_] {
        if (const auto shown = panel.lock()) shown->close();
    };
    panel->didClose = [note = note_] { note("Panel: closed"); };
    panel->showInWindow(*window());
}

void BarsPage::showAlert() {
    if (!window()) return;
    views::Alert alert;
    alert.messageText = localized("Delete 3 tasks?");
    alert.informativeText = localized("They cannot be brought back.");
    alert.buttons = {localized("Delete"), localized("Cancel")};
    window()->beginSheet(std::move(alert), [note = note_](int response) {
        note("Alert: " + std::to_string(response));
    });
}

}  // namespace corvane::gallery
