#include "corvane/bridge/EXCloudContainer.h"
#include "corvane/bridge/EXDevice.h"
#include "corvane/bridge/HGImportExtensionHandler.h"
#include "corvane/bridge/HGLocation.h"
#include "corvane/bridge/NXEnvironment.h"
#include "corvane/bridge/WatchExchange.h"
#include "corvane/platform/Bookmark.h"
#include "corvane/platform/CloudContainer.h"
#include "corvane/platform/ComputerName.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileItemProvider.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/MainBundle.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using platform::URL;

/// Conforms to nothing and loads all the same, on the caller's thread.
struct AnyProvider final : platform::ItemProvider {
    explicit AnyProvider(EXValue loaded) : item(std::move(loaded)) {}
    bool hasItemConformingToTypeIdentifier(std::string_view) const override { return false; }
    void loadItemForTypeIdentifier(std::string_view, LoadHandler done) override { done(item, {}); }
    EXValue item;
};

TEST(HGImportExtensionHandler, ReportsEveryFailedCheckAndGoesOn) {
    tests::TemporaryDirectory files;
    const std::string content(100'000, 'x');
    const platform::TypesByExtension types{{"cvbx", "org.corvane.backup"}};
    const auto good = URL::fileURLWithPath(files.write("good.CVBX", content));
    const auto other = URL::fileURLWithPath(files.write("other.txt", content));
    const URL missing("file:///missing.cvbx"), remote("https://example.org/good.cvbx");
    // Whether the provider is a file's, and conforms; its item, and whether that is copied.
    const std::tuple<bool, bool, EXValue, std::optional<bool>> cases[] = {
        {true, true, good, true},       {true, true, missing, {}},     {true, false, other, {}},
        {false, false, missing, false}, {false, false, remote, false}, {false, false, "text", {}},
        {false, false, other, true},    {false, false, nullptr, {}}};
    for (int matrix = 0; matrix < 8 * 16; ++matrix) {
        const auto& [isFile, conforms, item, copies] = cases[matrix / 16];
        tests::ScopedContainer container;
        platform::RecordingConsole console;
        platform::ScopedConsole inForce(console);
        const auto target = container.directory / "imported-backup.cvbx";
        if (matrix / 4 % 4 == 1) container.directory.write("imported-backup.cvbx", "earlier");
        if (matrix / 4 % 4 == 2) std::filesystem::create_symlink(*other.path(), target);
        if (matrix / 4 % 4 == 3) std::filesystem::create_directories(target + "/in");
        auto expected = container.directory.content();
        std::vector<bool> answers, expectedAnswers((matrix & 1) + (matrix >> 1 & 1) + !conforms);
        platform::ExtensionContext context{{{{std::make_shared<AnyProvider>(item)}}}};
        auto& provided = context.inputItems[0].attachments;
        if (isFile) provided[0] = std::make_shared<platform::FileItemProvider>(*item.url(), types);
        if (matrix & 1) provided.push_back(nullptr);
        if (matrix & 2) context.inputItems.push_back({});
        const auto completion = [&](bool success) { answers.push_back(success); };
        HGImportExtensionHandler().importWithExtensionContext(context, completion);
        context = {};  // waits for the file
        if (copies) {
            expectedAnswers.push_back(*copies);
            expected.clear();
            if (*copies) expected["imported-backup.cvbx"] = content;
            EXPECT_EQ(console.lines().at(1), "==> INFO: Shared url = 'file://" + target + "'");
        }
        EXPECT_EQ(console.lines().at(0).find("### COMPLETION: Loaded item "), 0u);
        EXPECT_EQ(answers, expectedAnswers) << console.lines().at(0);
        EXPECT_EQ(container.directory.content(), expected) << console.lines().at(0);
    }
    EXPECT_EQ(files.content().at("other.txt"), content);  // where the link led
    EXPECT_THROW(HGImportExtensionHandler().importWithExtensionContext({}, {}), std::out_of_range);
}

TEST(WatchExchange, BringsTheSnapshotOverAndCompletesTasks) {
    tests::ScopedContainer phone;
    const auto answerTo = [](const HGWatchMessage& message) {
        return answerToWatch(message, [](const URL& task) { return task == tests::uri("known"); });
    };
    EXPECT_FALSE(succeeded(answerTo(sharedInfoRequest())));
    ASSERT_TRUE(tests::sampleInfo().writeToSharedContainer());
    auto answer = answerTo(sharedInfoRequest());
    tests::ScopedContainer watch;
    HGTaskProxyManager manager;
    EXPECT_TRUE(succeeded(answer) && takeSharedInfo(answer, manager));
    answer.items[HGWatchMessageKeySharedInfoData] = platform::Bytes(9);
    EXPECT_FALSE(takeSharedInfo(answer, manager) || takeSharedInfo({}, manager));
    EXPECT_EQ(watch.directory.content(), phone.directory.content());
    EXPECT_EQ(manager.badgeValues(), tests::sampleInfo().badgeValues());
    for (const char* name : {"known", "other"})
        EXPECT_EQ(succeeded(answerTo(taskCompletionRequest(tests::uri(name)))), *name == 'k');
}

TEST(EXDevice, ABookmarkFollowsItsFile) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"touch a/b/other; echo new > a/b/f", "a/b/f", false},
        {"mv a/b/f 'a/b/g h'", "a/b/g h", true},
        {"mv a/b/f c/d/; mv c e", "e/d/f", true},
        {"mv a/b/f a/b/f~; touch a/b/f", "a/b/f", true},
        {"mv a/b/f f; mkdir a/b/f", "f", true},
        {"rm -r a", nullptr, false}};
    for (const auto& [change, found, isStale] : cases) {
        tests::TemporaryDirectory root;
        const std::string enter = "cd " + root.path() + "; ";
        ASSERT_EQ(std::system((enter + "mkdir -p a/b c/d; touch a/b/f").c_str()), 0);
        const auto bookmark = EXDevice::secureBookmarkFromURL(URL::fileURLWithPath(root / "a/b/f"));
        ASSERT_EQ(std::system((enter + change).c_str()), 0);
        std::optional<URL> handled;
        bool stale = !isStale;
        const auto handler = [&](const URL& file) { handled = file; };
        EXPECT_EQ(EXDevice::accessSecureBookmark(bookmark.value(), handler, &stale), handled);
        EXPECT_EQ(handled ? handled->path() : "", found ? root / found : "") << change;
        EXPECT_EQ(stale, isStale) << change;
    }
    EXPECT_FALSE(EXDevice::needsSecureBookmarkForURL(URL("FILE:///")));
    const auto bookmark = EXDevice::secureBookmarkFromURL(URL("file:///")).value();
    for (std::size_t i = 0; i < bookmark.size(); ++i) {
        auto damaged = bookmark;
        damaged[i] ^= std::byte{0x91};
        EXDevice::accessSecureBookmark(damaged, {});  // whatever it gives
        EXPECT_FALSE(EXDevice::accessSecureBookmark(std::span(damaged).first(i), {}));
    }
    const std::pair<EXValue, int> refused[] = {
        {platform::ValueMap{{{"version", 2}}}, 2},
        {platform::ValueMap{{{"version", 1}, {"url", URL("file:///")}, {"inode", 1}}}, 1},
        {platform::ValueMap{
             {{"version", 1}, {"url", URL("file:relative")}, {"inode", 1}, {"isDirectory", false}}},
         1},
        {"version", 1}};
    for (const auto& [content, code] : refused) {
        platform::Error error;
        const auto data = platform::KeyedArchiver::archivedData(content).value();
        EXPECT_FALSE(platform::resolveBookmark(data, &error));
        EXPECT_EQ(std::pair(error.domain, error.code), std::pair(std::string("bookmark"), code));
    }
}

