#include "corvane/views/FieldEditor.h"
#include "corvane/views/ScrollView.h"

#include "tests/qt/HostFixture.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <optional>

using namespace corvane;
using namespace corvane::qt;
using views::Command;
using views::FieldEditor;
using views::Rect;
using views::TextField;

namespace {

struct LiveEditorTest : HostTest, views::TextFieldDelegate {
    void controlTextDidChange(TextField& field) override {
        log += "changed to " + field.stringValue() + "; ";
        if (onChange) onChange(field);
    }
    void controlTextDidEndEditing(TextField& field) override {
        log += "ended with " + field.stringValue() + "; ";
        if (onEnd) onEnd(field);
    }
    bool controlDoCommandBySelector(TextField&, FieldEditor& editor, Command command) override {
        asked = command;
        selection = {editor.selectionStart(), editor.selectionEnd()};
        return command == taken;
    }
    template <class T = TextField>
    std::shared_ptr<T> addField(const Rect& frame, const char* text) {
        auto field = add<T>(frame);
        field->setStringValue(text);
        field->setDelegate(self);
        return field;
    }
    QLineEdit& line() { return dynamic_cast<QLineEdit&>(*host.liveEditor()); }
    std::string takeLog() { return std::exchange(log, ""); }

    std::shared_ptr<TextFieldDelegate> self{std::make_shared<int>(), this};
    std::string log;
    std::optional<Command> taken, asked;
    std::pair<std::size_t, std::size_t> selection;
    std::function<void(TextField&)> onChange;
    std::function<void(TextField&)> onEnd;
};

}  // namespace

TEST_F(LiveEditorTest, EditsTheFieldInFocus) {
    const auto a = addField({10, 10, 100, 24}, "Äpfel");
    const auto b = addField({10, 50, 100, 24}, "b");
    a->setNextKeyView(b);
    show();
    host.viewWindow().makeFirstResponder(a);
    ASSERT_TRUE(line().hasFocus());
    EXPECT_TRUE(host.viewWindow().isActive());
    EXPECT_EQ(line().selectedText(), "Äpfel");
    press(Qt::Key_X, "x");
    press(Qt::Key_unknown, "ß");
    EXPECT_EQ(takeLog(), "changed to x; changed to xß; ");
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("漢"));
    QApplication::sendEvent(&line(), &composed);
    EXPECT_EQ(a->stringValue(), "xß漢");
    line().undo();
    EXPECT_EQ(a->stringValue(), "Äpfel");
    line().setCursorPosition(3);
    takeLog();
    press(Qt::Key_Left);
    EXPECT_EQ(asked, Command::MoveLeft);
    press(Qt::Key_Backspace);
    EXPECT_EQ(takeLog(), "changed to Äfel; ");
    press(Qt::Key_Tab, "\t");
    EXPECT_EQ(takeLog(), "ended with Äfel; ");
    EXPECT_EQ(line().text(), "b");
    EXPECT_TRUE(line().hasFocus());
    click({190, 90});
    EXPECT_TRUE(line().hasFocus()) << "a click on nothing leaves the editing alone";
    host.viewWindow().makeFirstResponder(nullptr);
    EXPECT_EQ(host.liveEditor(), nullptr);
    EXPECT_TRUE(host.hasFocus());
}

TEST_F(LiveEditorTest, AsksTheDelegateBeforeItActs) {
    const auto field = addField({10, 10, 100, 24}, "aß");
    show();
    host.viewWindow().makeFirstResponder(field);
    line().setCursorPosition(2);
    const std::pair<int, Command> kCases[] = {
        {Qt::Key_Return, Command::InsertNewline},
        {Qt::Key_Enter, Command::InsertNewline},
        {Qt::Key_Tab, Command::InsertTab},
        {Qt::Key_Backtab, Command::InsertBacktab},
        {Qt::Key_Escape, Command::CancelOperation},
        {Qt::Key_Up, Command::MoveUp},
        {Qt::Key_Backspace, Command::DeleteBackward},
        {Qt::Key_Left, Command::MoveLeft},
    };
    for (const auto& [key, command] : kCases) {
        taken = command;
        press(key);
        EXPECT_EQ(asked, command);
        EXPECT_EQ(selection, std::pair(std::size_t{3}, std::size_t{3})) << "in bytes";
        EXPECT_EQ(line().text(), "aß");
        EXPECT_EQ(line().cursorPosition(), 2);
    }
    taken = std::nullopt;
    press(Qt::Key_Escape);
    EXPECT_EQ(asked, Command::Complete);
    QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Escape, {});
    shortcut.ignore();
    QApplication::sendEvent(&line(), &shortcut);
    EXPECT_TRUE(shortcut.isAccepted());
}

