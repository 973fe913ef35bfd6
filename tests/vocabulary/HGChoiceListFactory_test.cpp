#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "corvane/platform/Locale.h"
#include "corvane/platform/StringTable.h"
#include "corvane/vocabulary/ChoiceListBuilding.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"
#include "corvane/vocabulary/ShippedStrings.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>

namespace corvane {
namespace {

using Factory = HGChoiceListFactory;

/// The lists are made once a process, so whichever test is the first to ask pins the language.
struct English {
    platform::ScopedLanguages languages{{"en"}};
    platform::ScopedLocale locale{platform::Locale("en")};
};

/// One item a line: code, icon, title.
std::string description(const EXChoiceList& list) {
    std::string result;
    for (auto& item : list.firstSection()->items())
        result += std::to_string(item->value().integerValue()) + " " +
                  std::to_string(item->iconIndex()) + " " + item->title().value_or("(none)") + "\n";
    return result;
}

TEST(HGChoiceListFactory, OffersEachVocabularyInItsOrder) {
    const English english;
    const std::pair<std::shared_ptr<const EXChoiceList> (*)(), const char*> cases[] = {
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
    auto icons = Factory::categoryIconIndexChoiceList();
    ASSERT_EQ(icons->itemCount(), 360);
    for (std::int64_t i = 0; i < 360; ++i) {
        EXPECT_EQ(icons->valueForItemAtIndex(i), EXValue(i));
        EXPECT_EQ(icons->itemAtIndex(i)->iconIndex(), i);
    }
}

/// Whether the titles ascend; looks for every item's code and icon on the way.
bool isAlphabetical(const EXChoiceList& list) {
    std::vector<std::string> keys;
    for (auto& item : list.firstSection()->items()) {
        auto code = static_cast<std::size_t>(item->value().integerValue());
        EXPECT_EQ(item->title(), EXLocalizable::localize(kIndicatorKeys.at(code)));
        EXPECT_EQ(item->value(), EXValue(item->iconIndex()));
        keys.push_back(EXLocalizable::collationForString(item->title().value_or("")));
    }
    return std::is_sorted(keys.begin(), keys.end());
}

TEST(HGChoiceListFactory, TheIndicatorMenuIsAlphabeticalInEachLanguage) {
    const English english;
    EXPECT_TRUE(isAlphabetical(*Factory::indicatorChoiceList()));
    EXPECT_EQ(Factory::indicatorChoiceList()->titleForItemAtIndex(1), "App");
    platform::ScopedLanguages languages({"de_AT", "en"});
    platform::ScopedLocale locale(platform::Locale("de_AT"));
    EXPECT_TRUE(isAlphabetical(*choiceListInTitleOrder(kIndicatorKeys, ItemIcons::Codes)));
}

TEST(HGChoiceListFactory, TitlesThatCollateAlikeShareOneItem) {
    EXLocalizable::addStringTable("et", "Alike1 = Größe\nAlike2 = GROßE\nOther = Ä");
    platform::ScopedLanguages languages({"et"});
    const std::string_view keys[] = {"Alike1", "Other", "Alike2"};
    auto list = choiceListInTitleOrder(keys, ItemIcons::None);
    ASSERT_EQ(list->itemCount(), 2);
    EXPECT_EQ(list->titleForItemAtIndex(0), "Ä");
    EXPECT_EQ(list->itemAtIndex(0)->iconIndex(), -1);
}

TEST(HGChoiceListFactory, EveryCodeOfTheVocabularyAndNoOtherHasAName) {
    using Colors = HGColorNameProvider;
    using Indicators = HGIndicatorNameProvider;
    auto check = [](std::size_t count, auto name) {
        std::set<std::string> names;
        for (std::size_t code = 0; code < count; ++code)
            names.insert(name(static_cast<std::int64_t>(code)));
        EXPECT_EQ(names.size(), count);
        for (auto code : {std::int64_t{-1}, static_cast<std::int64_t>(count), INT64_MIN})
            EXPECT_THROW(name(code), std::out_of_range) << code;
    };
    check(kColorKeys.size(), Colors::nameForColor);
    check(kIndicatorKeys.size(), Indicators::nameForCategoryIndicator);
    check(kTaskStatusKeys.size(), Indicators::nameForTaskStatusIndicator);
    EXPECT_EQ(Indicators::nameForCategoryIndicator(20), "brush");
    EXPECT_EQ(Indicators::nameForTaskStatusIndicator(4), "status-in-progress");
    EXPECT_EQ(Colors::nameForColor(7), "red");
}

TEST(HGChoiceListFactory, EachLanguageReadsWithoutProblemsAndHoldsTheSameKeys) {
    std::optional<std::set<std::string, std::less<>>> keysOfAll;
    std::set<std::string, std::less<>> vocabularyKeys;
    for (VocabularyKeys vocabulary :
         {VocabularyKeys(kPriorityKeys), VocabularyKeys(kTaskStatusKeys),
          VocabularyKeys(kActionStatusKeys), VocabularyKeys(kProjectStatusKeys),
          VocabularyKeys(kTaskRepeatKeys), VocabularyKeys(kRepeatFrequencyKeys),
          VocabularyKeys(kColorKeys), VocabularyKeys(kIndicatorKeys)})
        vocabularyKeys.insert(vocabulary.begin(), vocabulary.end());
    for (const auto& [language, text] : shippedStrings()) {
        auto [table, problems] = platform::StringTable::parse(text);
        EXPECT_THAT(problems, testing::IsEmpty()) << language;
        std::set<std::string, std::less<>> keys;
        for (auto& entry : table.entries())
            keys.insert(entry.first);
        EXPECT_EQ(keys, keysOfAll.value_or(keys)) << language;
        EXPECT_TRUE(
            std::includes(keys.begin(), keys.end(), vocabularyKeys.begin(), vocabularyKeys.end()))
            << language;
        keysOfAll = keys;
        platform::ScopedLocale locale{platform::Locale(language)};
        platform::ScopedLanguages scope({std::string(language)});
        EXPECT_EQ(choiceListInTitleOrder(kIndicatorKeys, ItemIcons::None)->itemCount(), 45)
            << "titles of indicators are distinct in " << language;
    }
}

}  // namespace
}  // namespace corvane
