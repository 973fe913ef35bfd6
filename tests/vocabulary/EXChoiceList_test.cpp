#include "corvane/vocabulary/EXChoiceList.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using platform::IndexPath;
using Path = std::optional<IndexPath>;

TEST(EXChoiceList, AnyFlatOperationBringsTheFirstSectionIntoBeing) {
    void (*const uses[])(EXChoiceList&) = {
        [](EXChoiceList& list) { EXPECT_EQ(list.itemCount(), 0); },
        [](EXChoiceList& list) { EXPECT_EQ(list.itemAtIndex(0), nullptr); },
        [](EXChoiceList& list) { EXPECT_EQ(list.indexForItemWithValue(1), -1); },
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
    for (Path path : {Path(), Path({3, 0}), Path({-1, 0}), Path({1, 2}), Path({1, -1})})
        EXPECT_EQ(list.itemAtIndexPath(path), nullptr);
    EXPECT_EQ(list.indexPathForItemWithValue(6), Path({1, 1})) << "the first section that has it";
    EXPECT_EQ(list.indexPathForItemWithValue(3), Path({2, 0}));
    EXPECT_EQ(list.indexPathForItemWithValue(nullptr), Path({0, 0}));
    EXPECT_EQ(list.indexPathForItemWithValue(99), Path());
    EXPECT_EQ(list.indexPathForItemWithTitle("Red"), Path({1, 0}));
    EXPECT_EQ(list.indexPathForItemWithTitle("red"), Path());
}

TEST(EXChoiceList, TheLastItemOfAValueAndTheFirstOfATitleAreFound) {
    EXChoiceListSection section;
    EXPECT_EQ(section.indexForItemWithValue(nullptr), -1);
    section.addItemWithTitle("a", 2);
    section.addItemWithTitle("b", nullptr);
    section.addItemWithTitle("a", 3, 2);
    section.addItemWithTitle("Á", "2");
    section.addItem(EXChoiceListItem::itemWithTitle(std::nullopt, 4));
    section.addItem(nullptr);
    const std::pair<EXValue, int> values[] = {{2, 2}, {2.0, 2}, {"2", 3}, {nullptr, 1}, {3, -1}};
    for (const auto& [value, index] : values)
        EXPECT_EQ(section.indexForItemWithValue(value), index);
    const std::pair<std::optional<std::string>, int> titles[] = {
        {"a", 0}, {"Á", 3}, {"A", -1}, {"", -1}, {std::nullopt, -1}};
    for (const auto& [title, index] : titles)
        EXPECT_EQ(section.indexForItemWithTitle(title), index);
    EXPECT_EQ(section.itemAtIndex(1)->iconIndex(), -1);
    EXPECT_EQ(section.itemAtIndex(2)->iconIndex(), 3);
    for (std::int64_t outside : {std::int64_t{-1}, std::int64_t{5}, INT64_MIN, INT64_MAX})
        EXPECT_EQ(section.itemAtIndex(outside), nullptr);
}

}  // namespace
}  // namespace corvane
