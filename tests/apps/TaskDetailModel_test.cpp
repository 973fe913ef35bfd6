// The form of a task: every type of field, read, set and refused.

#include "corvane/platform/Clock.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/TimeZone.h"

#include "apps/cli/Failure.h"
#include "apps/cli/FormText.h"
#include "apps/document/BackupFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <set>

namespace corvane::cli {
namespace {

using testing::HasSubstr;

constexpr std::string_view kDocument = R"(<backup version="1">
<projects><project uri="p:0"><nameRaw>No Project</nameRaw><general>true</general></project>
<project uri="p:1"><nameRaw>House</nameRaw></project></projects>
<tasks><task uri="t:1"><titleRaw>Pay</titleRaw><statusRaw>Inbox</statusRaw>
<projectRaw>p:1</projectRaw><actions><action><titleRaw>a</titleRaw><statusRaw>Completed</statusRaw>
</action><action><titleRaw>b</titleRaw></action></actions></task></tasks></backup>)";

struct TaskForm : testing::Test {
    platform::FixedClock clock{platform::Instant(std::chrono::seconds(1'772'700'000))};
    platform::ScopedClock clockScope{clock};
    platform::ScopedTimeZone zone{*platform::TimeZone::named("UTC")};
    platform::ScopedLocale locale{platform::Locale("en_US")};
    platform::ScopedLanguages languages{{"en"}};
    platform::Error error;
    std::shared_ptr<backup::BackupDocument> document = std::make_shared<backup::BackupDocument>(
        *backup::parseBackupDocument(kDocument, "test", &error));
    std::shared_ptr<TaskDetailModel> form = std::make_shared<TaskDetailModel>(document);
    std::shared_ptr<EXDetailModelDelegate> delegate = std::make_shared<EXDetailModelDelegate>();
    std::string told;

    TaskForm() {
        delegate->detailModelShowAlertWithTitle = [this](auto&, auto&, auto& message, auto&) {
            told += message;
        };
        delegate->didInvalidateDetailModel = [this](auto&) { told += "invalid"; };
        form->setDelegate(delegate);
    }
    std::string set(const char* field, const std::string& text) {
        const auto path = *fieldNamed(*form, field);
        form->setValueForFieldAtIndexPath(valueFromText(*form, path, text), path);
        return shown(field);
    }
    /// The field's value as JSON has it.
    std::string shown(std::string_view name) {
        const auto json = nlohmann::json::parse(formJson(*form));
        for (const auto& section : json["sections"])
            for (const auto& field : section["fields"])
                if (field["field"] == name) return field["value"].dump();
        return "no field";
    }
};

TEST_F(TaskForm, SetsWhatEveryTypeOfFieldTakes) {
    form->setUriRepresentation(backup::URL("t:1"));
    struct Case {
        const char* field;
        const char* text;
        const char* value;
    };
    const Case cases[] = {
        {"title", "Pay <him>", R"("Pay <him>")"},
        {"notes", "one\ntwo", R"("one\ntwo")"},
        {"status", "on hold", "5"},
        {"status", "InProgress", "4"},
        {"priority", "Critical", "4"},
        {"starred", "yes", "true"},
        {"starred", "", "null"},
        {"project", "Garden/Beds", R"("Garden/Beds")"},
        {"category", "home", R"("home")"},
        {"contributor", "Ann", R"("Ann")"},
        {"project", "", "null"},
        {"due", "3/6/2026", R"("2026-03-06")"},
        {"reminderTime", "8:30 pm", R"("20:30:00")"},
        {"repeat", "Every Two Weeks", "3"},
        {"customRepeatInterval", "-12", "-12"},
        {"statusChanged", "2026-03-01T10:00:00Z", R"("2026-03-01T10:00:00Z")"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(set(c.field, c.text), c.value) << c.field << " = " << c.text;
    for (auto [field, text] : {std::pair("starred", "maybe"),
                               {"due", "2026-02-30"},
                               {"customRepeatInterval", "2.5"},
                               {"status", "nearly"}})
        EXPECT_THROW(set(field, text), Failure) << field;
    EXPECT_EQ(set("title", " \n"), R"("Pay <him>")");
    EXPECT_EQ(told, "a task needs a title");
    EXPECT_EQ(shown("actionsCompleted"), "0.5");

    // The same after it was saved and read.
    const std::string before = formJson(*form);
    form->saveObject();
    const auto text = backup::textOfBackupDocument(*document, &error);
    ASSERT_TRUE(text) << error.message;
    *document = *backup::parseBackupDocument(*text, "saved", &error);
    EXPECT_EQ(formJson(*form), before);
    EXPECT_EQ(document->projects.size(), 3u);
}

TEST_F(TaskForm, ShowsAllTypesAndWhatCannotBeSet) {
    form->setUriRepresentation(backup::URL("t:1"));
    std::set<std::string> types;
    for (std::int64_t section = 0; section < form->numberOfSections(); ++section)
        for (std::int64_t row = 0; row < form->numberOfFieldsInSection(section); ++row)
            types.insert(*form->typeForFieldAtIndexPath({section, row}));
    EXPECT_EQ(types.size(), 10u);
    const std::string text = formText(*form);
    for (const char* line :
         {"Task\n\nTask\n  title                    Title              Pay\n", "one of Inbox, Some",
          "(Medium)", "House\n", "50 %  [read only]\n", "History\n  userCreated"})
        EXPECT_THAT(text, HasSubstr(line));
    EXPECT_FALSE(fieldNamed(*form, "userModified")) << "of the footer";
    document->tasks[0].projectRaw = backup::URL("p:0");
    EXPECT_EQ(shown("project"), "null") << "the general one is none";
}

TEST_F(TaskForm, AddsANewTaskWhenItIsSaved) {
    form->setTemplateForNewObject(
        {{{"priorityRaw", 3}, {"project", "House"}, {"titleRaw", 7}, {"dueRaw", "soon"}}});
    form->setUriRepresentation(std::nullopt);
    EXPECT_EQ(shown("priority") + shown("project") + shown("title") + shown("due"),
              "3\"House\"nullnull");
    form->saveObject();
    EXPECT_EQ(told, "a task needs a title");
    EXPECT_EQ(document->tasks.size(), 1u);
    set("title", "Buy milk");
    form->saveObject();
    form->saveObject();
    ASSERT_EQ(document->tasks.size(), 2u);
    EXPECT_EQ(document->tasks[1].titleRaw, "Buy milk");
    EXPECT_EQ(document->tasks[1].projectRaw.absoluteString(), "p:1");
    EXPECT_EQ(document->tasks[1].userCreated, clock.now());
    EXPECT_TRUE(form->state() == 1 && form->uriRepresentation() == document->tasks[1].uri);
    EXPECT_EQ(shown("title"), "\"Buy milk\"");
    form->setUriRepresentation(std::nullopt);
    EXPECT_EQ(shown("title"), "null");
}

TEST_F(TaskForm, IsInvalidWithoutItsTask) {
    for (const char* uri : {"t:2", "p:1"}) {
        told.clear();
        form->setUriRepresentation(backup::URL("t:1"));
        form->setUriRepresentation(backup::URL(uri));
        EXPECT_TRUE(told == "invalid" && !form->object() && !form->uriRepresentation()) << uri;
        form->saveObject();
        EXPECT_EQ(shown("title"), "null");
    }
    form->setUriRepresentation(backup::URL("t:1"));
    document->tasks.clear();
    form->setValueForFieldAtIndexPath("x", {0, 0});
    EXPECT_EQ(shown("title"), "null");
}

}  // namespace
}  // namespace corvane::cli
