#include "corvane/platform/Console.h"
#include "corvane/views/EXMacAlertController.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextView.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <gtest/gtest.h>

using namespace corvane;
using namespace corvane::views;

namespace {

/// Three fields in a ring of key views, and a note of what happens to them.
struct Form : TextFieldDelegate {
    Form() {
        for (int i = 0; i < 3; ++i) {
            fields[i] = std::make_shared<TextField>(Rect{0, i * 20.0, 100, 20});
            fields[i]->setDelegate(self);
            fields[i]->setAction([this, i](Control&) { note("send", i); });
            window.root().addSubview(fields[i]);
        }
        for (int i = 0; i < 3; ++i)
            fields[i]->setNextKeyView(fields[(i + 1) % 3]);
    }
    int indexOf(const TextField& field) const {
        return static_cast<int>(
            std::find_if(fields, fields + 3, [&](auto& one) { return one.get() == &field; }) -
            fields);
    }
    void note(const std::string& what, int field) { log += what + std::to_string(field) + " "; }
    void controlTextDidBeginEditing(TextField& field) override { note("begin", indexOf(field)); }
    void controlTextDidChange(TextField& field) override { note("change", indexOf(field)); }
    void controlTextDidEndEditing(TextField& field) override {
        note("end", indexOf(field));
        if (const auto act = onEnd) act();
    }
    bool controlDoCommandBySelector(TextField&, FieldEditor&, Command command) override {
        return command == taken;
    }
    std::string logOf(const std::function<void()>& act) {
        log.clear();
        act();
        return std::exchange(log, "");
    }
    void press(char32_t key, std::uint64_t modifiers = 0) {
        window.keyDown(KeyEvent(key, modifiers));
    }
    void type(const char* text) { window.keyDown(KeyEvent(std::string(text))); }

    Window window{{100, 60}};
    std::shared_ptr<TextField> fields[3];
    std::shared_ptr<TextFieldDelegate> self{this, [](TextFieldDelegate*) {}};
    std::optional<Command> taken;
    std::function<void()> onEnd;
    std::string log;
};

}  // namespace

TEST(Window, LendsItsFieldEditorToTheFieldInFocus) {
    Form form;
    auto& [a, b, c] = form.fields;
    EXPECT_EQ(form.logOf([&] { form.press(kKeyBacktab); }), "begin2 ");  // into the last one
    form.window.makeFirstResponder(nullptr);
    EXPECT_EQ(form.logOf([&] { form.press(kKeyTab); }), "begin0 ");  // into the first one
    form.type("né");
    EXPECT_EQ(a->stringValue(), "né");
    form.log.clear();
    EXPECT_EQ(form.logOf([&] { form.press(kKeyTab); }), "end0 send0 begin1 ");
    EXPECT_EQ(form.logOf([&] { form.press(kKeyBacktab); }), "end1 begin0 ");
    b->setEditable(false);
    EXPECT_EQ(form.logOf([&] { form.press(kKeyTab); }), "end0 begin2 ");
    EXPECT_EQ(form.logOf([&] { form.type("x"); }), "change2 ");
    EXPECT_EQ(form.logOf([&] { form.press(kKeyReturn); }), "send2 ");  // once, and it goes on
    EXPECT_EQ(form.logOf([&] { form.press(kKeyReturn); }), "");
    EXPECT_EQ(form.logOf([&] { form.window.mouseDown(MouseEvent({5, 5})); }), "end2 begin0 ");
    EXPECT_FALSE(form.window.mouseDown(MouseEvent({5, 25})));  // not editable
    form.taken = Command::InsertTab;
    EXPECT_EQ(form.logOf([&] { form.press(kKeyTab); }), "");
    EXPECT_EQ(form.logOf([&] { a->setHidden(true); }), "end0 ");
    EXPECT_EQ(form.window.firstResponder(), nullptr);
    EXPECT_FALSE(form.window.makeFirstResponder(std::make_shared<TextField>()));  // elsewhere
    form.window.makeFirstResponder(c);
    form.onEnd = [&] {  // gives the focus away, removes what was to get it
        form.onEnd = {};
        a->setHidden(false);
        form.window.makeFirstResponder(a);
        c->removeFromSuperview();
    };
    EXPECT_EQ(form.logOf([&] { c->removeFromSuperview(); }), "end2 begin0 ");
    EXPECT_EQ(form.window.firstResponder(), a);
    EXPECT_EQ(form.fields[2]->nextValidKeyView(), a);
    c->setNextKeyView(b);
    b->setNextKeyView(c);
    a->setNextKeyView(b);
    EXPECT_EQ(a->nextValidKeyView(), nullptr);  // a ring that does not come back
}

