#include "corvane/bridge/HGTaskProxyModel.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace corvane {
namespace {

TEST(HGTaskProxyModel, AskingBeyondTheLastSectionIsAnError) {
    EXPECT_EQ(HGTaskProxyModel().numberOfSections(), 0u);
    EXPECT_THROW(HGTaskProxyModel().taskProxyListForSection(0), std::out_of_range);
    const auto list = tests::listOf({}, "Starred");
    const HGTaskProxyModel model(HGTaskProxyModel::TaskProxyLists{list});
    EXPECT_EQ(model.taskProxyListForSection(HGTaskProxyModelSectionStarred), list);
    EXPECT_THROW(model.taskProxyListForSection(HGTaskProxyModelSectionDueToday), std::out_of_range);
}

TEST(HGTaskProxyModel, ATaskInTwoListsIsOneTaskAfterReading) {
    const auto task = tests::sampleTask();
    const HGTaskProxyModel model(HGTaskProxyModel::TaskProxyLists{
        tests::listOf({task}, "Starred"), tests::listOf({tests::titledTask("b"), task}, "Today")});
    auto read = tests::reread(model);
    ASSERT_TRUE(read);
    EXPECT_EQ(tests::contentOf(*read), tests::contentOf(model));
    EXPECT_EQ(read->taskProxyListForSection(0)->taskProxyAtIndex(0),
              read->taskProxyListForSection(1)->taskProxyAtIndex(1));
    EXPECT_NE(read->taskProxyListForSection(0)->taskProxyAtIndex(0), task);
}

}  // namespace
}  // namespace corvane
