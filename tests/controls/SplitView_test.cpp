#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/PaneSizes.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/UserDefaults.h"
#include "corvane/toolkit/EXValue.h"

#include "tests/controls/BarsFixture.h"
#include "tests/support/TemporaryDirectory.h"

#include <numeric>
#include <random>

using namespace corvane;
using platform::UserDefaults;
using views::View;

namespace {

struct SplitView : test::BarsFixture {
    using Pane = CVMacSplitView::Pane;
    /// A navigation list, the main one and a side bar.
    static std::shared_ptr<CVMacSplitView> threePanes() {
        auto split = std::make_shared<CVMacSplitView>();
        split->addPane(std::make_shared<views::TextField>(), Pane{100, 150, false, true, {}});
        split->addPane(std::make_shared<views::TextField>(), Pane{200, 300, true, false, {}});
        split->addPane(std::make_shared<views::TextField>(), Pane{80, 120, false, true, {}});
        return split;
    }
    void SetUp() override {
        window.setSize({800, 700});
        show(split, {0, 0, 602, 200});
    }
    std::string sizes() const {
        std::string text;
        for (std::int64_t i = 0; i < split->paneCount(); ++i)
            text += std::to_string(std::lround(split->sizeOfPane(i))) + " ";
        return text;
    }
    void drag(std::int64_t divider, double dx, double dy = 0) {
        const auto frame = split->dividerAfterPane(divider)->frame();
        const views::Point from{frame.x + frame.width / 2, frame.y + frame.height / 2};
        window.mouseDown(views::MouseEvent(from));
        window.mouseDragged(views::MouseEvent(from + views::Point{dx / 2, dy / 2}));
        window.mouseDragged(views::MouseEvent(from + views::Point{dx, dy}));
        window.mouseUp(views::MouseEvent(from + views::Point{dx, dy}));
        loop.runTurn();
    }
    void resize(double width) {
        split->setFrameSize({width, 200});
        loop.runTurn();
    }

    tests::TemporaryDirectory directory;
    UserDefaults defaults{directory.path() + "/settings.plist"};
    platform::ScopedUserDefaults defaultsScope{defaults};
    std::shared_ptr<CVMacSplitView> split = threePanes();
};

}  // namespace

TEST(PaneSizes, AlwaysFillTheRoomAndKeepMinimaWhileThereIsRoom) {
    std::mt19937 random(7);
    const auto upTo = [&](int most) { return static_cast<double>(random() % (most + 1u)); };
    for (int i = 0; i < 5000; ++i) {
        std::vector<PaneSize> panes(random() % 6);
        double minima = 0;
        bool shows = false;
        for (PaneSize& pane : panes) {
            pane = {upTo(200), upTo(400), random() % 3 == 0, random() % 4 == 0};
            if (!pane.collapsed) minima += pane.minimum;
            shows = shows || !pane.collapsed;
        }
        const double room = upTo(1000);
        const auto sizes = paneSizesIn(room, panes);
        ASSERT_EQ(sizes.size(), panes.size());
        EXPECT_NEAR(std::accumulate(sizes.begin(), sizes.end(), 0.0), shows ? room : 0, 1e-6);
        for (std::size_t p = 0; p < panes.size(); ++p) {
            if (panes[p].collapsed)
                EXPECT_EQ(sizes[p], 0);
            else if (minima <= room)
                EXPECT_GE(sizes[p], panes[p].minimum - 1e-9);
            else
                EXPECT_LE(sizes[p], panes[p].minimum);
        }
    }
}

TEST_F(SplitView, GivesTheRestToTheStretchingPaneAndTakesFromTheLastOnesFirst) {
    EXPECT_EQ(sizes(), "150 330 120 ");
    EXPECT_EQ(split->paneAtIndex(1)->frame(), (views::Rect{151, 0, 330, 200}));
    const std::pair<double, const char*> cases[] = {
        {1002, "150 730 120 "}, {472, "150 200 120 "}, {452, "150 200 100 "},
        {402, "120 200 80 "},   {382, "100 200 80 "},  {192, "50 100 40 "},
        {2, "50 100 40 "},      {0, "50 100 40 "},     {602, "150 330 120 "},
    };
    for (const auto& [width, expected] : cases) {
        resize(width);
        EXPECT_EQ(sizes(), expected) << width;
    }
    EXPECT_EQ(split->preferredSizeThatFits({5000, 100}).width, 150 + 300 + 120 + 2);
}

