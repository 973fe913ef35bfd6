#include "corvane/formats/EXFileItemsOverviewModel.h"

#include "corvane/formats/HGCorvaneBackupManager.h"
#include "corvane/platform/Console.h"
#include "corvane/testing/OverviewModelConformance.h"
#include "corvane/testing/OverviewModelRecorder.h"

#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::tests {
using namespace platform;
using corvane::testing::OverviewModelConformance;
using corvane::testing::OverviewModelRecorder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::shared_ptr<EXFileItemsOverviewModel> modelOf(const std::string& path) {
    return std::make_shared<EXFileItemsOverviewModel>(URL::fileURLWithPath(path));
}

std::vector<std::string> namesIn(const EXFileItemsOverviewModel& model) {
    std::vector<std::string> names;
    for (const auto& path : model.indexPathsForAllObjects())
        names.push_back(model.titleForObjectAtIndexPath(path).value());
    return names;
}

TEST(EXFileItemsOverviewModel, ListsEveryEntryInTheOrderAskedFor) {
    const TemporaryDirectory directory;
    using Time = std::filesystem::file_time_type;
    const std::string backup = backupFileName("2024-03-05"), stray = "50% #1?.txt";
    int hours = 0;
    for (const auto& name : {backup, stray, std::string(".hidden"), std::string("sub")}) {
        if (name == "sub")
            std::filesystem::create_directory(directory / name);
        else
            directory.write(name, "");
        std::filesystem::last_write_time(directory / name, Time(std::chrono::hours(++hours % 3)));
    }
    const auto model = modelOf(directory.path());
    const std::pair<EXSortDescriptors, std::vector<std::string>> cases[] = {
        {{{"fileName"}}, {".hidden", stray, "Corvane-Backup-2024-03-05.cvbx", "sub"}},
        {{{"url", false}}, {"sub", backup, stray, ".hidden"}},
        {{{"modified", false}, {"fileName", true}}, {stray, backup, "sub", ".hidden"}},
        {{{"unknown"}, {"modified"}, {"fileName", false}}, {".hidden", "sub", backup, stray}},
    };
    for (const auto& [descriptors, names] : cases) {
        model->setSortDescriptors(descriptors);
        model->reloadData();
        EXPECT_EQ(namesIn(*model), names);
    }
    model->setSortDescriptors(EXSortDescriptors{{std::string(EXFileItemCreatedKey), false}});
    model->reloadData();
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_LE(model->fileItems()[i]->created(), model->fileItems()[i - 1]->created());
    EXPECT_EQ(*model->uriRepresentationForObjectAtIndexPath({7, 0}), model->fileItems()[0]->url());
    EXPECT_THROW(model->objectAtIndexPath({0, 4}), std::out_of_range);
    EXPECT_THROW(model->deleteObjectAtIndexPath({0, -1}), std::out_of_range);
}

TEST(EXFileItemsOverviewModel, ConformsAndMakesItsDirectory) {
    const TemporaryDirectory directory;
    RecordingConsole console;
    const ScopedConsole scope(console);
    auto model = modelOf(directory / "Backups");
    OverviewModelConformance conformance(model);
    conformance.checkAll();
    EXPECT_TRUE(std::filesystem::is_directory(directory / "Backups"));
    for (const auto name : {"Backups/a", "Backups/b", "Backups/c"})
        directory.write(name, "");
    conformance.checkAll();
    conformance.checkPreload(std::make_shared<int>());

    for (const auto& place : {directory / "no/Backups", directory / "Backups/a"}) {
        model->setDirectoryUrl(URL::fileURLWithPath(place));
        conformance.checkFailingReload();
        EXPECT_EQ(model->error()->code, place.ends_with("a") ? EEXIST : ENOENT);
    }
    EXPECT_THAT(console.lines(), ElementsAre("ERROR: Could not auto-create 'Backups' directory",
                                             "ERROR: Could not auto-create 'Backups' directory"));
    model->setDirectoryUrl(URL::fileURLWithPath(directory / "Backups"));
    conformance.checkReload();
    model->setDirectoryUrl({});
    std::optional<Error> error;
    EXPECT_TRUE(!model->loadData(error) && !error && model->fileItems().size() == 3);
    conformance.checkFailingReload();
    EXPECT_TRUE(!model->error() && model->isEmpty());
    EXPECT_THAT(conformance.findings(), IsEmpty());
}

TEST(EXFileItemsOverviewModel, DeletesFilesAndKeepsWhatItCannotDelete) {
    const TemporaryDirectory directory;
    for (const auto name : {"a", "b", "c"})
        directory.write(name, "");
    const auto model = modelOf(directory.path());
    model->setSortDescriptors(EXSortDescriptors{{"fileName"}});
    model->reloadData();
    RecordingConsole console;
    const ScopedConsole scope(console);
    OverviewModelRecorder recorder(model);
    const EXObject c = model->objectAtIndexPath({0, 2});
    EXPECT_TRUE(model->canDeleteObjectAtIndexPath({0, 0}));
    model->deleteObjectAtIndexPath({0, 0});
    std::filesystem::remove(directory / "b");
    model->deleteObjectAtIndexPath({0, 0});
    directory.write("d", "");
    const auto d = std::make_shared<EXFileItem>(URL::fileURLWithPath(directory / "d"));
    model->insertFileItem(d, {0, 2});
    EXPECT_THROW(model->insertFileItem(d, {0, 4}), std::out_of_range);
    EXPECT_THAT(recorder.events(), ElementsAre("removed 0/0", "inserted 0/2"));
    EXPECT_THAT(namesIn(*model), ElementsAre("b", "c", "d"));
    EXPECT_EQ(model->indexPathOfObjectInSection(c, 4), (IndexPath{4, 1}));
    EXPECT_THAT(console.lines(),
                ElementsAre(StartsWith("ERROR: Could not delete backup file: cannot remove '")));
    EXPECT_EQ(directory.content().size(), 2u);
    const std::shared_ptr<EXFileItem> gone = model->fileItemAtIndexPath({0, 0});
    EXPECT_TRUE(!gone->created() && !gone->modified() && gone->fileName() == "b");
    const EXFileItem nowhere;
    EXPECT_TRUE(!nowhere.fileName() && nowhere.valueForKey(EXFileItemModifiedKey).isNull());
}

}  // namespace corvane::tests
