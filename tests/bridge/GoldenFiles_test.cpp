// The container's files as this version writes them, byte for byte. A difference is a change of
// the file format: other programs hold such files, so it must be meant. After a meant change,
// run bridge_tests with CORVANE_UPDATE_GOLDEN=1 in its environment and look at what it changed.
#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Files.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace corvane {
namespace {

using tests::contentOf;

constexpr platform::Instant kMoment{std::chrono::microseconds(1'709'647'629'123'457)};

template <class Write, class Check>
void expectGolden(const std::string& name, const std::string& entry, Write write, Check check) {
    const platform::FixedClock clock(kMoment);
    platform::ScopedClock clockScope(clock);
    tests::ScopedContainer container;
    std::filesystem::create_directory(container.directory / "insert-queue");
    ASSERT_TRUE(write());
    const std::string written = container.directory / entry;
    const std::string golden = std::string(CORVANE_GOLDEN_DIR) + "/" + name + ".archive";
    if (std::getenv("CORVANE_UPDATE_GOLDEN"))
        std::filesystem::copy_file(written, golden,
                                   std::filesystem::copy_options::overwrite_existing);
    const auto expected = platform::readFile(golden);
    ASSERT_TRUE(expected) << golden;
    EXPECT_TRUE(platform::readFile(written) == expected) << "no longer the bytes of " << golden;
    const auto root = platform::KeyedUnarchiver::unarchiveFile(golden, sharedArchiveClasses());
    ASSERT_TRUE(platform::KeyedArchiver::archivedData(root) == expected) << "not written again";
    check(root);
}

// clang-format off
TEST(GoldenFiles, AreWrittenAndReadAndWrittenAgain) {
    const auto repository = tests::sampleRepository();
    expectGolden("repository", "shared-repository.archive", [&] { return repository->saveInSharedContainer(); },
        [&](const EXValue& root) { EXPECT_EQ(contentOf(root.objectAs<HGSharedRepository>()), contentOf(repository)); });
    const auto info = tests::sampleInfo();
    expectGolden("shared-info", "shared-info.archive", [&] { return info.writeToSharedContainer(); },
        [&](const EXValue& root) { EXPECT_EQ(contentOf(HGSharedInfo::withDictionary(root)), contentOf(info)); });
    const HGInsertQueue::TaskProxies tasks{tests::sampleTask(), std::make_shared<HGTaskProxy>(), tests::titledTask("$null")};
    expectGolden("batch", "insert-queue/task-proxies-2024-03-05-14h07m09s123.archive", [&] { return HGInsertQueue().addTaskProxies(tasks); },
        [&](const EXValue& root) {
            HGInsertQueue::TaskProxies read;
            for (const auto& item : root.list()->items) read.push_back(item.objectAs<HGTaskProxy>());
            EXPECT_EQ(contentOf(read), contentOf(tasks));
        });
    expectGolden("timestamp", "updated.timestamp", [] { return HGSharedContainer::defaultContainer().touchUpdatedTimestamp(); },
        [](const EXValue& root) { EXPECT_EQ(root, EXValue(kMoment)); });
}
// clang-format on

}  // namespace
}  // namespace corvane
