// One of each control that the library has, with something in it, for tests of what they have in
// common.
#pragma once

#include "corvane/controls/CVMacBadgeView.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/CVMacPanel.h"
#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/controls/CVMacProgressView.h"
#include "corvane/controls/CVMacRadioGroup.h"
#include "corvane/controls/CVMacRepeatEditor.h"
#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacSegmentedChoice.h"
#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/controls/CVMacTabularOverview.h"
#include "corvane/controls/CVMacTextChoiceField.h"
#include "corvane/controls/CVMacTimeOnlyChooserView.h"
#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/controls/MonthChooserView.h"
#include "corvane/models/CVAction.h"
#include "corvane/models/CVDetailController.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/HGMacListView.h"
#include "corvane/table/HGMacListViewItem.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/views/LayoutableView.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane::tests {

using ViewPtr = std::shared_ptr<views::View>;

/// A row with a box, a title, and a text at the trailing side.
struct TitledCell final : CVMacTableViewCell {
    explicit TitledCell(const CVIndexPath& path) : CVMacTableViewCell(path) {
        setAccessoryView(std::make_shared<views::Label>("+"));
        title = createLabelView();
        title->setStringValue("Row");
        due->setAlignment(views::TextAlignment::Trailing);
        due->setTextColor(views::theme().secondaryText);
        contentView()->addSubview(due);
    }
    views::Rect rectForAccessoryViewWithCellWidth(double) override { return {3, 0, 20, 44}; }
    void layoutContentView(views::View& content) override {
        const double width = content.frame().width;
        title->setFrame(views::mirrored({5, 2, width - 60, 20}, width));
        due->setFrame(views::mirrored({width - 50, 2, 45, 20}, width));
    }

    std::shared_ptr<views::TextView> title;
    std::shared_ptr<views::Label> due = std::make_shared<views::Label>("Monday");
};

struct TitledSource final : CVMacTableViewDataSource {
    CellPtr tableViewCellForRowAtIndexPath(Table&, const Path& path, const CellPtr&) override {
        return std::make_shared<TitledCell>(path);
    }
    std::int64_t numberOfSectionsInTableView(Table&) override { return 2; }
    std::optional<std::string> tableViewTitleForHeaderInSection(Table&, std::int64_t) override {
        return "Section";
    }
    std::int64_t tableViewNumberOfRowsInSection(Table&, std::int64_t) override { return 3; }
};

/// One field of each kind that a form has.
struct PlainController final : CVDetailController {
    using Text = std::optional<std::string>;
    Text title() const override { return "Title"; }
    bool showsDescription() const override { return true; }
    Text description() const override { return "What the form is for"; }
    Text nameForSection(Index) const override { return "Section"; }
    std::int64_t countFields(Index) const override { return 12; }
    Text nameForField(Index field, Index) const override {
        return "Field " + std::to_string(field);
    }
    bool fieldIsInformative(Index field, Index) const override { return field == 1; }
    bool fieldIsEditable(Index field, Index) const override { return field != 2; }
    CVDetailEditorType editorTypeForField(Index field, Index) const override {
        return static_cast<CVDetailEditorType>(field);
    }
    ChoiceList choiceSetForField(Index, Index) const override {
        return HGChoiceListFactory::taskStatusChoiceList();
    }
};

class EveryControl {
  public:
    EveryControl() {
        addFields();
        addButtons();
        addTable();
        addList();
        addBars();
        addChoices();
        addForms();
        const auto locale = platform::currentLocale();
        add("months", std::make_shared<MonthChooserView>(locale))->setDay(EXDateOnly(2026, 11, 5));
        add("times", std::make_shared<CVMacTimeOnlyChooserView>(locale));
    }

    const std::vector<std::pair<std::string, ViewPtr>>& all() const { return all_; }

  private:
    template <class T>
    std::shared_ptr<T> add(const std::string& name, std::shared_ptr<T> view) {
        all_.emplace_back(name, view);
        return view;
    }

    void addFields() {
        add("label", std::make_shared<views::Label>("Label"));
        add("field", std::make_shared<views::TextField>())->setStringValue("Text");
        add("placeholder", std::make_shared<views::TextField>())->setPlaceholderString("Hint");
        const auto disabled = add("disabled field", std::make_shared<views::TextField>());
        disabled->setStringValue("Text");
        disabled->setEnabled(false);
        add("paragraphs", std::make_shared<views::TextView>())->setStringValue("Several\nlines");
        const auto date = add("date", std::make_shared<CVMacDateOnlyField>());
        date->setDateOnlyValue(EXDateOnly(2026, 11, 5));
        date->setShowFocusedBackground(true);
    }

