#include "corvane/models/CVAction.h"

#include "corvane/platform/Image.h"
#include "corvane/views/Button.h"
#include "corvane/views/MenuItem.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/ToolbarItem.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

struct Counted : CVAction {
    using CVAction::CVAction;
    void actionInvoked(const Sender&) override { ++calls; }
    bool validate() const override { return calls == 0; }
    int calls = 0;
};

struct Dot : platform::Image {
    platform::Size size() const override { return {1, 1}; }
};

TEST(CVAction, PassesASegmentOnToItsSubAction) {
    CVAction action("views", 0);
    auto list = std::make_shared<Counted>("list", 0);
    auto grid = std::make_shared<Counted>("grid", 1);
    views::SegmentedControl segments;
    segments.setSegments({{"List", {}}, {"Grid", {}}, {"More", {}}});
    segments.setSelectedSegment(1);
    action.actionInvoked(&segments);  // there are no sub-actions yet
    action.setSubActions({list, grid});
    for (int selected : {1, -1, 2, 1}) {
        segments.setSelectedSegment(selected);
        action.actionInvoked(&segments);
    }
    views::Button button;
    views::MenuItem item("List");
    for (const CVAction::Sender& sender :
         {CVAction::Sender(), CVAction::Sender(&button), CVAction::Sender(&item)})
        action.actionInvoked(sender);
    EXPECT_EQ(list->calls * 10 + grid->calls, 2);
    const views::ToolbarItem toolbarItem("grid");
    EXPECT_TRUE(action.validateMenuItem(item) && action.validateToolbarItem(toolbarItem));
    EXPECT_FALSE(grid->validateMenuItem(item) || grid->validateToolbarItem(toolbarItem));
}

TEST(CVAction, EndsACircleOfSubActions) {
    auto one = std::make_shared<CVAction>("one", 0);
    auto other = std::make_shared<CVAction>("other", 0);
    one->setSubActions({other});
    other->setSubActions({one});
    views::SegmentedControl segments;
    segments.setSegments({{"Only", {}}});
    segments.setSelectedSegment(0);
    one->actionInvoked(&segments);
    one->setSubActions({});
}

TEST(CVAction, MakesAButtonOfItsIcon) {
    CVAction action("add", 0);
    for (const platform::ImagePtr& icon : {platform::ImagePtr(), platform::ImagePtr(new Dot)}) {
        action.setIcon(icon);
        action.createImageButtonForCustomView();
        auto button = std::dynamic_pointer_cast<views::Button>(action.customView());
        ASSERT_TRUE(button);
        EXPECT_EQ(static_cast<int>(button->bezelStyle()), 11);
        EXPECT_EQ(button->image(), icon);
    }
}

}  // namespace
