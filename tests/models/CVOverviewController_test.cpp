#include "corvane/models/CVOverviewController.h"

#include "corvane/models/CVDetail.h"
#include "corvane/models/CVDetailController.h"
#include "corvane/models/CVOverview.h"
#include "corvane/toolkit/EXValue.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

struct Answer {
    const char* hook;
    EXValue given, expected;
};

void expect(std::initializer_list<Answer> answers) {
    for (const auto& answer : answers)
        EXPECT_TRUE(answer.given == answer.expected &&
                    answer.given.kind() == answer.expected.kind())
            << answer.hook;
}

/// Whether there is an object, or a text.
template <class T>
bool any(const T& answer) {
    return static_cast<bool>(answer);
}

struct FakeOverview : CVOverview {
    double navigation = 22, overview = 31;
    int hidden = 0;
    double navigationSectionHeaderHeight() const override { return navigation; }
    double overviewSectionHeaderHeight() const override { return overview; }
    void hideOverviewSearchBar() override { ++hidden; }
};

TEST(CVOverviewController, BareAnswersAsAnEmptyScreenThatNothingCanBeDroppedOn) {
    CVOverviewController c;
    FakeOverview view;
    // Of these classes, which the base never looks into, nothing is known here.
    std::max_align_t something{};
    auto& table = reinterpret_cast<CVMacTableView&>(something);
    auto& list = reinterpret_cast<HGMacListView&>(something);
    const CVIndexPath p(1, 2);
    const platform::URL url("x:1");
    expect({
        {"hasNavigation", c.hasNavigation(), false},
        {"navigationTitle", any(c.navigationTitle()), false},
        {"navigation sections", c.numberOfSectionsInNavigation(), 0},
        {"navigation header", any(c.titleForHeaderInNavigationSection(0)), false},
        {"navigation rows", c.numberOfRowsInNavigationSection(0), 0},
        {"navigation edit", c.navigationCanEditRowAtIndexPath(p), true},
        {"navigation move", c.navigationCanMoveRowAtIndexPath(p), false},
        {"navigation drag", c.navigationAllowsStartDrag(), false},
        {"navigation will paths", c.navigationWillDropSourceIndexPaths({p}, view, p), false},
        {"navigation will texts", c.navigationWillDropTexts({"a"}, p), false},
        {"navigation will URL", c.navigationWillDropURL(url, "a", p), false},
        {"navigation did paths", c.navigationDidDropSourceIndexPaths({p}, view, p), false},
        {"navigation did texts", c.navigationDidDropTexts({"a"}, p), false},
        {"navigation did URL", c.navigationDidDropURL(url, "a", p), false},
        {"navigation menu", any(c.navigationContextMenuForRowAtIndexPath(p)), false},
        {"hasSidebar", c.hasSidebar(), false},
        {"global actions", c.countGlobalActions(), 0},
        {"navigation actions", c.countNavigationActions(), 0},
        {"overview actions", c.countOverviewActions(), 0},
        {"global action", any(c.globalActionAtIndex(0)), false},
        {"navigation action", any(c.navigationActionAtIndex(0)), false},
        {"overview action", any(c.overviewActionAtIndex(0)), false},
        {"overview sections", c.numberOfSectionsInOverview(), 0},
        {"overview header", any(c.titleForHeaderInOverviewSection(0)), false},
        {"overviewTitle", any(c.overviewTitle()), false},
        {"overview rows", c.numberOfRowsInOverviewSection(0), 0},
        {"overview edit", c.overviewCanEditRowAtIndexPath(p), true},
        {"overview move", c.overviewCanMoveRowAtIndexPath(p), false},
        {"overview start editing", c.canStartInlineEditingOverviewRowAtIndexPath(p), false},
        {"placeholder", any(c.placeholderIndexPathForAppendingToOverviewSection(0)), false},
        {"inline insert", c.overviewCanInlineInsertRowAtIndexPath(p), false},
        {"inline edit", c.overviewCanInlineEditRowAtIndexPath(p), false},
        {"overview drag", c.overviewAllowsStartDrag(), false},
        {"drag text", any(c.dragableTextForOverviewRowAtIndexPath(p)), false},
        {"overview will paths", c.overviewWillDropSourceIndexPaths({p}, table, p), false},
        {"overview will index", c.overviewWillDropSourceIndex(0, list, p), false},
        {"overview will texts", c.overviewWillDropTexts({"a"}, p), false},
        {"overview will URL", c.overviewWillDropURL(url, {}, p), false},
        {"overview did paths", c.overviewDidDropSourceIndexPaths({p}, table, p), false},
        {"overview did index", c.overviewDidDropSourceIndex(0, list, p), false},
        {"overview did texts", c.overviewDidDropTexts({"a"}, p), false},
        {"overview did URL", c.overviewDidDropURL(url, {}, p), false},
        {"menu", any(c.overviewContextMenuForRowAtIndexPath(p)), false},
        {"accessory", any(c.overviewContextMenuForAccessoryViewOfRowAtIndexPath(p)), false},
        {"status icon", any(c.overviewContextMenuForStatusIcon()), false},
    });
    EXPECT_EQ(c.navigationTargetIndexPathForMoveFromRowAtIndexPath({0, 0}, p), p);
    EXPECT_EQ(c.overviewTargetIndexPathForMoveFromRowAtIndexPath({0, 0}, p), p);
}