TEST_F(LiveEditorTest, TakesWhatTheProgramSets) {
    const auto field = addField({10, 10, 100, 24}, "");
    show();
    host.viewWindow().makeFirstResponder(field);
    onChange = [](TextField& changed) {
        if (changed.stringValue() == "ü") changed.setStringValue("über");
        changed.window()->fieldEditor().setSelection(2, 5);
        changed.window()->host().editedTextDidChange(changed);
    };
    press(Qt::Key_unknown, "ü");
    EXPECT_EQ(line().text(), "über");
    EXPECT_EQ(line().selectedText(), "ber");
    onChange = [](TextField& changed) { changed.window()->makeFirstResponder(nullptr); };
    press(Qt::Key_X, "x");
    EXPECT_EQ(host.liveEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "üx");
    host.viewWindow().makeFirstResponder(field);
    field->removeFromSuperview();
    EXPECT_EQ(host.liveEditor(), nullptr);
    EXPECT_TRUE(host.hasFocus());
}

TEST_F(LiveEditorTest, EditsParagraphs) {
    const auto field = addField<views::TextView>({10, 10, 100, 60}, "one");
    show();
    host.viewWindow().makeFirstResponder(field);
    auto& edit = dynamic_cast<QPlainTextEdit&>(*host.liveEditor());
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    press(Qt::Key_Return, "", Qt::ShiftModifier);
    press(Qt::Key_X, "x");
    EXPECT_EQ(field->stringValue(), "one\n\nx");
    press(Qt::Key_Up);
    EXPECT_EQ(edit.textCursor().position(), 4) << "the widget's own matter";
    taken = Command::InsertNewline;
    press(Qt::Key_Return);
    EXPECT_EQ(field->stringValue(), "one\n\nx");
    edit.selectAll();
    edit.cut();
    EXPECT_EQ(field->stringValue(), "");
    edit.paste();
    EXPECT_EQ(field->stringValue(), "one\n\nx");
}

TEST_F(LiveEditorTest, ChangesNothingThatNobodyTyped) {
    const auto line = addField({10, 10, 100, 24}, "");
    const auto paragraph = addField<views::TextView>({10, 40, 100, 50}, "");
    const std::string lengthy(40000, 'a');
    show();
    const std::pair<std::shared_ptr<TextField>, std::string> kCases[] = {
        {line, lengthy}, {paragraph, "a\u00a0b\nc"}};
    for (const auto& [field, text] : kCases) {
        field->setStringValue(text);
        host.viewWindow().makeFirstResponder(field);
        field->window()->fieldEditor().setSelection(text.size(), text.size());
        field->window()->host().editedTextDidChange(*field);
        press(Qt::Key_X, "x");
        EXPECT_TRUE(field->stringValue() == text + "x") << field->stringValue().size();
    }
}

TEST_F(LiveEditorTest, KeepsWhatIsBeingComposed) {
    const auto line = addField({10, 10, 100, 24}, "a");
    const auto paragraph = addField<views::TextView>({10, 40, 100, 50}, "a");
    show();
    for (const auto& field : {line, std::shared_ptr<TextField>(paragraph)}) {
        host.viewWindow().makeFirstResponder(field);
        press(Qt::Key_End);
        QInputMethodEvent composing(QString::fromUtf8("か"), {});
        QApplication::sendEvent(host.liveEditor(), &composing);
        EXPECT_EQ(takeLog(), "");
        host.viewWindow().makeFirstResponder(nullptr);
        EXPECT_EQ(takeLog(), "changed to aか; ended with aか; ");
        host.viewWindow().makeFirstResponder(field);
        host.viewWindow().makeFirstResponder(nullptr);
        EXPECT_EQ(takeLog(), "ended with aか; ");
    }
}

