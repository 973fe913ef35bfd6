// The container's files as this version writes them, byte for byte. A difference is a change of
// the file format: other programs hold such files, so it must be meant. After a meant change,
// run bridge_tests with CORVANE_UPDATE_GOLDEN=1 in its environment and look at what it changed,
// for instance with tests/tools/check_archive.py --json.
#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Files.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

namespace corvane {
namespace {

using tests::contentOf;

constexpr platform::Instant kMoment{std::chrono::microseconds(1'709'647'629'123'457)};

void expectGolden(const std::string& name, const std::string& entry,
                  const std::function<bool()>& write,
                  const std::function<void(const EXValue& root)>& expectContent) {
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
    expectContent(platform::KeyedUnarchiver::unarchiveFile(golden, sharedArchiveClasses()));
}

TEST(GoldenFiles, Repository) {
    const auto repository = tests::sampleRepository();
    const auto write = [&] { return repository->saveInSharedContainer(); };
    expectGolden("repository", "shared-repository.archive", write, [&](const EXValue& root) {
        EXPECT_EQ(contentOf(root.objectAs<HGSharedRepository>()), contentOf(repository));
    });
}

TEST(GoldenFiles, SharedInfo) {
    const auto info = tests::sampleInfo();
    const auto write = [&] { return info.writeToSharedContainer(); };
    expectGolden("shared-info", "shared-info.archive", write, [&](const EXValue& root) {
        EXPECT_EQ(contentOf(HGSharedInfo::withDictionary(root)), contentOf(info));
    });
}

TEST(GoldenFiles, Batch) {
    const HGInsertQueue::TaskProxies tasks{tests::sampleTask(), std::make_shared<HGTaskProxy>(),
                                           tests::titledTask("$null")};
    const auto write = [&] { return HGInsertQueue().addTaskProxies(tasks); };
    const std::string name = "insert-queue/task-proxies-2024-03-05-14h07m09s123.archive";
    expectGolden("batch", name, write, [&](const EXValue& root) {
        ASSERT_TRUE(root.list());
        ASSERT_EQ(root.list()->items.size(), tasks.size());
        for (std::size_t i = 0; i < tasks.size(); ++i)
            EXPECT_EQ(contentOf(root.list()->items[i].objectAs<HGTaskProxy>()),
                      contentOf(tasks[i]));
    });
}

TEST(GoldenFiles, Timestamp) {
    const auto write = [] { return HGSharedContainer::defaultContainer().touchUpdatedTimestamp(); };
    expectGolden("timestamp", "updated.timestamp", write,
                 [](const EXValue& root) { EXPECT_EQ(root, EXValue(kMoment)); });
}

}  // namespace
}  // namespace corvane
