// The form of a task in the controls' detail form, with its own alerts.

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/DetailModelController.h"
#include "corvane/platform/Console.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

#include "apps/cli/FormText.h"

#include "tests/apps/TaskFixture.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

struct TaskInForm : TaskFixture {
    struct : platform::Console {
        void writeLine(std::string_view) override {}
    } silence;
    platform::ScopedConsole console{silence};
    std::shared_ptr<DetailModelController> controller = DetailModelController::make(model);
    std::shared_ptr<CVMacDetailForm> form = CVMacDetailForm::make(controller);
    views::Window window{{600, 500}};
    int closed = 0;

    void show(std::optional<backup::URL> uri) {
        form->didClose = [this] { ++closed; };
        model->setUriRepresentation(std::move(uri));
        window.setContentView(form);
    }
    std::shared_ptr<views::View> view(const char* field) {
        const auto path = *fieldNamed(*model, field);
        return form->viewForField(path.row(), path.section);
    }
    std::string shown(const char* field) { return view(field)->accessibilityValue(); }
    void enter(const char* field, const char* text) {
        window.makeFirstResponder(view(field));
        window.fieldEditor().setText(text);
        window.keyDown(views::KeyEvent(views::kKeyTab));
    }
};

TEST_F(TaskInForm, IsEditedSavedAndLeftAsItWas) {
    show(backup::URL("t:1"));
    EXPECT_EQ(shown("title") + "/" + shown("status") + "/" + shown("priority") + "/" + shown("due"),
              "Pay/Inbox/Medium/Mar 20, 2026");
    auto& task = document->tasks[0];
    enter("title", "Pay him");
    enter("due", "3/6/2026");
    enter("customRepeatInterval", "12");
    view("starred")->accessibilityPress();
    window.makeFirstResponder(view("priority"));
    window.keyDown(views::KeyEvent(std::string("c")));
    EXPECT_TRUE(task.titleRaw == "Pay him" && task.starredRaw);
    EXPECT_EQ(task.priorityRaw, 4);
    EXPECT_EQ(task.dueRaw, EXDateOnly(2026, 3, 6));
    form->performCancel();
    EXPECT_TRUE(task.titleRaw == "Pay" && !task.starredRaw);
    EXPECT_EQ(task.dueRaw, EXDateOnly(2026, 3, 20));

    enter("title", "  ");
    ASSERT_NE(window.sheet(), nullptr);
    EXPECT_EQ(window.sheet()->informativeText, "a task needs a title");
    EXPECT_EQ(shown("title"), "Pay");
    window.endSheet(1000);
    enter("notes", "one\ntwo");
    form->performOk();
    EXPECT_EQ(closed, 2);
    EXPECT_EQ(task.notes, "one\ntwo");
}

TEST_F(TaskInForm, IsNewAndInvalid) {
    show(std::nullopt);
    EXPECT_EQ(form->accessibilityName(), "New Task");
    form->performOk();
    EXPECT_EQ(closed, 0) << "without a title";
    window.endSheet(1000);
    enter("title", "Buy milk");
    form->performOk();
    EXPECT_EQ(closed, 1);
    ASSERT_EQ(document->tasks.size(), 2u);
    EXPECT_EQ(document->tasks[1].titleRaw, "Buy milk");
    model->setUriRepresentation(backup::URL("t:none"));
    EXPECT_EQ(closed, 2);
    form->reload();
    EXPECT_FALSE(view("title")->accessibilityEnabled());
}

}  // namespace
}  // namespace corvane::cli