    void addButtons() {
        for (const bool enabled : {true, false}) {
            const std::string state = enabled ? "" : " disabled";
            const auto segments =
                add("segments" + state, std::make_shared<views::SegmentedControl>());
            segments->setSegments({{"One", {}}, {"Two", {}}, {"Three", {}}});
            segments->setSelectedSegment(0);
            segments->setEnabled(enabled);
            for (const bool on : {true, false}) {
                const auto button = add("button" + state, std::make_shared<views::Button>());
                button->setTitle("Button");
                button->setToggles(true);
                button->setOn(on);
                button->setEnabled(enabled);
            }
        }
    }

    void addTable() {
        const auto table = std::make_shared<CVMacTableView>();
        table->setDataSource(source_);
        table->setLeft(7);
        table->setRight(11);
        const auto scrollView = add("table", std::make_shared<views::ScrollView>());
        scrollView->setDocumentView(table);
        table->reloadData();
        table->selectCellWithIndexPath({0, 1});
        add("empty table", std::make_shared<CVMacTableView>())->setEmptyText("Nothing");
    }

    void addList() {
        listDelegate_->numberOfItemsInListView = [](HGMacListView&) { return std::int64_t(2); };
        listDelegate_->listViewItemAtIndex = [](HGMacListView&, std::int64_t) {
            const auto item = std::make_shared<HGMacListViewItem>();
            item->textField()->setStringValue("Item");
            return item;
        };
        const auto list = add("list", std::make_shared<HGMacListView>());
        list->setDelegate(listDelegate_);
        list->loadData();
    }

    void addBars() {
        const auto title = add("title bar", std::make_shared<CVMacTitleBar>());
        title->setTitle("Title");
        title->setSubtitle("3 tasks");
        const auto toolbar = add("toolbar", std::make_shared<CVMacToolbar>());
        CVMacToolbar::Actions actions;
        for (const char* name : {"Add", "Delete", "Share", "Archive everything", "Print"}) {
            actions.push_back(std::make_shared<CVAction>(name, std::ssize(actions)));
            actions.back()->setTitle(name);
        }
        actions.front()->setAddAction(true);
        toolbar->setActions(actions);
        const auto search = add("search bar", std::make_shared<CVMacSearchBar>());
        search->setPlaceholder("Search");
        search->setScopes({"All", "Some"});
        search->setCategories({"Title", "Note"});
        add("search bar with text", std::make_shared<CVMacSearchBar>())->setString("bread");
        add("status bar", std::make_shared<CVMacStatusBar>())->setText("Ready");
        const auto split = add("split view", std::make_shared<CVMacSplitView>());
        split->addPane(std::make_shared<views::Label>("leading"));
        split->addPane(std::make_shared<views::Label>("trailing"));
        add("panel",
            std::make_shared<CVMacPanel>("Panel", std::make_shared<views::Label>("In it")));
    }

    void addChoices() {
        const auto list = HGChoiceListFactory::taskStatusChoiceList();
        for (const bool enabled : {true, false}) {
            const std::string state = enabled ? "" : " disabled";
            const auto addChoice = [&](const char* name, const auto& choice) {
                add(name + state, choice)->setChoiceList(list);
                choice->setEnabled(enabled);
                return choice;
            };
            addChoice("pop-up", std::make_shared<CVMacPopUpChoice>())->setPlaceholder("Choose");
            addChoice("pop-up with value", std::make_shared<CVMacPopUpChoice>())
                ->setSelectedIndexPath(platform::IndexPath{0, 1});
            addChoice("segments of choices", std::make_shared<CVMacSegmentedChoice>());
            addChoice("radio group", std::make_shared<CVMacRadioGroup>())
                ->setSelectedIndexPath(platform::IndexPath{0, 1});
            addChoice("text choice", std::make_shared<CVMacTextChoiceField>())->setText("Some");
            add("switch" + state, std::make_shared<CVMacSwitch>())->setEnabled(enabled);
        }
        add("badge", std::make_shared<CVMacBadgeView>())->setCount(12);
        const auto progress = add("progress", std::make_shared<CVMacProgressView>());
        progress->setTitle("Reading");
        progress->setFraction(0.4);
    }

    void addForms() {
        const auto repeat = add("repeat editor", std::make_shared<CVMacRepeatEditor>());
        repeat->setRepeatForDay({}, EXDateOnly(2026, 11, 5));
        const auto form = CVMacDetailForm::make(controller_);
        add("form", form);
        const auto overview = add("tabular overview", std::make_shared<CVMacTabularOverview>());
        overview->setColumns({{.identifier = "a", .title = "One", .width = 90, .sortable = true},
                              {.identifier = "b", .title = "Two", .width = 90}});
    }

    std::vector<std::pair<std::string, ViewPtr>> all_;
    std::shared_ptr<PlainController> controller_ = std::make_shared<PlainController>();
    std::shared_ptr<TitledSource> source_ = std::make_shared<TitledSource>();
    std::shared_ptr<HGMacListViewDelegate> listDelegate_ =
        std::make_shared<HGMacListViewDelegate>();
};

}  // namespace corvane::tests
