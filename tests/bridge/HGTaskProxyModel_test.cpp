#include "corvane/bridge/HGTaskProxyModel.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace corvane {
namespace {

TEST(HGTaskProxyModel, BeyondTheLastSectionIsAnErrorButBeyondTheLastTaskIsNone) {
    const auto first = tests::titledTask("first"), second = tests::titledTask("second");
    const auto list = tests::listOf({first, second}, "Starred");
    EXPECT_THROW(HGTaskProxyModel().taskProxyListForSection(0), std::out_of_range);
    const HGTaskProxyModel model(HGTaskProxyModel::TaskProxyLists{list});
    EXPECT_EQ(model.taskProxyListForSection(HGTaskProxyModelSectionStarred), list);
    EXPECT_THROW(model.taskProxyListForSection(HGTaskProxyModelSectionDueToday), std::out_of_range);
    using Limits = std::numeric_limits<std::int64_t>;
    const std::pair<std::int64_t, std::shared_ptr<HGTaskProxy>> cases[] = {
        {0, first}, {1, second}, {2, {}}, {-1, {}}, {Limits::min(), {}}, {Limits::max(), {}}};
    for (const auto& [index, task] : cases)
        EXPECT_EQ(list->taskProxyAtIndex(index), task) << index;
}

}  // namespace
}  // namespace corvane