TEST_F(SplitView, MovesItsDividersByTheMouseAsFarAsTheMinimaAllow) {
    int told = 0;
    split->didResizePanes = [&] { ++told; };
    drag(0, 40);
    EXPECT_EQ(sizes(), "190 290 120 ");
    EXPECT_EQ(told, 2);
    drag(0, 400);
    EXPECT_EQ(sizes(), "280 200 120 ");
    drag(0, -200);  // still more than half the minimum
    EXPECT_EQ(sizes(), "100 380 120 ");
    drag(1, -30);
    EXPECT_EQ(sizes(), "100 350 150 ");
    resize(192);
    drag(0, 5);
    EXPECT_EQ(sizes(), "50 100 40 ");
    resize(702);
    EXPECT_EQ(sizes(), "100 450 150 ");
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    split->setNeedsApplyLayout();
    loop.runTurn();
    EXPECT_EQ(split->paneAtIndex(0)->frame().right(), 702);
    drag(0, -20);
    EXPECT_EQ(sizes(), "120 430 150 ");
    split->setArrangement(CVMacSplitView::Arrangement::Stacked);
    split->setFrameSize({100, 602});
    loop.runTurn();
    EXPECT_EQ(split->paneAtIndex(1)->frame(), (views::Rect{0, 121, 100, 330}));
    drag(1, 0, 10);
    EXPECT_EQ(sizes(), "120 340 140 ");
    EXPECT_EQ(window.viewAt({50, 120 + 4})->cursorAt({}), views::Cursor::ResizeUpDown);
}

TEST_F(SplitView, MovesItsDividersByKeys) {
    const auto divider = split->dividerAfterPane(0);
    const auto panes = [&](std::int64_t i) { return split->paneAtIndex(i).get(); };
    const std::vector<View*> stops{panes(0), divider.get(), panes(1),
                                   split->dividerAfterPane(1).get(), panes(2)};
    EXPECT_EQ(tabStops(), stops);
    EXPECT_EQ(tabStops(views::kKeyBacktab), std::vector(stops.rbegin(), stops.rend()));
    EXPECT_EQ(divider->accessibilityRole(), views::Role::Splitter);
    EXPECT_EQ(divider->accessibilityName(), "Divider");
    EXPECT_EQ(divider->cursorAt({}), views::Cursor::ResizeLeftRight);
    const std::pair<char32_t, const char*> cases[] = {
        {views::kKeyRightArrow, "160"}, {views::kKeyUpArrow, "160"}, {views::kKeyLeftArrow, "150"},
        {views::kKeyHome, "100"},       {views::kKeyEnd, "280"},     {views::kKeyReturn, "0"},
        {views::kKeyRightArrow, "0"},   {views::kKeyReturn, "280"},
    };
    window.makeFirstResponder(divider);
    for (const auto& [key, position] : cases) {
        press(key);
        EXPECT_EQ(divider->accessibilityValue(), position) << std::uint32_t{key};
    }
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    press(views::kKeyRightArrow);
    EXPECT_EQ(divider->accessibilityValue(), "٢٧٠");
}

TEST_F(SplitView, CollapsesAndRestoresPanes) {
    window.makeFirstResponder(split->paneAtIndex(0));
    click(*split->dividerAfterPane(0), 2);
    EXPECT_EQ(sizes(), "0 480 120 ");
    EXPECT_TRUE(split->paneAtIndex(0)->isHidden());
    EXPECT_EQ(focus(), split->dividerAfterPane(0));
    drag(0, 30);
    EXPECT_EQ(sizes(), "0 480 120 ");
    drag(0, 110);
    EXPECT_EQ(sizes(), "110 370 120 ");
    drag(0, -80);
    EXPECT_TRUE(split->isPaneCollapsed(0));
    split->dividerAfterPane(0)->accessibilityPress();
    EXPECT_EQ(sizes(), "110 370 120 ");
    split->setPaneCollapsed(1, true);  // it cannot
    split->setPaneCollapsed(2, true);
    split->setPaneCollapsed(7, true);
    EXPECT_EQ(sizes(), "110 490 0 ");
    split->setPaneCollapsed(0, true);
    split->removePane(*split->paneAtIndex(1));
    EXPECT_EQ(split->sizeOfPane(0) + split->sizeOfPane(1), 0);
    loop.runTurn();
    EXPECT_EQ(split->sizeOfPane(1), 601);  // one always shows
    split->removePane(*split->paneAtIndex(1));
    split->removePane(*split->paneAtIndex(0));
    split->setPaneCollapsed(0, true);
    EXPECT_EQ(split->dividerAfterPane(0), nullptr);
}

