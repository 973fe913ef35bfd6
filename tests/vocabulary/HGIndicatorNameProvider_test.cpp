#include "corvane/vocabulary/HGIndicatorNameProvider.h"

#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <stdexcept>

namespace corvane {
namespace {

const struct {
    const char* what;
    const std::vector<std::string>& (*all)();
    const std::string& (*name)(std::int64_t code);
    std::size_t count;
} kProviders[] = {
    {"color", HGColorNameProvider::allColorNames, HGColorNameProvider::nameForColor,
     kColorKeys.size()},
    {"category indicator", HGIndicatorNameProvider::allCategoryIndicatorNames,
     HGIndicatorNameProvider::nameForCategoryIndicator, kIndicatorKeys.size()},
    {"task status", HGIndicatorNameProvider::allTaskStatusIndicatorNames,
     HGIndicatorNameProvider::nameForTaskStatusIndicator, kTaskStatusKeys.size()},
};

TEST(HGIndicatorNameProvider, EveryCodeOfTheVocabularyAndNoOtherHasAName) {
    for (auto& [what, all, name, count] : kProviders) {
        EXPECT_EQ(std::set<std::string>(all().begin(), all().end()).size(), count) << what;
        for (std::size_t code = 0; code < count; ++code)
            EXPECT_EQ(name(static_cast<std::int64_t>(code)), all()[code]) << what;
        for (auto code : {std::int64_t{-1}, static_cast<std::int64_t>(count), INT64_MIN})
            EXPECT_THROW(name(code), std::out_of_range) << what << " " << code;
    }
}

TEST(HGIndicatorNameProvider, CodesKeepTheirNames) {
    EXPECT_EQ(HGIndicatorNameProvider::nameForCategoryIndicator(0), "default");
    EXPECT_EQ(HGIndicatorNameProvider::nameForCategoryIndicator(20), "brush");
    EXPECT_EQ(HGIndicatorNameProvider::nameForCategoryIndicator(21), "app");
    EXPECT_EQ(HGIndicatorNameProvider::nameForCategoryIndicator(44), "heart");
    EXPECT_EQ(HGIndicatorNameProvider::nameForTaskStatusIndicator(4), "status-in-progress");
    EXPECT_EQ(HGColorNameProvider::nameForColor(7), "red");
}

}  // namespace
}  // namespace corvane
