#include "corvane/platform/ManualRunLoop.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/LayoutableView.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Window.h"

#include <gtest/gtest.h>

using namespace corvane::views;
using corvane::platform::ManualRunLoop;
using corvane::platform::ScopedMainRunLoop;

namespace {

struct Counted : LayoutableView {
    explicit Counted(bool patient = false) : lazy(patient) { setNeedsApplyLayout(); }
    void applyLayout() override {
        ++layouts;
        if (onLayout) onLayout();
    }
    bool laysOutOnlyWhenSeen() const override { return lazy; }
    bool lazy;
    int layouts = 0;
    std::function<void()> onLayout;
};

}  // namespace

TEST(LayoutableView, IsLaidOutOnceATurnTheOuterOnesFirst) {
    const auto outer = std::make_shared<Counted>();
    const auto inner = std::make_shared<Counted>();
    const auto lazy = std::make_shared<Counted>(true);
    std::string order;
    outer->onLayout = [&] {
        order += "outer ";
        inner->setFrame({0, 0, 10, 10});  // which needs layout, too, but not twice
    };
    inner->onLayout = [&] { order += "inner "; };
    Window window({20, 20});
    for (int round = 1; round <= 2; ++round) {
        ManualRunLoop loop;  // each goes with what is posted in it
        const ScopedMainRunLoop scope(loop);
        inner->setNeedsApplyLayout();
        outer->setNeedsApplyLayout();
        outer->addSubview(inner);
        outer->addSubview(lazy);
        window.root().addSubview(outer);
        inner->setNeedsApplyLayout();
        if (round == 1) continue;
        EXPECT_EQ(order, "");
        loop.runTurn();
        EXPECT_EQ(order, "outer inner ");
        EXPECT_EQ(loop.runTurn(), 0u);
        inner->onLayout = [&] { inner->setNeedsApplyLayout(); };  // for ever
        inner->setNeedsApplyLayout();
        for (int turn = 0; turn < 3; ++turn)
            EXPECT_EQ(loop.runTurn(), 1u);
    }
    EXPECT_EQ(lazy->layouts, 0);
    EXPECT_EQ(outer->layouts, 1);
    outer->setFrame({0, 0, 20, 20});
    lazy->setFrame({0, 0, 10, 10});
    window.viewAt({5, 5});
    EXPECT_EQ(lazy->layouts, 1);
    EXPECT_EQ(outer->layouts, 2);
    window.takeDirtyRect();
    lazy->setNeedsApplyLayout();  // which shows only where it is drawn again
    EXPECT_EQ(window.takeDirtyRect(), lazy->frame());
}

TEST(TextMeasurer, BreaksLinesBetweenWords) {
    const Font font{10};  // letters are 5 wide, lines 13 high
    for (auto [text, width, expectedWidth, lines] : {std::tuple{"", 0, 0, 1},
                                                     {"four", 0, 20, 1},
                                                     {"März", 0, 20, 1},
                                                     {"one two three", 0, 65, 1},
                                                     {"one two three", 35, 35, 2},
                                                     {"one two three", 34, 25, 3},
                                                     {"one two three", 1, 25, 3},
                                                     {"one\ntwo\n", 0, 15, 3}}) {
        const Size size = textMeasurer().sizeOfText(text, font, width);
        EXPECT_EQ(size, (Size{1.0 * expectedWidth, 13.0 * lines})) << text << " in " << width;
    }
}
