#include "corvane/bridge/HGTaskProxyList.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

using tests::contentOf;

TEST(HGTaskProxyList, GivesTheTaskAtAnIndexOrNone) {
    const auto first = tests::titledTask("first"), second = tests::titledTask("second");
    const HGTaskProxyList list(HGTaskProxyList::TaskProxies{first, second});
    EXPECT_EQ(list.count(), 2u);
    EXPECT_EQ(list.taskProxyAtIndex(0), first);
    EXPECT_EQ(list.taskProxyAtIndex(1), second);
    using Limits = std::numeric_limits<std::int64_t>;
    for (std::int64_t index :
         {std::int64_t{-1}, std::int64_t{2}, std::int64_t{7}, Limits::min(), Limits::max()})
        EXPECT_EQ(list.taskProxyAtIndex(index), nullptr) << index;
    EXPECT_EQ(HGTaskProxyList().taskProxyAtIndex(0), nullptr);
}

TEST(HGTaskProxyList, ComesBackFromAnArchive) {
    const auto full = tests::listOf({tests::titledTask("a"), tests::titledTask("b")}, "Inbox");
    full->setTitle("Eingang");
    for (const auto& list : {full, std::make_shared<HGTaskProxyList>()})
        EXPECT_EQ(contentOf(tests::reread(*list)), contentOf(list));
    EXPECT_EQ(contentOf(HGTaskProxyList()), tests::listed(std::nullopt, std::nullopt) + "[\n]");
}

}  // namespace
}  // namespace corvane
