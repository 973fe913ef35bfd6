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

}  // namespace
}  // namespace corvane