TEST_F(LiveEditorTest, SharesTheFocusWithOtherWidgets) {
    QWidget window;
    QWidget before(&window);
    host.setParent(&window);
    QWidget other(&window);
    for (auto* widget : {&before, &other})
        widget->setFocusPolicy(Qt::StrongFocus);
    const auto field = addField({10, 10, 100, 24}, "a");
    const auto view = add({10, 50, 100, 24});
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    for (const auto& [key, next] : {std::pair{Qt::Key_Tab, &other}, {Qt::Key_Backtab, &before}}) {
        host.viewWindow().makeFirstResponder(field);
        press(key);
        EXPECT_TRUE(next->hasFocus()) << key;
        EXPECT_EQ(host.liveEditor(), nullptr);
    }
    host.viewWindow().makeFirstResponder(field);
    for (auto* widget : {&before, &other})
        widget->setFocusPolicy(Qt::NoFocus);
    press(Qt::Key_Tab);
    EXPECT_TRUE(line().hasFocus()) << "there is nowhere to go";
    host.setFocus();
    EXPECT_TRUE(line().hasFocus()) << "who types would not see it elsewhere";
    takeLog();
    onEnd = [&](TextField&) { host.viewWindow().makeFirstResponder(view); };
    other.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(takeLog(), "ended with a; ");
    EXPECT_TRUE(other.hasFocus()) << "the program's views do not take it back";
    onEnd = nullptr;

    host.viewWindow().makeFirstResponder(field);
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    QApplication::processEvents();
    host.viewWindow().makeFirstResponder(nullptr);
    EXPECT_EQ(window.focusWidget(), &host) << "when the window is used again";
    host.setParent(nullptr);
}

TEST_F(LiveEditorTest, MayGoAwayWithItsHostByAKey) {
    struct Closer : NotingView {
        using NotingView::NotingView;
        bool keyDown(const views::KeyEvent&) override {
            delete std::exchange(closed, nullptr);
            return true;
        }
        HostWidget* closed = nullptr;
    };
    const auto closer = std::make_shared<Closer>(Rect{0, 0, 100, 50});
    closer->closed = new HostWidget;
    auto& window = closer->closed->viewWindow();
    const auto field = std::make_shared<TextField>(Rect{0, 0, 100, 24});
    closer->addSubview(field);
    window.root().addSubview(closer);
    closer->closed->show();
    closer->closed->activateWindow();
    QApplication::processEvents();
    window.makeFirstResponder(field);
    press(Qt::Key_Escape);
    EXPECT_FALSE(closer->closed);
}

TEST_F(LiveEditorTest, LiesWhereTheFieldIsAndEndsWithTheFocus) {
    const auto scrollView = add<views::ScrollView>({0, 20, 200, 60});
    const auto document = std::make_shared<NotingView>(Rect{0, 0, 200, 300});
    scrollView->setDocumentView(document);
    const auto field = std::make_shared<TextField>(Rect{20, 30, 100, 24});
    field->setDelegate(self);
    document->addSubview(field);
    show();
    click({60, 60});
    ASSERT_TRUE(host.liveEditor());
    const auto place = [&] {
        QApplication::processEvents();
        const QWidget& frame = *host.liveEditor()->parentWidget();
        return std::pair(frame.geometry(), host.liveEditor()->geometry());
    };
    EXPECT_EQ(place(), std::pair(QRect(22, 52, 96, 20), QRect(0, 0, 96, 20)));
    scrollView->scrollBy(0, 40);
    EXPECT_EQ(place(), std::pair(QRect(22, 20, 96, 12), QRect(0, -8, 96, 20)));
    scrollView->scrollBy(0, 150);
    EXPECT_TRUE(place().first.isEmpty());
    EXPECT_TRUE(line().hasFocus()) << "scrolled away, it goes on";
    press(Qt::Key_X, "x");
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.setParent(&host);
    other.show();
    takeLog();
    other.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(takeLog(), "ended with x; ");
    EXPECT_TRUE(other.hasFocus());
}
