#include "corvane/controls/CVMacSearchBar.h"
#include "corvane/controls/CVMacStatusBar.h"
#include "corvane/platform/Locale.h"
#include "corvane/views/Label.h"
#include "corvane/views/SegmentedControl.h"

#include "tests/controls/BarsFixture.h"
#include "tests/support/RecordingImageService.h"

using namespace corvane;
using views::Role;
using views::View;

namespace {

struct SearchBar : test::BarsFixture {
    void SetUp() override {
        bar->didSearchForString = [this](const std::string& text) {
            log += "search:" + text + " ";
        };
        bar->didClearSearch = [this] { log += "clear "; };
        bar->didExitSearch = [this] { log += "exit "; };
        bar->didSelectScope = [this](std::int64_t scope) { note("scope", scope); };
        bar->didSelectSearchCategoryAtIndex = [this](std::int64_t i) { note("category", i); };
        bar->didSelectFilterItemAtIndexPath = [this](const CVIndexPath& path) {
            note("filter", path.section() * 10 + path.row());
        };
        show(bar, {0, 0, 500, 36});
        ASSERT_TRUE(bar->focusSearchField());
    }
    void note(const char* what, std::int64_t index) { log += what + std::to_string(index) + " "; }
    std::string takeLog() { return std::exchange(log, ""); }
    View* only(Role role) const {
        const auto parts = partsOf(*bar, role);
        return parts.size() == 1 ? parts[0] : nullptr;
    }

    std::string log;
    std::shared_ptr<CVMacSearchBar> bar = std::make_shared<CVMacSearchBar>();
};

struct StatusBar : test::BarsFixture {
    std::shared_ptr<CVMacStatusBar> bar = std::make_shared<CVMacStatusBar>();
};

}  // namespace

TEST_F(SearchBar, SearchesForTheLastTextWhenTypingPauses) {
    type("a");
    loop.advance(0.2);
    type("b");
    loop.advance(0.29);
    EXPECT_EQ(takeLog(), "");
    loop.advance(0.02);
    EXPECT_EQ(takeLog(), "search:ab ");
    loop.advance(5);
    type("c");
    press(views::kKeyReturn);
    EXPECT_EQ(takeLog(), "search:abc ");
    loop.advance(5);
    EXPECT_EQ(takeLog(), "");
    bar->setSearchDelay(1);
    type("d");
    loop.advance(0.9);
    EXPECT_EQ(takeLog(), "");
    loop.advance(0.2);
    EXPECT_EQ(takeLog(), "search:abcd ");
}

TEST_F(SearchBar, ForgetsAPendingSearch) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"", [&] { bar->setString("other"); }},
        {"clear ", [&] { press(views::kKeyEscape); }},
        {"clear ", [&] { only(Role::Button)->accessibilityPress(); }},
        {"clear ", [&] { press(views::kKeyBackspace); }},
        {"", [&] { bar->removeFromSuperview(); }},
        {"",
         [&] {
             shown.reset();
             const auto gone = std::move(bar);
             gone->removeFromSuperview();
         }},
    };
    for (const auto& [expected, way] : ways) {
        bar->setString("");
        // In the very turn in which the search is due, before it.
        loop.callAfterDelay(0.3, nullptr, way);
        type("x");
        loop.advance(1);
        EXPECT_EQ(takeLog(), expected);
    }
}

TEST_F(SearchBar, IsClearedAndLeftByEscape) {
    EXPECT_EQ(partsOf(*bar, Role::Button).size(), 0u);
    type("word");
    EXPECT_EQ(only(Role::Button)->accessibilityName(), "Clear Search");
    press(views::kKeyEscape);
    EXPECT_EQ(bar->string(), "");
    press(views::kKeyReturn);
    press(views::kKeyEscape);
    EXPECT_EQ(takeLog(), "clear exit ");
    type("word");
    window.makeFirstResponder(before);
    click(*only(Role::Button));
    EXPECT_EQ(takeLog(), "clear ");
    EXPECT_EQ(bar->string(), "");
    EXPECT_EQ(focus().get(), only(Role::TextField));
    bar->didClearSearch = [this] {
        const auto gone = std::move(bar);
        gone->removeFromSuperview();
        shown.reset();
    };
    type("word");
    press(views::kKeyEscape);
    EXPECT_EQ(bar, nullptr);
}

