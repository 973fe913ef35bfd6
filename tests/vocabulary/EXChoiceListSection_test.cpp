#include "corvane/vocabulary/EXChoiceListSection.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Text = std::optional<std::string>;

TEST(EXChoiceListSection, FindsItemsByPosition) {
    EXChoiceListSection section("Colors");
    section.addItemWithTitle("Red", 7);
    section.addItemWithTitle("Blue", 3, "blue");
    section.addItem(EXChoiceListItem::itemWithTitle(std::nullopt, 2.5));
    section.addItem(nullptr);

    EXPECT_EQ(section.title(), "Colors");
    ASSERT_EQ(section.itemCount(), 3);
    struct {
        std::int64_t icon;
        Text title;
        EXValue value;
    } const expected[] = {{-1, "Red", 7}, {3, "Blue", "blue"}, {-1, {}, 2.5}};
    for (std::int64_t i = 0; i < 3; ++i) {
        auto& [icon, title, value] = expected[i];
        EXPECT_EQ(section.itemAtIndex(i), section.items()[static_cast<std::size_t>(i)]);
        EXPECT_EQ(section.itemAtIndex(i)->iconIndex(), icon);
        EXPECT_EQ(section.titleForItemAtIndex(i), title);
        EXPECT_EQ(section.valueForItemAtIndex(i), value);
    }
    for (std::int64_t outside : {std::int64_t{-1}, std::int64_t{3}, INT64_MIN, INT64_MAX}) {
        EXPECT_EQ(section.itemAtIndex(outside), nullptr);
        EXPECT_EQ(section.titleForItemAtIndex(outside), std::nullopt);
        EXPECT_TRUE(section.valueForItemAtIndex(outside).isNull());
    }
}

TEST(EXChoiceListSection, TheLastItemOfAValueAndTheFirstOfATitleAreFound) {
    EXChoiceListSection section;
    EXPECT_EQ(section.indexForItemWithValue(nullptr), -1);
    section.addItemWithTitle("a", 2);
    section.addItemWithTitle("b", nullptr);
    section.addItemWithTitle("a", 2);
    section.addItemWithTitle("Á", "2");
    section.addItem(std::make_shared<EXChoiceListItem>(std::nullopt, 4));

    EXPECT_EQ(section.indexForItemWithValue(2), 2);
    EXPECT_EQ(section.indexForItemWithValue(2.0), 2);
    EXPECT_EQ(section.indexForItemWithValue("2"), 3);
    EXPECT_EQ(section.indexForItemWithValue(nullptr), 1);
    EXPECT_EQ(section.indexForItemWithValue(3), -1);

    EXPECT_EQ(section.indexForItemWithTitle("a"), 0);
    EXPECT_EQ(section.indexForItemWithTitle("Á"), 3);
    EXPECT_EQ(section.indexForItemWithTitle("A"), -1);
    EXPECT_EQ(section.indexForItemWithTitle(""), -1);
    EXPECT_EQ(section.indexForItemWithTitle(std::nullopt), -1);
}

}  // namespace
}  // namespace corvane