TEST_F(SplitView, RemembersItsSizesAcrossRestarts) {
    split->setAutosaveName("main");
    loop.runTurn();
    drag(0, 25);
    click(*split->dividerAfterPane(1), 2);
    ASSERT_FALSE(defaults.synchronize());
    {
        UserDefaults again(directory.path() + "/settings.plist");
        const platform::ScopedUserDefaults scope(again);
        split->removeFromSuperview();
        split = threePanes();
        split->setAutosaveName("main");
        split->setPaneCollapsed(2, true);  // keeps what is remembered
        show(split, {0, 0, 702, 200});
        EXPECT_EQ(sizes(), "175 525 0 ");
        split->setPaneCollapsed(2, false);
        EXPECT_EQ(sizes(), "175 405 120 ");
        split->setSizeOfPane(2, 140);
        const auto last = split->paneAtIndex(2);
        split->removePane(*last);
        split->addPane(last, Pane{80, 120, false, true, {}});
        loop.runTurn();
        EXPECT_EQ(sizes(), "175 385 140 ");
    }
    const EXValue kept = defaults.value("HGCorvane splitView main");
    const auto with = [&](const char* key, EXValue value) {
        auto map = *kept.map();
        map.items[key] = std::move(value);
        return EXValue(map);
    };
    const auto list = [](std::vector<EXValue> items) {
        return EXValue(platform::ValueList{std::move(items)});
    };
    const std::pair<EXValue, const char*> damaged[] = {
        {"text", "150 330 120 "},
        {list({1, 2, 3}), "150 330 120 "},
        {with("sizes", list({1, 2})), "150 330 120 "},
        {with("sizes", list({170, 300, 100, 1})), "150 330 120 "},
        {with("sizes", list({170, "2", 3})), "150 330 120 "},
        {with("sizes", list({170, -1, 100})), "150 330 120 "},
        {with("sizes", 5), "150 330 120 "},
        {with("collapsed", "x"), "150 330 120 "},
        {with("sizes", list({1e300, 0, 0})), "400 200 0 "},  // of a far larger screen
        {with("collapsed", list({true, true, "x"})), "0 480 120 "},
    };
    for (const auto& [value, expected] : damaged) {
        defaults.setValue("HGCorvane splitView main", value);
        split->removeFromSuperview();
        split = threePanes();
        split->setAutosaveName("main");
        show(split, {0, 0, 602, 200});
        EXPECT_EQ(sizes(), expected);
    }
}

TEST_F(SplitView, SurvivesWhoeverChangesItMeanwhile) {
    const auto first = split->paneAtIndex(0);
    split->addPane(nullptr);
    split->addPane(first, {});
    split->addPane(split);
    EXPECT_EQ(split->paneCount(), 3);
    split->setSizeOfPane(2, 140);
    EXPECT_EQ(sizes(), "150 310 140 ");
    split->setSizeOfPane(9, 1);
    split->setSizeOfPane(0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(sizes(), "150 310 140 ");
    split->didResizePanes = [this] {
        while (split->paneCount() > 0)
            split->removePane(*split->paneAtIndex(0));
    };
    drag(0, 20);
    EXPECT_EQ(split->paneCount(), 0);
    split = threePanes();
    show(split, {0, 0, 602, 200});
    split->didResizePanes = [this] {
        shown.reset();
        const auto gone = std::move(split);
        gone->removeFromSuperview();
    };
    const auto divider = split->dividerAfterPane(0);
    window.makeFirstResponder(divider);
    press(views::kKeyRightArrow);
    EXPECT_EQ(split, nullptr);
    EXPECT_EQ(divider->accessibilityValue(), "");
    EXPECT_FALSE(divider->keyDown(views::KeyEvent(views::kKeyReturn)));

    // A field that ends its editing while its pane comes, and while it is collapsed.
    struct Ending : views::TextFieldDelegate {
        void controlTextDidEndEditing(views::TextField&) override { act(); }
        std::function<void()> act;
    };
    const auto ending = std::make_shared<Ending>();
    split = threePanes();
    show(split, {0, 0, 602, 200});
    {
        const auto field = std::make_shared<views::TextField>();
        field->setDelegate(ending);
        window.root().addSubview(field);
        window.makeFirstResponder(field);
        ending->act = [&] { split->setPaneCollapsed(3, true); };
        split->addPane(field, Pane{10, 20, false, true, {}});
        EXPECT_TRUE(split->isPaneCollapsed(3));
        split->setPaneCollapsed(3, false);
        window.makeFirstResponder(field);
    }
    ending->act = [&] { split->removePane(*split->paneAtIndex(3)); };
    split->setPaneCollapsed(3, true);
    EXPECT_EQ(split->paneCount(), 3);
}
