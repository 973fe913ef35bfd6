#include "corvane/vocabulary/ShippedStrings.h"

#include "corvane/platform/Locale.h"
#include "corvane/platform/StringTable.h"
#include "corvane/vocabulary/ChoiceListBuilding.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace corvane {
namespace {

std::set<std::string> keysInUse() {
    std::set<std::string> keys{"SAttachmentNone", "SCategoryNone", "SProjectNone", "ProjectNone"};
    for (VocabularyKeys vocabulary :
         {VocabularyKeys(kPriorityKeys), VocabularyKeys(kTaskStatusKeys),
          VocabularyKeys(kActionStatusKeys), VocabularyKeys(kProjectStatusKeys),
          VocabularyKeys(kTaskRepeatKeys), VocabularyKeys(kColorKeys),
          VocabularyKeys(kIndicatorKeys)})
        keys.insert(vocabulary.begin(), vocabulary.end());
    return keys;
}

class EveryLanguage : public testing::TestWithParam<ShippedStrings> {};

TEST_P(EveryLanguage, ReadsWithoutProblemsAndHoldsExactlyTheKeysInUse) {
    auto [table, problems] = platform::StringTable::parse(GetParam().text);
    EXPECT_THAT(problems, testing::IsEmpty());
    std::set<std::string> keys;
    for (auto& entry : table.entries())
        keys.insert(entry.first);
    EXPECT_EQ(keys, keysInUse());
}

TEST_P(EveryLanguage, KeepsTheIndicatorTitlesDistinctInTheMenu) {
    std::vector<std::string> languages{std::string(GetParam().language)};
    platform::ScopedLocale locale(platform::Locale{languages.front()});
    platform::ScopedLanguages scope(languages);
    auto list = choiceListInTitleOrder(kIndicatorKeys, ItemIcons::Codes);
    EXPECT_EQ(list->itemCount(), 45);
}

INSTANTIATE_TEST_SUITE_P(, EveryLanguage, testing::ValuesIn(shippedStrings()),
                         [](auto& test) { return std::string(test.param.language); });

}  // namespace
}  // namespace corvane