TEST(CVOverviewController, FollowsItsView) {
    CVOverviewController c;
    const auto heights = [&] {
        return std::pair(c.heightForHeaderInNavigationSection(3),
                         c.heightForHeaderInOverviewSection(3));
    };
    EXPECT_EQ(heights(), std::pair(0.0, 0.0));
    c.overviewDidExitSearch();
    const auto view = std::make_shared<FakeOverview>();
    c.setOverview(view);
    EXPECT_EQ(heights(), std::pair(22.0, 31.0));
    view->overview = 12.5;
    EXPECT_EQ(heights(), std::pair(22.0, 12.5));
    c.overviewDidExitSearch();
    EXPECT_EQ(view->hidden, 1);
}

TEST(CVDetailController, BareAnswersAndCloses) {
    CVDetailController c;
    expect({
        {"title", any(c.title()), false},
        {"showsDescription", c.showsDescription(), false},
        {"description", any(c.description()), false},
        {"countSections", c.countSections(), 1},
        {"nameForSection", any(c.nameForSection(0)), false},
        {"countFields", c.countFields(0), -1},
        {"nameForField", any(c.nameForField(0, 0)), false},
        {"placeholder", any(c.placeholderForField(0, 0)), false},
        {"control", any(c.createCustomControlForField(0, 0, {}, {}, true, {})), false},
        {"value", c.valueForField(0, 0), {}},
        {"editable", c.fieldIsEditable(0, 0), true},
        {"informative", c.fieldIsInformative(0, 0), false},
        {"editor", static_cast<std::int64_t>(c.editorTypeForField(0, 0)), 1},
        {"choices", any(c.choiceSetForField(0, 0)), false},
        {"icons", any(c.iconMapForField(0, 0)), false},
        {"height", c.rowHeightForField(0, 0), 0.0},
    });
    c.didInvokeOkAction();
    c.didInvokeCancelAction();

    struct FakeDetail : CVDetail {
        CVDetailController* owner = nullptr;
        int closed = 0;
        void close() override {
            if (owner) owner->setDetail(nullptr);
            ++closed;
        }
    };
    const auto detail = std::make_shared<FakeDetail>();
    c.setDetail(detail);
    c.didInvokeOkAction();
    c.didInvokeCancelAction();
    EXPECT_EQ(detail->closed, 2);
    // Owned by the controller alone, and let go of while it closes.
    auto last = std::make_shared<FakeDetail>();
    last->owner = &c;
    c.setDetail(std::move(last));
    c.didInvokeOkAction();
    EXPECT_FALSE(c.detail());
}

}  // namespace