TEST_F(SearchBar, OffersScopesBesideTheFieldOrBelow) {
    const double height = bar->preferredSizeThatFits({500, 100}).height;
    bar->setScopes({"All", "Open"});
    EXPECT_EQ(bar->selectedScope(), 0);
    loop.runTurn();
    auto* scopes = only(Role::RadioGroup);
    auto* field = only(Role::TextField);
    EXPECT_EQ(bar->preferredSizeThatFits({500, 100}).height, height);
    EXPECT_GT(scopes->frame().x, field->frame().right());
    const double narrow = 200;
    EXPECT_GT(bar->preferredSizeThatFits({narrow, 100}).height, height);
    bar->setFrame({0, 0, narrow, 70});
    loop.runTurn();
    EXPECT_GT(scopes->frame().y, field->frame().bottom());
    EXPECT_LE(scopes->frame().right(), narrow);
    EXPECT_EQ(tabStops(), (std::vector<View*>{field, scopes}));
    window.makeFirstResponder(scopes->shared_from_this());
    press(views::kKeyRightArrow);
    EXPECT_EQ(takeLog(), "scope1 ");
    bar->setSelectedScope(0);
    bar->setSelectedScope(2);
    bar->setSelectedScope(-1);
    EXPECT_EQ(bar->selectedScope(), 0);
    bar->setScopes({});
    EXPECT_EQ(bar->selectedScope(), -1);
    EXPECT_EQ(takeLog(), "");
    for (const double width : {60.0, 10.0, 0.0}) {
        bar->setFrame({0, 0, width, 36});
        loop.runTurn();
        EXPECT_GE(field->frame().width, 0);
    }
}

TEST_F(SearchBar, OffersCategoriesAndFiltersInMenus) {
    EXPECT_EQ(partsOf(*bar, Role::PopUpButton).size(), 0u);
    bar->setCategories({"Title", "Notes"});
    EXPECT_EQ(only(Role::PopUpButton)->accessibilityName(), "Search In");
    EXPECT_EQ(only(Role::PopUpButton)->accessibilityValue(), "Title");
    click(*only(Role::PopUpButton));
    EXPECT_EQ(menuText(), "*Title, Notes");
    menu->items()[1]->perform();
    EXPECT_EQ(bar->selectedCategory(), 1);
    bar->setCategories({"One"});
    menu->items()[1]->perform();  // of before
    bar->setSelectedCategory(1);
    EXPECT_EQ(bar->selectedCategory(), 0);
    EXPECT_EQ(takeLog(), "category1 ");

    const auto list = std::make_shared<EXChoiceList>();
    list->addItemWithTitle("Any", 1);
    list->addSectionWithTitle("States");
    list->sectionAtIndex(1)->addItemWithTitle("Open", 3, 2);
    bar->setFilterItems(list, nullptr);
    loop.runTurn();
    const auto popUps = partsOf(*bar, Role::PopUpButton);
    ASSERT_EQ(popUps.size(), 2u);
    EXPECT_EQ(tabStops(), (std::vector<View*>{popUps[0], only(Role::TextField), popUps[1]}));
    window.makeFirstResponder(popUps[1]->shared_from_this());
    type(" ");
    EXPECT_EQ(menuText(), "Any, -, (States), Open");
    menu->items()[3]->perform();
    EXPECT_EQ(bar->selectedFilterItem(), CVIndexPath(1, 0));
    EXPECT_EQ(popUps[1]->accessibilityValue(), "Open");
    press(views::kKeyDownArrow);
    EXPECT_EQ(menuText(), "Any, -, (States), *Open");
    bar->setSelectedFilterItem(CVIndexPath(4, 0));
    EXPECT_EQ(bar->selectedFilterItem(), CVIndexPath(1, 0));
    bar->setFilterItems(nullptr, nullptr);
    menu->items()[0]->perform();
    EXPECT_EQ(bar->selectedFilterItem(), std::nullopt);
    EXPECT_EQ(takeLog(), "filter10 ");
}

