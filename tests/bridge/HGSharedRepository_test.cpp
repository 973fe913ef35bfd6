#include "corvane/bridge/HGSharedRepository.h"

#include "corvane/platform/Locale.h"
#include "corvane/vocabulary/EXChoiceListSection.h"

#include "tests/support/BridgeSamples.h"
#include "tests/support/ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace corvane {
namespace {

using platform::KeyedArchiver;
using testing::ElementsAre;
using tests::contentOf;
using tests::sampleRepository;
using tests::uri;
using Lines = std::vector<std::string>;

/// One line a section: its title, then "title icon value" of each item.
Lines linesOf(const EXChoiceList& list) {
    const auto text = [](const auto& optional) {
        return optional ? std::string(*optional) : std::string("-");
    };
    Lines lines;
    for (const auto& section : list.sections()) {
        std::string& line = lines.emplace_back(text(section->title()));
        for (const auto& item : section->items())
            line += " | " + text(item->title()) + " " + std::to_string(item->iconIndex()) + " " +
                    text(item->value().text());
    }
    return lines;
}

TEST(HGSharedRepository, OffersCategoriesAndProjectsInTheirOrder) {
    for (const auto& [language, noCategory, noProject] :
         {std::tuple{"en", "- | None -1 -", "- | None -1 General"},
          std::tuple{"de", "- | Keine -1 -", "- | Keines -1 General"}}) {
        platform::ScopedLanguages scope({language});
        const auto repository = sampleRepository();
        const auto projects = repository->allProjectProxiesChoiceList();
        EXPECT_THAT(linesOf(*repository->allCategoryProxiesChoiceList()),
                    ElementsAre(noCategory, "- | Work 0 Work | Home 144 Home"));
        EXPECT_THAT(linesOf(*projects),
                    ElementsAre(noProject, "Empty", "House | Kitchen 0 Kitchen | Garden 97 Garden",
                                "- | Kitchen 0 Kitchen"));
        EXPECT_EQ(repository->allProjectProxiesChoiceList(), projects) << "made once";
    }
}

TEST(HGSharedRepository, EmptyAndAbsentCollectionsServeAlike) {
    platform::ScopedLanguages scope({"en"});
    const auto absent = tests::foreignRecord<HGSharedRepository>();
    const auto empty = std::make_shared<HGSharedRepository>();
    ASSERT_TRUE(absent);
    EXPECT_TRUE(!absent->taskProxies() && empty->taskProxies());
    for (const auto& repository : {absent, empty}) {
        EXPECT_EQ(linesOf(*repository->allCategoryProxiesChoiceList()),
                  (Lines{"- | None -1 -", "-"}));
        EXPECT_EQ(linesOf(*repository->allProjectProxiesChoiceList()),
                  (Lines{"- | None -1 -", "-"}));
        EXPECT_TRUE(repository->taskProxiesForURIRepresentations({uri("Task/p1")}).empty());
        EXPECT_EQ(repository->categoryProxyNamed("Home"), nullptr);
        EXPECT_EQ(repository->createTaskProxyForInsertion()->projectName(), std::nullopt);
        EXPECT_EQ(contentOf(tests::reread(*repository)), contentOf(repository));
    }
}

TEST(HGSharedRepository, FindsRecordsByURIAndByExactName) {
    auto repository = sampleRepository();
    const auto first = repository->taskProxies()->at(uri("Task/p1"));
    const auto second = repository->taskProxies()->at(uri("Task/p2"));
    EXPECT_THAT(repository->taskProxiesForURIRepresentations(
                    {uri("Task/p2"), uri("Gone/p1"), uri("Task/p1"), uri("Task/p2")}),
                ElementsAre(second, first, second));
    EXPECT_THAT(repository->projectProxiesForURIRepresentations(
                    {uri("Project/p0"), uri("Project/p3"), uri("Task/p1")}),
                ElementsAre(repository->projectProxies()->at(uri("Project/p3"))))
        << "the general project is kept apart";

    EXPECT_EQ(repository->categoryProxyNamed("Home")->uriRepresentation(), uri("Category/p1"));
    EXPECT_EQ(repository->projectProxyNamed("Kitchen")->uriRepresentation(), uri("Project/p2"))
        << "of two, the one whose URI comes first";
    for (const char* name : {"home", "Hóme", "Hom", "", "kitchen", "General"}) {
        EXPECT_EQ(repository->categoryProxyNamed(name), nullptr) << name;
        EXPECT_EQ(repository->projectProxyNamed(name), nullptr) << name;
    }
    const auto inserted = repository->createTaskProxyForInsertion();
    EXPECT_EQ(inserted->status(), 0) << "the inbox";
    EXPECT_EQ(inserted->projectName(), "General");
    repository.reset();
    EXPECT_EQ(contentOf(first), contentOf(tests::sampleTask())) << "records outlive the repository";
}

// The default repository outlives a test, so what replaces it runs in a process of its own.
TEST(HGSharedRepository, TheDefaultOneStaysUntilOneIsRestored) {
    tests::ScopedContainer container;
    const std::string path = container.directory / "shared-repository.archive";
    ASSERT_TRUE(sampleRepository()->saveInSharedContainer());
    const auto archiveInItsPlace = [&](const EXValue& root) {
        EXPECT_FALSE(KeyedArchiver::archiveToFile(root, path));
    };
    const std::function<void()> obstacles[] = {
        [&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1); },
        [&] { archiveInItsPlace(tests::sampleTask()); }, [&] { archiveInItsPlace("text"); },
        [&] { std::filesystem::remove(path); }, [&] { std::filesystem::create_directory(path); }};
    const auto testRestoring = [&] {
        const auto restore = &HGSharedRepository::restoreDefaultRepositoryFromSharedContainer;
        EXPECT_EQ(contentOf(HGSharedRepository::defaultRepository()),
                  contentOf(HGSharedRepository()))
            << "nothing is read by itself";
        EXPECT_TRUE(restore());
        const auto restored = HGSharedRepository::defaultRepository();
        EXPECT_EQ(contentOf(restored), contentOf(sampleRepository()));
        for (const auto& putInTheWay : obstacles) {
            putInTheWay();
            EXPECT_FALSE(restore());
            EXPECT_EQ(HGSharedRepository::defaultRepository(), restored);
        }
        EXPECT_FALSE(restored->saveInSharedContainer()) << "onto a directory";
        return testing::Test::HasFailure() ? 1 : 0;
    };
    EXPECT_EQ(tests::runInChild(testRestoring), 0);
}

}  // namespace
}  // namespace corvane