TEST(Window, PressesWhatComesIntoThePlaceOfThePressedView) {
    Form form;
    auto& [a, b, c] = form.fields;
    const auto fresh = std::make_shared<TextField>(b->frame());
    form.onEnd = [&, before = b] {
        before->removeFromSuperview();
        form.window.root().addSubview(fresh);
    };
    form.window.makeFirstResponder(a);
    form.type("x");
    EXPECT_TRUE(form.window.mouseDown(MouseEvent({5, 25})));
    EXPECT_EQ(form.window.fieldEditor().client(), fresh);
}

TEST(FieldEditor, EditsByKeys) {
    struct Case {
        const char* keys;  // l r u d: arrows, < > backspace and delete, A all, n newline, or text
        const char* result;
    };
    for (const bool multiline : {false, true}) {
        for (auto [keys, result] : {Case{"éX", "éX"},
                                    {"éXl<", "X"},
                                    {"éXlZ", "éZX"},
                                    {"éXll>", "X"},
                                    {"éXuZ", "ZéX"},
                                    {"éXudZ", "éXZ"},
                                    {"éXAZ", "Z"},
                                    {"éXArZ", "éXZ"},
                                    {"éXAlZ", "ZéX"},
                                    {"X<<>Z", "Z"},
                                    {"XnZ", multiline ? "X\nZ" : "XZ"}}) {
            Window window({100, 100});
            std::shared_ptr<TextField> field = std::make_shared<TextField>();
            if (multiline) field = std::make_shared<TextView>();
            window.root().addSubview(field);
            window.makeFirstResponder(field);
            for (const char* key = keys; *key; ++key) {
                const std::string_view names = "lrud<>n";
                constexpr char32_t kCodes[] = {kKeyLeftArrow, kKeyRightArrow, kKeyUpArrow,
                                               kKeyDownArrow, kKeyBackspace,  kKeyDeleteForward,
                                               kKeyReturn};
                if (const auto at = names.find(*key); at != std::string_view::npos) {
                    window.keyDown(KeyEvent(kCodes[at]));
                } else if (*key == 'A') {
                    window.keyDown(KeyEvent(std::string("a"), kModifierCommand));
                } else {
                    const std::size_t length = *key < 0 ? 2 : 1;
                    window.keyDown(KeyEvent(std::string(key, length)));
                    key += length - 1;
                }
            }
            EXPECT_EQ(field->stringValue(), result) << keys << multiline;
        }
    }
}

TEST(EXMacAlertController, ShowsOneSheetAfterTheOtherAndCallsBack) {
    struct Host : WindowHost {
        void showSheet(const Alert& alert) override { shown += alert.messageText + " "; }
        std::string shown;
    };
    Host host;
    Window window;
    window.setHost(&host);
    std::string calls;
    const auto note = [&](std::string what) { return [&calls, what] { calls += what; }; };
    EXMacAlertController::showAlertWithTitle("One", std::nullopt, "OK", &window,
                                             [&](int code) { calls += std::to_string(code); });
    EXMacAlertController::showAlertWithTitle("Silent", "text", "OK", &window);
    for (int i = 0; i < 3; ++i)
        EXMacAlertController::showConfirmationWithTitle("Sure?", "text", "Yes", "No", &window,
                                                        note("yes"), note("no"));
    EXMacAlertController::showConfirmationWithTitle("Sure?", "", "Yes", "No", &window, {});
    EXPECT_EQ(host.shown, "One ");
    EXPECT_EQ(window.sheet()->informativeText, "");
    for (const int code : {1000, 1000})
        window.endSheet(code);
    EXPECT_EQ(window.sheet()->buttons, (std::vector<std::string>{"Yes", "No"}));
    for (const int code : {1000, 1001, 1002, 1001, 1000})
        window.endSheet(code);
    EXPECT_EQ(calls, "1000yesno");
    EXPECT_EQ(host.shown, "One Silent Sure? Sure? Sure? Sure? ");
    EXPECT_EQ(window.sheet(), nullptr);
    platform::RecordingConsole console;
    const platform::ScopedConsole scope(console);
    EXMacAlertController::showAlertWithTitle("One", "", "OK", nullptr);
    EXPECT_EQ(console.lines(), std::vector<std::string>{"ERROR: alert without a window: One"});
}