TEST_F(SearchBar, IsMirroredAndSpeaksTheUsersLanguage) {
    const platform::ScopedLanguages german({"de"});
    EXPECT_EQ(CVMacSearchBar().placeholder(), "Suchen");
    bar->setPlaceholder("Find");
    EXPECT_EQ(only(Role::TextField)->accessibilityName(), "Find");
    bar->setScopes({"All"});
    bar->setNeedsApplyLayout();
    loop.runTurn();
    const auto field = only(Role::TextField)->frame();
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    bar->setNeedsApplyLayout();
    loop.runTurn();
    EXPECT_EQ(only(Role::TextField)->frame().x, 500 - field.right());
}

TEST_F(StatusBar, ShowsATextAndAnIconThatIsAButton) {
    show(bar, {0, 0, 300, 24});
    EXPECT_EQ(bar->accessibilityRole(), Role::StatusBar);
    EXPECT_TRUE(tabStops().empty());
    bar->setText("3 tasks");
    EXPECT_EQ(bar->accessibilityValue(), "3 tasks");
    loop.runTurn();
    auto* label = partsOf(*bar, Role::Text)[0];
    const double start = label->frame().x;
    tests::RecordingImageService images;
    bar->setStatusIcon(images.imageNamed("cloud"), "Cloud");
    loop.runTurn();
    EXPECT_GT(label->frame().x, start);
    auto* icon = partsOf(*bar, Role::Button)[0];
    EXPECT_EQ(icon->accessibilityName() + icon->toolTip(), "CloudCloud");
    click(*icon);  // nobody asked for it
    int selected = 0;
    bar->statusIconSelected = [&] {
        ++selected;
        bar->statusIconSelected = nullptr;
    };
    EXPECT_EQ(tabStops(), (std::vector<View*>{icon}));
    window.makeFirstResponder(icon->shared_from_this());
    type(" ");
    type(" ");
    EXPECT_EQ(selected, 1);
    const auto frame = icon->convertToWindow(icon->bounds());
    const views::MouseEvent event(views::Point{frame.x + 2, frame.y + 2});
    EXPECT_EQ(window.contextMenu(event), nullptr);
    bar->contextMenuForStatusIcon = [] { return std::make_shared<views::Menu>("Status"); };
    EXPECT_EQ(window.contextMenu(event)->title(), "Status");
    bar->setStatusIcon(nullptr, "");
    EXPECT_TRUE(tabStops().empty());
}

TEST_F(StatusBar, SharesItsWidthWithAnotherView) {
    const auto progress = std::make_shared<views::Label>(std::string(100, 'p'));
    bar->setText(std::string(100, 't'));
    bar->setAccessoryView(progress);
    show(bar, {0, 0, 300, 24});
    const auto* label = partsOf(*bar, Role::Text)[0];
    EXPECT_EQ(label->toolTip(), std::string(100, 't'));
    EXPECT_LE(label->frame().right(), progress->frame().x);
    EXPECT_EQ(progress->frame().right(), 292);
    bar->setText("short");
    EXPECT_EQ(label->toolTip(), "");
    const double wanted = 16 + std::ceil(5 * 6.0) + 6 + 100 * 6.5;
    EXPECT_EQ(bar->preferredSizeThatFits({5000, 24}).width, wanted);
    bar->setFrameSize({wanted, 24});
    loop.runTurn();
    EXPECT_EQ(progress->frame().width, 100 * 6.5);
    EXPECT_EQ(label->toolTip(), "");
    bar->setAccessoryView(nullptr);
    EXPECT_EQ(progress->superview(), nullptr);
}
