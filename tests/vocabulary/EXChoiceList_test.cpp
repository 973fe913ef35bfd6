#include "corvane/vocabulary/EXChoiceList.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using platform::IndexPath;
using Path = std::optional<IndexPath>;

TEST(EXChoiceList, AnyFlatOperationBringsTheFirstSectionIntoBeing) {
    using Use = void (*)(EXChoiceList&);
    const Use uses[] = {
        [](EXChoiceList& list) { EXPECT_EQ(list.itemCount(), 0); },
        [](EXChoiceList& list) { EXPECT_EQ(list.itemAtIndex(0), nullptr); },
        [](EXChoiceList& list) { EXPECT_EQ(list.titleForItemAtIndex(0), std::nullopt); },
        [](EXChoiceList& list) { EXPECT_TRUE(list.valueForItemAtIndex(0).isNull()); },
        [](EXChoiceList& list) { EXPECT_EQ(list.indexForItemWithValue(1), -1); },
        [](EXChoiceList& list) { EXPECT_EQ(list.indexForItemWithTitle("a"), -1); },
        [](EXChoiceList& list) { list.addItem(nullptr); },
        [](EXChoiceList& list) { list.addItemWithTitle("a", 1); },
    };
    for (auto use : uses) {
        EXChoiceList list;
        EXPECT_EQ(list.itemAtIndexPath(IndexPath{0, 0}), nullptr);
        EXPECT_EQ(list.indexPathForItemWithTitle("a"), Path());
        EXPECT_EQ(list.sectionCount(), 0) << "paths do not";
        use(list);
        ASSERT_EQ(list.sectionCount(), 1);
        EXPECT_EQ(list.sectionAtIndex(0)->title(), std::nullopt);
        EXPECT_EQ(list.sectionAtIndex(0), list.firstSection());
    }
}

TEST(EXChoiceList, PathsLeadToItemsAndBack) {
    EXChoiceList list;
    list.addItemWithTitle("None", nullptr);
    list.addSectionWithTitle("Warm");
    list.sectionAtIndex(1)->addItemWithTitle("Red", 7, 7);
    list.sectionAtIndex(1)->addItemWithTitle("Orange", 6, 6);
    auto cold = std::make_shared<EXChoiceListSection>("Cold");
    cold->addItemWithTitle("Blue", 3);
    cold->addItemWithTitle("Red", 6);
    list.addSection(cold);
    list.addSection(nullptr);

    ASSERT_EQ(list.sectionCount(), 3);
    EXPECT_EQ(list.itemCount(), 1) << "the first section's";
    EXPECT_EQ(list.titleForItemAtIndexPath(IndexPath{1, 1}), "Orange");
    EXPECT_EQ(list.valueForItemAtIndexPath(IndexPath{2, 0}), EXValue(3));
    EXPECT_EQ(list.itemAtIndexPath(IndexPath{1, 0})->iconIndex(), 7);
    for (Path path : {Path(), Path({3, 0}), Path({-1, 0}), Path({1, 2}), Path({1, -1})}) {
        EXPECT_EQ(list.itemAtIndexPath(path), nullptr);
        EXPECT_EQ(list.titleForItemAtIndexPath(path), std::nullopt);
        EXPECT_TRUE(list.valueForItemAtIndexPath(path).isNull());
    }

    EXPECT_EQ(list.indexPathForItemWithValue(6), Path({1, 1})) << "the first section that has it";
    EXPECT_EQ(list.indexPathForItemWithValue(3), Path({2, 0}));
    EXPECT_EQ(list.indexPathForItemWithValue(nullptr), Path({0, 0}));
    EXPECT_EQ(list.indexPathForItemWithValue(99), Path());
    EXPECT_EQ(list.indexPathForItemWithTitle("Red"), Path({1, 0}));
    EXPECT_EQ(list.indexPathForItemWithTitle("red"), Path());
}

}  // namespace
}  // namespace corvane
