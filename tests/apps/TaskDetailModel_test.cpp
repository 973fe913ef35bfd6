// The form of a task: every type of field, read, set and refused.

#include "apps/cli/Failure.h"
#include "apps/cli/FormText.h"

#include "tests/apps/TaskFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <set>

namespace corvane::cli {
namespace {

using testing::HasSubstr;

struct TaskForm : TaskFixture {
    std::shared_ptr<EXDetailModelDelegate> delegate = std::make_shared<EXDetailModelDelegate>();
    std::string told;

    TaskForm() {
        delegate->detailModelShowAlertWithTitle = [this](auto&, auto&, auto& message, auto&) {
            told += message;
        };
        delegate->didInvalidateDetailModel = [this](auto&) { told += "invalid"; };
        model->setDelegate(delegate);
    }
    std::string set(const char* field, const std::string& text) {
        const auto path = *fieldNamed(*model, field);
        model->setValueForFieldAtIndexPath(valueFromText(*model, path, text), path);
        return shown(field);
    }
    /// The field's value as JSON has it.
    std::string shown(std::string_view name) {
        const auto json = nlohmann::json::parse(formJson(*model));
        for (const auto& section : json["sections"])
            for (const auto& field : section["fields"])
                if (field["field"] == name) return field["value"].dump();
        return "no field";
    }
};

TEST_F(TaskForm, SetsWhatEveryTypeOfFieldTakes) {
    model->setUriRepresentation(backup::URL("t:1"));
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
    const std::string before = formJson(*model);
    model->saveObject();
    const auto text = backup::textOfBackupDocument(*document, &error);
    ASSERT_TRUE(text) << error.message;
    *document = *backup::parseBackupDocument(*text, "saved", &error);
    EXPECT_EQ(formJson(*model), before);
    EXPECT_EQ(document->projects.size(), 3u);
}

TEST_F(TaskForm, ShowsAllTypesAndWhatCannotBeSet) {
    model->setUriRepresentation(backup::URL("t:1"));
    std::set<std::string> types;
    for (std::int64_t section = 0; section < model->numberOfSections(); ++section)
        for (std::int64_t row = 0; row < model->numberOfFieldsInSection(section); ++row)
            types.insert(*model->typeForFieldAtIndexPath({section, row}));
    EXPECT_EQ(types.size(), 10u);
    const std::string text = formText(*model);
    for (const char* line :
         {"Task\n\nTask\n  title                    Title              Pay\n", "one of Inbox, Some",
          "(Medium)", "House\n", "50 %  [read only]\n", "History\n  userCreated"})
        EXPECT_THAT(text, HasSubstr(line));
    EXPECT_FALSE(fieldNamed(*model, "userModified")) << "of the footer";
    document->tasks[0].projectRaw = backup::URL("p:0");
    EXPECT_EQ(shown("project"), "null") << "the general one is none";
}

TEST_F(TaskForm, AddsANewTaskWhenItIsSaved) {
    model->setTemplateForNewObject(
        {{{"priorityRaw", 3}, {"project", "House"}, {"titleRaw", 7}, {"dueRaw", "soon"}}});
    model->setUriRepresentation(std::nullopt);
    EXPECT_EQ(shown("priority") + shown("project") + shown("title") + shown("due"),
              "3\"House\"nullnull");
    model->saveObject();
    EXPECT_EQ(told, "a task needs a title");
    EXPECT_EQ(document->tasks.size(), 1u);
    set("title", "Buy milk");
    model->saveObject();
    model->saveObject();
    ASSERT_EQ(document->tasks.size(), 2u);
    EXPECT_EQ(document->tasks[1].titleRaw, "Buy milk");
    EXPECT_EQ(document->tasks[1].projectRaw.absoluteString(), "p:1");
    EXPECT_EQ(document->tasks[1].userCreated, clock.now());
    EXPECT_TRUE(model->state() == 1 && model->uriRepresentation() == document->tasks[1].uri);
    EXPECT_EQ(shown("title"), "\"Buy milk\"");
    model->setUriRepresentation(std::nullopt);
    EXPECT_EQ(shown("title"), "null");
}

TEST_F(TaskForm, IsInvalidWithoutItsTask) {
    for (const char* uri : {"t:2", "p:1"}) {
        told.clear();
        model->setUriRepresentation(backup::URL("t:1"));
        model->setUriRepresentation(backup::URL(uri));
        EXPECT_TRUE(told == "invalid" && !model->object() && !model->uriRepresentation()) << uri;
        model->saveObject();
        EXPECT_EQ(shown("title"), "null");
    }
    model->setUriRepresentation(backup::URL("t:1"));
    document->tasks.clear();
    model->setValueForFieldAtIndexPath("x", {0, 0});
    EXPECT_EQ(shown("title"), "null");
}

}  // namespace
}  // namespace corvane::cli
