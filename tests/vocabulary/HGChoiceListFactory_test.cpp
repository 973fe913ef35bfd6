#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "corvane/platform/Locale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace corvane {
namespace {

using Factory = HGChoiceListFactory;

/// The lists are made once a process, so every test that may be the first to ask pins the language.
class HGChoiceListFactoryTest : public testing::Test {
  private:
    platform::ScopedLanguages english_{{"en"}};
    platform::ScopedLocale locale_{platform::Locale("en")};
};

/// One item a line: code, icon, title.
std::string description(const EXChoiceList& list) {
    std::string result;
    for (auto& item : list.firstSection()->items())
        result += std::to_string(item->value().integerValue()) + " " +
                  std::to_string(item->iconIndex()) + " " + item->title().value_or("(none)") + "\n";
    return result;
}

TEST_F(HGChoiceListFactoryTest, OffersEachVocabularyInItsOrder) {
    struct {
        std::shared_ptr<const EXChoiceList> (*list)();
        const char* description;
    } const cases[] = {
        {Factory::priorityChoiceList, "4 4 Critical\n3 3 High\n2 2 Medium\n1 1 Low\n0 0 Trivial\n"},
        {Factory::priorityChoiceListInNaturalOrder,
         "0 0 Trivial\n1 1 Low\n2 2 Medium\n3 3 High\n4 4 Critical\n"},
        {Factory::taskStatusChoiceList,
         "0 0 Inbox\n1 1 Someday\n2 2 Scratchpad\n3 3 Actionable\n4 4 In Progress\n5 5 On Hold\n"
         "6 6 Completed\n7 7 Canceled\n8 8 Trash\n"},
        {Factory::actionStatusChoiceList, "0 0 Actionable\n1 1 In Progress\n2 2 Completed\n"},
        {Factory::projectStatusChoiceList,
         "0 0 Not Started\n1 1 Active\n2 2 On Hold\n3 3 Completed\n4 4 Canceled\n"},
        {Factory::taskRepeatChoiceList,
         "0 -1 Never\n1 -1 Every Day\n2 -1 Every Week\n3 -1 Every Two Weeks\n4 -1 Every Month\n"
         "5 -1 Every Two Months\n6 -1 Every Quarter\n7 -1 Every Year\n8 -1 Custom…\n"},
        {Factory::colorChoiceList,
         "0 0 Gray\n1 1 Purple\n2 2 Violet\n3 3 Blue\n4 4 Cyan\n5 5 Green\n6 6 Orange\n7 7 Red\n"},
        {Factory::attachmentTypeChoiceList, "0 0 (none)\n"},
    };
    for (auto& [list, expected] : cases) {
        EXPECT_EQ(description(*list()), expected);
        EXPECT_EQ(list(), list()) << expected;
    }
}

TEST_F(HGChoiceListFactoryTest, SortsIndicatorsAndNumbersIcons) {
    auto indicators = Factory::indicatorChoiceList();
    EXPECT_EQ(indicators->itemCount(), 45);
    EXPECT_EQ(indicators->titleForItemAtIndex(0), "Android");
    EXPECT_EQ(indicators->valueForItemAtIndex(1), EXValue(20)) << "App";
    EXPECT_EQ(indicators->itemAtIndex(indicators->indexForItemWithTitle("None"))->iconIndex(), 0);

    auto categoryIcons = Factory::categoryIconIndexChoiceList();
    ASSERT_EQ(categoryIcons->itemCount(), 360);
    EXPECT_EQ(categoryIcons->titleForItemAtIndex(0), std::nullopt);
    for (std::int64_t i = 0; i < 360; ++i) {
        EXPECT_EQ(categoryIcons->valueForItemAtIndex(i), EXValue(i));
        EXPECT_EQ(categoryIcons->itemAtIndex(i)->iconIndex(), i);
    }
}

TEST_F(HGChoiceListFactoryTest, EveryThreadGetsTheSameList) {
    std::vector<std::shared_ptr<const EXChoiceList>> seen(4);
    std::vector<std::thread> threads;
    for (auto& slot : seen)
        threads.emplace_back([&] { slot = Factory::indicatorChoiceList(); });
    for (auto& thread : threads)
        thread.join();
    EXPECT_THAT(seen, testing::Each(Factory::indicatorChoiceList()));
}

}  // namespace
}  // namespace corvane