TEST(NXEnvironment, TellsVersionCloudAndName) {
    tests::TemporaryDirectory directory;
    platform::ScopedMainBundle bundle(directory.path());
    const std::tuple<const char*, int, int, int> versions[] = {
        {"4.2", 4, 2, 0}, {"5", 5, 0, 0}, {".7b.x.9", 0, 7, 0}, {"x.2.-3", 0, 2, -3}};
    for (const auto& [version, major, minor, build] : versions) {
        directory.write("Info.strings", std::string("CFBundleVersion = ") + version);
        EXPECT_EQ(NXEnvironment::applicationMajorVersionNumber(), major) << version;
        EXPECT_EQ(NXEnvironment::applicationMinorVersionNumber(), minor) << version;
        EXPECT_EQ(NXEnvironment::applicationBuildVersionNumber(), build) << version;
    }
    for (const auto& [number, code] : {std::pair(EXValue(1), 2), {2, 1}, {"2", 2}}) {
        platform::setCloudContainerEnvironment([value = number] { return value; });
        EXCloudContainer::resetEnvironment();
        EXPECT_EQ(EXCloudContainer::environment(), code);
        platform::setCloudContainerEnvironment(nullptr);
        EXPECT_EQ(EXCloudContainer::environment(), code);  // not asked again
    }
    EXPECT_EQ(platform::prettyHostName(" PRETTY_HOSTNAME=\"\\\"ü' b\"\r\n#\n"), "\"ü' b");
    for (std::int16_t alert = 0; alert < 6; ++alert)
        EXPECT_EQ(HGLocation("id", {}, {}, -13.5, {}, alert).alert(), alert < 4 ? alert : 0);
}

}  // namespace
}  // namespace corvane
