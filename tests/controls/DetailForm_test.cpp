// The detail form, driven as a user does it, and the form of a detail model.

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/CVMacRepeatEditor.h"
#include "corvane/controls/DetailModelController.h"
#include "corvane/views/Button.h"
#include "corvane/views/Event.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"

#include "tests/controls/FieldRoundTrip.h"

#include <gtest/gtest.h>

#include <map>

using namespace corvane;
using tests::FieldSurroundings;
using views::KeyEvent;
using views::Role;

namespace {

struct Field {
    std::int64_t type;
    EXValue value = {};
    bool editable = true;
    bool informative = false;
};

/// Keeps what it is told and notes it.
struct NotingController : CVDetailController {
    std::vector<Field> fields;
    std::shared_ptr<EXChoiceList> choices = std::make_shared<EXChoiceList>();
    std::shared_ptr<views::Button> custom = std::make_shared<views::Button>();
    std::shared_ptr<views::View> other;  ///< in place of that one
    std::string words;
    std::string log;
    std::function<void()> whenChanged;
    bool closes = true;
    std::int64_t count = 0;  ///< in place of that of the fields

    NotingController() {
        custom->setToggles(true);
        for (const char* title : {"one", "two", "three"})
            choices->addItemWithTitle(title, std::int64_t{choices->itemCount() + 1});
    }
    Field& at(Index field) { return fields.at(static_cast<std::size_t>(field)); }
    const Field& at(Index field) const { return fields.at(static_cast<std::size_t>(field)); }
    void note(const std::string& text) { log += text + " "; }

    void detailDidLoad() override { note("load"); }
    void detailWillAppear() override { note("will"); }
    void detailDidAppear() override { note("did"); }
    Text title() const override { return "Form"; }
    bool showsDescription() const override { return !words.empty(); }
    Text description() const override { return words; }
    std::int64_t countFields(Index) const override {
        return count != 0 ? count : static_cast<std::int64_t>(fields.size());
    }
    Text nameForField(Index field, Index) const override {
        return "Field " + std::to_string(field);
    }
    Text placeholderForField(Index, Index) const override { return "none"; }
    EXValue valueForField(Index field, Index) const override { return at(field).value; }
    bool fieldIsEditable(Index field, Index) const override { return at(field).editable; }
    bool fieldIsInformative(Index field, Index) const override { return at(field).informative; }
    CVDetailEditorType editorTypeForField(Index field, Index) const override {
        return static_cast<CVDetailEditorType>(at(field).type);
    }
    ChoiceList choiceSetForField(Index, Index) const override { return choices; }
    void valueChangedForField(Index field, Index section, const EXValue& value) override {
        note(std::to_string(field) + "," + std::to_string(section) + "=" + textOf(value));
        at(field).value = value;
        if (const auto act = whenChanged) act();
    }
    std::shared_ptr<views::View> createCustomControlForField(Index field, Index section,
                                                             const platform::Rect&, const EXValue&,
                                                             bool, const ChoiceList&) override {
        note("create" + std::to_string(field) + "," + std::to_string(section));
        return other ? other : custom;
    }
    EXValue valueOfCustomControl(views::View&, Index, Index) override { return custom->isOn(); }
    void setValueEditableForCustomControl(const EXValue& value, bool, views::View&, Index field,
                                          Index section) override {
        note("set" + std::to_string(field) + "," + std::to_string(section));
        custom->setOn(value.booleanValue());
    }
    void didInvokeOkAction() override {
        note("ok");
        if (closes) CVDetailController::didInvokeOkAction();
    }
    void didInvokeCancelAction() override {
        note("cancel");
        CVDetailController::didInvokeCancelAction();
    }

    static std::string textOf(const EXValue& value) {
        if (value.day()) return value.day()->isoString();
        if (value.text()) return std::string(*value.text());
        return value.isNumber() ? std::to_string(value.integerValue()) : "null";
    }
};

struct FormFixture : testing::Test {
    struct Lines : platform::Console {
        void writeLine(std::string_view line) override {
            if (line.find("WARNING") == 0) lines.emplace_back(line);
        }
        std::vector<std::string> lines;
    } console;
    FieldSurroundings surroundings{&console};
    views::Window window{{600, 400}};
    std::shared_ptr<NotingController> controller = std::make_shared<NotingController>();
    std::shared_ptr<CVMacDetailForm> form;

    void show(std::vector<Field> fields) {
        controller->fields = std::move(fields);
        form = CVMacDetailForm::make(controller);
        form->didClose = [this] { controller->note("closed"); };
        window.setContentView(form);
        form->layoutIfNeeded();
    }
    std::shared_ptr<views::View> view(std::int64_t field) { return form->viewForField(field, 0); }
    std::string valueShown(std::int64_t field) { return view(field)->accessibilityValue(); }
    void focus(std::int64_t field) { EXPECT_TRUE(window.makeFirstResponder(view(field))); }
    void key(char32_t key, std::uint64_t flags = 0) { window.keyDown(KeyEvent(key, flags)); }
    void type(const std::string& text) { window.keyDown(KeyEvent(text)); }
    void click(const views::View& view) {
        const auto frame = view.convertToWindow(view.bounds());
        const views::MouseEvent event({frame.x + 5, frame.y + 5});
        window.mouseDown(event);
        window.mouseUp(event);
    }
    std::string takeLog() { return std::exchange(controller->log, ""); }
};

}  // namespace

TEST_F(FormFixture, HasAnEditorForEachCode) {
    const platform::Instant moment(std::chrono::seconds(1'772'700'000));  // March 5, 9:40 in Berlin
    const EXDateOnly day(2026, 12, 24);
    const struct {
        Field field;
        Role role;
        const char* value;
    } cases[] = {
        {{0, "a"}, Role::None, ""},
        {{1, "a"}, Role::TextField, "a"},
        {{2, {}}, Role::TextField, ""},
        {{3, 2}, Role::PopUpButton, "two"},
        {{4, moment}, Role::TextField, "Mar 5, 2026"},
        {{5, EXTimeOnly(20, 30, 0)}, Role::TextField, "8:30 PM"},
        {{6, "secret"}, Role::TextField, ""},
        {{7, 3.0}, Role::RadioGroup, "three"},
        {{8, 1}, Role::Switch, ""},
        {{8, {}}, Role::Switch, ""},
        {{9, day}, Role::TextField, "Dec 24, 2026"},
        {{10, moment}, Role::Group, ""},
        {{11, true}, Role::CheckBox, ""},
        {{12, "a"}, Role::None, ""},
        {{-1, "a"}, Role::None, ""},
        {{1, 2.5, false}, Role::TextField, "2.5"},
        {{3, 7, false}, Role::PopUpButton, ""},
        {{9, "no day", false}, Role::TextField, ""},
        {{1, "read me", true, true}, Role::Text, ""},
    };
    std::vector<Field> fields;
    for (const auto& each : cases)
        fields.push_back(each.field);
    show(fields);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto view = this->view(static_cast<std::int64_t>(i));
        const auto& [field, role, value] = cases[i];
        ASSERT_EQ(view ? view->accessibilityRole() : Role::None, role) << i;
        if (!view) continue;
        EXPECT_EQ(view->accessibilityValue(), value) << i;
        if (!field.informative && field.type != 11) {
            EXPECT_EQ(view->accessibilityEnabled(), field.editable) << i;
            EXPECT_EQ(view->accessibilityName(), "Field " + std::to_string(i));
        }
        const auto text = std::dynamic_pointer_cast<views::TextField>(view);
        EXPECT_TRUE(!text || text->placeholderString() == "none") << i;
    }
    EXPECT_EQ(view(8)->accessibilityChecked(), true);
    EXPECT_EQ(view(9)->accessibilityChecked(), false);
    EXPECT_EQ(view(12)->accessibilityChecked(), true) << "set by its own controller";
    EXPECT_EQ(view(18)->accessibilityName(), "read me");
    const std::vector<std::string> warning{
        "WARNING: Encountered unsupported editor type in [CVMacDetailForm updateValueForField:]"};
    EXPECT_EQ(std::exchange(console.lines, {})[0], warning[0]);
    form->updateValueForField(0, 0);
    form->updateValueForField(0, 1);
    EXPECT_EQ(console.lines, warning);
}

TEST_F(FormFixture, PressesTheEditorThatAReloadPutsInPlaceOfThePressedOne) {
    show({{1, "a"}, {1, "b"}, {9}});
    controller->whenChanged = [&] { form->reload(); };
    for (const std::int64_t field : {1, 2}) {
        focus(0);
        type("x");
        click(*view(field));
        EXPECT_EQ(window.fieldEditor().client(), view(field)) << field;
    }
}

TEST_F(FormFixture, TellsOfEachValueOnceWhenItIsCommitted) {
    show({{1, "a"}, {2}, {3, 1}, {7, 1}, {8}, {9}, {11}});
    EXPECT_EQ(takeLog(), "load create6,0 set6,0 will create6,0 set6,0 did ");
    key(views::kKeyTab);
    for (const char* text : {"b", "c"})
        type(text);
    EXPECT_EQ(takeLog(), "") << "not yet";
    key(views::kKeyTab);
    type("x");
    key(views::kKeyReturn);
    type("y");
    key(views::kKeyTab);
    type("th");
    key(views::kKeyTab);
    key(views::kKeyDownArrow);
    key(views::kKeyTab);
    type(" ");
    key(views::kKeyTab);
    type("3/5/2026");
    key(views::kKeyTab);
    type(" ");
    EXPECT_EQ(takeLog(), "0,0=bc 1,0=x\ny 2,0=3 3,0=2 4,0=1 5,0=2026-03-05 6,0=1 ");
    for (int i = 0; i < 6; ++i)
        key(views::kKeyTab, views::kModifierShift);
    focus(5);
    window.fieldEditor().setText("3/5/26");
    focus(0);
    EXPECT_EQ(takeLog(), "") << "the same day";
    EXPECT_EQ(window.firstResponder(), view(0));
    type("d");
    form->customControlDidChange(*view(6));
    EXPECT_EQ(takeLog(), "6,0=1 ");
    key(views::kKeyReturn);
    EXPECT_EQ(takeLog(), "0,0=d ok closed ");
    controller->setDetail(nullptr);
    show(controller->fields);
    takeLog();
    click(*view(6));
    EXPECT_EQ(takeLog(), "6,0=0 ") << "in another form";
}

TEST_F(FormFixture, TakesWhateverViewTheControllerHas) {
    controller->other = std::make_shared<views::View>(views::Rect{0, 0, 50, 70});
    show({{11}});
    EXPECT_EQ(view(0)->frame().height, 70);
    controller->other = std::make_shared<views::Button>();
    form->reload();
    takeLog();
    focus(0);
    key(views::kKeyReturn);
    EXPECT_EQ(takeLog(), "0,0=0 ") << "pressed";
    const auto editor = std::make_shared<CVMacRepeatEditor>();
    controller->other = editor;
    form->reload();
    takeLog();
    window.makeFirstResponder(editor->intervalField());
    type("7");
    form->updateValueForField(0, 0);
    EXPECT_EQ(takeLog(), "") << "while something is typed";
    key(views::kKeyReturn);
    EXPECT_EQ(takeLog(), "ok closed ");
    EXPECT_EQ(editor->repeat().interval(), 7);
}

TEST_F(FormFixture, CommitsForOkAndPutsBackForCancel) {
    show({{1, "a"}, {2, "b"}, {9, EXDateOnly(2026, 12, 24)}});
    takeLog();
    controller->closes = false;
    focus(0);
    type("x");
    click(*form->okButton());
    EXPECT_EQ(takeLog(), "0,0=x ok ");
    EXPECT_EQ(window.firstResponder(), view(0)) << "the form stays";
    type("y");
    key(views::kKeyEscape);
    EXPECT_EQ(takeLog(), "cancel closed ");
    EXPECT_EQ(valueShown(0), "x");
    focus(2);
    type("tomorrow");
    click(*form->cancelButton());
    EXPECT_EQ(takeLog(), "cancel closed ");
    EXPECT_EQ(valueShown(2), "Dec 24, 2026");
    EXPECT_EQ(controller->at(2).value, EXValue(EXDateOnly(2026, 12, 24)));
    window.makeFirstResponder(form->cancelButton());
    key(views::kKeyReturn);
    window.makeFirstResponder(form->okButton());
    key(views::kKeyReturn);
    EXPECT_EQ(takeLog(), "cancel closed ok ");
    EXPECT_EQ(form->accessibilityName(), "Form");
}

TEST_F(FormFixture, KeepsWhatIsTypedAndShowsWhatItIsTold) {
    show({{1, "a"}, {1, "b"}});
    focus(0);
    controller->at(0).value = "program";
    form->updateValueForField(0, 0);
    EXPECT_EQ(valueShown(0), "program");
    type("user");
    controller->at(0).value = "other";
    form->updateValueForField(0, 0);
    EXPECT_EQ(valueShown(0), "user");
    window.fieldEditor().setText("program");
    key(views::kKeyTab);
    EXPECT_EQ(valueShown(0), "other") << "nothing was changed after all";
    show({{9}});
    focus(0);
    type("3/5/2026");
    controller->at(0).value = EXDateOnly(2026, 12, 24);
    form->updateValueForField(0, 0);
    key(views::kKeyTab);
    EXPECT_EQ(controller->at(0).value, EXValue(EXDateOnly(2026, 3, 5)));
    // Whatever the controller does when it is told.
    const std::pair<bool, std::function<void()>> acts[] = {
        {true, [&] { form->reload(); }},
        {false, [&] { controller->fields.resize(1), form->reload(); }},
        {false, [&] { controller->count = -1, form->reload(); }},
        {false, [&] { form->setController({}); }},
        {false, [&] { window.setContentView(nullptr), controller.reset(), form.reset(); }},
    };
    for (const auto& [hasView, act] : acts) {
        controller->count = 0;
        show({{1, "a"}, {10}});
        focus(0);
        type("z");
        controller->whenChanged = [&act = act, alive = controller] {
            const auto once = std::exchange(alive->whenChanged, {});
            alive->setDetail(nullptr);
            act();
        };
        key(views::kKeyTab);
        EXPECT_EQ(form && view(1), hasView);
        EXPECT_EQ(form && !form->controller() && !form->accessibilityName().empty(), false);
        if (!hasView) continue;
        EXPECT_EQ(window.firstResponder(), view(1)->subviews().front());
        key(views::kKeyTab);
        form->reload();
        EXPECT_EQ(window.firstResponder(), view(1)->subviews().back());
    }
    EXPECT_EQ(window.contentView(), nullptr);
}

TEST_F(FormFixture, ScrollsToTheFocusAndMirrors) {
    std::vector<Field> fields;
    for (int i = 0; i < 40; ++i)
        fields.push_back({i % 2 == 0 ? 1 : 8, i});
    show(fields);
    const auto isSeen = [&](int field) {
        const auto shown = view(field)->visibleRect();
        return shown.height > 0 && shown.size() == view(field)->bounds().size();
    };
    EXPECT_TRUE(isSeen(0) && !isSeen(39));
    for (int i = 0; i < 40; ++i) {
        key(views::kKeyTab);
        ASSERT_TRUE(window.firstResponder() == view(i) && isSeen(i)) << i;
    }
    const auto leading = view(0)->convertToWindow(view(0)->bounds());
    EXPECT_GT(leading.x, 50) << "behind the label";
    const auto ok = form->okButton()->frame();
    EXPECT_LT(ok.bottom(), window.size().height);
    EXPECT_GT(ok.x, form->cancelButton()->frame().x);
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    form->reload();
    form->layoutIfNeeded();
    const auto mirrored = view(0)->convertToWindow(view(0)->bounds());
    EXPECT_DOUBLE_EQ(mirrored.right(), window.size().width - leading.x);
    EXPECT_DOUBLE_EQ(form->okButton()->frame().x, window.size().width - ok.right());
    // More words than there is room for, and a smaller window, down to nothing.
    for (int i = 0; i < 500; ++i)
        controller->words += "word ";
    form->reload();
    form->layoutIfNeeded();
    EXPECT_DOUBLE_EQ(form->okButton()->frame().bottom(), ok.bottom());
    for (const double size : {120.0, 30.0, 0.0}) {
        window.setSize({size, size});
        form->layoutIfNeeded();
    }
    EXPECT_EQ(form->preferredSizeThatFits({2000, 200}).height, 200);
}

// The form of a model.

namespace {

struct Record : EXKeyValueObject {
    std::map<std::string, EXValue, std::less<>> values;
    EXValue valueForKey(std::string_view key) const override {
        const auto found = values.find(key);
        return found == values.end() ? EXValue() : found->second;
    }
    void setValueForKey(const EXValue& value, std::string_view key) override {
        values[std::string(key)] = value;
    }
};

struct NotingModel : EXDetailModel {
    std::string log;
    std::string complaint;
    void saveObject() override {
        log += "save ";
        if (!complaint.empty()) showAlertWithTitle("Not saved", complaint, "OK");
    }
    EXValue valueForSettingProposedValue(const EXValue& value, const IndexPath&) override {
        if (!value.text() || *value.text() != "bad") return value;
        showAlertWithTitle("Not set", "bad", "OK");
        return "kept";
    }
    void didSetValueForFieldAtIndexPath(const EXValue&, const IndexPath& path) override {
        log += "set" + std::to_string(path.row()) + " ";
        if (path.row() == 0) reloadFieldAtIndexPath({0, 1});
    }
};

}  // namespace

struct ModelForm : FormFixture {
    std::shared_ptr<Record> record = std::make_shared<Record>();
    std::shared_ptr<NotingModel> model = std::make_shared<NotingModel>();
    std::shared_ptr<DetailModelController> shown;
    int closed = 0;

    void showModel(const std::vector<std::pair<std::string_view, std::int64_t>>& fields) {
        auto section = std::make_shared<EXDetailModelSectionDescriptor>();
        auto footer = std::make_shared<EXDetailModelSectionDescriptor>();
        for (const auto& [type, hints] : fields) {
            const std::string key = "k" + std::to_string(section->numberOfFields());
            auto made = std::make_shared<EXDetailModelFieldDescriptor>(std::string(type), key, key);
            made->setDisplayHints(hints);
            section->addFieldDescriptor(made);
            footer->addFieldDescriptor(made);
        }
        section->setTitle("Section");
        model->setSectionDescriptors({section});
        model->setFooterSectionDescriptor(footer);
        model->setTitle("Record");
        model->setObject(record);
        shown = DetailModelController::make(model);
        form = CVMacDetailForm::make(shown);
        form->didClose = [this] { ++closed; };
        window.setContentView(form);
        form->layoutIfNeeded();
    }
    void enter(std::int64_t field, const char* text) {
        focus(field);
        window.fieldEditor().setText(text);
        key(views::kKeyTab);
    }
};

TEST_F(ModelForm, ChoosesEditorsByTypeAndHints) {
    constexpr auto kInline = EXDetailModelFieldDisplayHintEditInline;
    constexpr auto kSwitch = EXDetailModelFieldDisplayHintUseSwitch;
    constexpr auto kInformative = EXDetailModelFieldDisplayHintInformative;
    const struct {
        std::string_view type;
        std::int64_t hints;
        std::int64_t code;
        Role role;
    } cases[] = {
        {EXDetailModelFieldTypeString, 0, 1, Role::TextField},
        {EXDetailModelFieldTypeText, 0, 2, Role::TextField},
        {EXDetailModelFieldTypeText, kInline, 1, Role::TextField},
        {EXDetailModelFieldTypeExtendedText, kInline, 2, Role::TextField},
        {EXDetailModelFieldTypeBool, kSwitch, 8, Role::Switch},
        {EXDetailModelFieldTypeBool, 0, 3, Role::PopUpButton},
        {EXDetailModelFieldTypeBool, kInline, 7, Role::RadioGroup},
        {EXDetailModelFieldTypeChoice, 0, 3, Role::PopUpButton},
        {EXDetailModelFieldTypeInteger, 0, 1, Role::TextField},
        {EXDetailModelFieldTypeDateAndTime, 0, 10, Role::Group},
        {EXDetailModelFieldTypeDateOnly, 0, 9, Role::TextField},
        {EXDetailModelFieldTypeTimeOnly, 0, 5, Role::TextField},
        {EXDetailModelFieldTypeDouble, kInformative, 1, Role::Text},
        {"EXDetailModelFieldTypeAnother", 0, 1, Role::Text},
    };
    std::vector<std::pair<std::string_view, std::int64_t>> fields;
    for (const auto& each : cases)
        fields.emplace_back(each.type, each.hints);
    showModel(fields);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto field = static_cast<std::int64_t>(i);
        EXPECT_EQ(shown->editorTypeForField(field, 0), cases[i].code) << i;
        EXPECT_EQ(view(field)->accessibilityRole(), cases[i].role) << i;
        EXPECT_EQ(form->viewForField(field, 1)->accessibilityRole(), Role::Text) << "in the footer";
        EXPECT_FALSE(shown->fieldIsEditable(field, 1));
    }
    EXPECT_EQ(shown->countSections(), 2);
    EXPECT_EQ(shown->countFields(2) + shown->countFields(-1), 0);
    EXPECT_EQ(shown->nameForField(99, 0), std::nullopt);
    EXPECT_EQ(DetailModelController::make(nullptr)->countSections(), 0);
}

TEST_F(ModelForm, TakesValuesSavesForOkAndRestoresForCancel) {
    record->values = {{"k0", "before"}, {"k1", 5}};
    showModel({{EXDetailModelFieldTypeString, 0},
               {EXDetailModelFieldTypeInteger, 0},
               {EXDetailModelFieldTypeDouble, 0}});
    record->values["k1"] = 6;
    enter(0, "after");
    EXPECT_EQ(valueShown(1), "6") << "which the model had reloaded";
    const struct {
        std::int64_t field;
        const char* text;
        EXValue stored;
    } cases[] = {{1, "-12", -12}, {1, "", {}}, {2, "2.5", 2.5}, {2, "nan", 2.5}};
    for (const auto& [field, text, stored] : cases) {
        enter(field, text);
        EXPECT_EQ(model->valueForFieldAtIndexPath({0, field}), stored) << text;
        const std::string shownNow = form->viewForField(field, 0)->accessibilityValue();
        EXPECT_EQ(form->viewForField(field, 1)->accessibilityName(), shownNow) << "in the footer";
    }
    window.endSheet(1000);
    enter(1, "12x");
    ASSERT_NE(window.sheet(), nullptr);
    EXPECT_EQ(window.sheet()->informativeText, "The field cannot hold “12x”.");
    EXPECT_EQ(valueShown(1), "");
    form->performOk();
    window.endSheet(1000);
    EXPECT_EQ(model->log, "set0 set1 set1 set2 ") << "not while the alert is there";
    enter(0, "bad");
    EXPECT_EQ(valueShown(0), "kept");
    window.endSheet(1000);
    form->performCancel();
    EXPECT_EQ(record->values["k0"], EXValue("before"));
    EXPECT_EQ(record->values["k1"], EXValue(6));
    EXPECT_EQ(closed, 1);
    model->complaint = "incomplete";
    form->performOk();
    EXPECT_EQ(closed, 1);
    window.endSheet(1000);
    model->complaint.clear();
    enter(1, "7");
    form->performOk();
    EXPECT_EQ(closed, 2);
    form->performCancel();
    EXPECT_EQ(record->values["k1"], EXValue(7)) << "saved";
    int confirmed = 0;
    model->showConfirmationWithTitle("Sure?", "", "Yes", "No", [&] { ++confirmed; });
    window.endSheet(1000);
    model->invalidate();
    EXPECT_TRUE(confirmed == 1 && closed == 4);
    EXPECT_FALSE(shown->fieldIsEditable(0, 0)) << "without an object";
}

TEST_F(ModelForm, ShowsAndTakesNumbersAsTheLocaleHasThem) {
    const struct {
        const char* locale;
        std::int64_t field;
        const char* typed;
        EXValue stored;
        const char* shown;
    } cases[] = {
        {"de_DE", 0, "1,5", 1.5, "1,5"},       {"de_DE", 0, "2.5", 2.5, "2,5"},
        {"de_DE", 0, "1.500", 1500.0, "1500"}, {"de_DE", 1, "12.345", 12345, "12345"},
        {"ar_EG", 0, "١٢٫٥", 12.5, "١٢٫٥"},    {"ar_EG", 1, "42", 42, "٤٢"},
        {"fa_IR", 0, "0.25", 0.25, "۰٫۲۵"},
    };
    for (const auto& [locale, field, typed, stored, text] : cases) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        record->values.clear();
        showModel({{EXDetailModelFieldTypeDouble, 0}, {EXDetailModelFieldTypeInteger, 0}});
        enter(field, typed);
        EXPECT_EQ(model->valueForFieldAtIndexPath({0, field}), stored) << locale << typed;
        EXPECT_EQ(valueShown(field), text) << locale << typed;
        enter(field, "x");  // refused, and shown as it was
        EXPECT_EQ(valueShown(field), text) << locale << typed;
        window.endSheet(1000);
        form->reload();
        enter(field, text);
        EXPECT_EQ(model->valueForFieldAtIndexPath({0, field}), stored) << locale << text;
        EXPECT_EQ(window.sheet(), nullptr);
    }
}

TEST_F(ModelForm, ShowsTheDefaultOnlyWhereNothingIsNoChoice) {
    record->values["k0"] = "a";
    showModel({{EXDetailModelFieldTypeChoice, 0}});
    const auto choices = std::make_shared<EXChoiceList>();
    choices->addItemWithTitle("A", "a");
    choices->addItemWithTitle("Empty", "");
    const auto field = model->descriptorForFieldAtIndexPath({0, 0});
    field->setChoiceList(choices);
    field->setDefaultValue("a");
    form->reload();
    focus(0);
    type("e");
    EXPECT_EQ(record->values["k0"], EXValue(""));
    for (const char* chosen : {"A", "None"}) {
        record->values["k0"] = {};
        form->reload();
        EXPECT_EQ(valueShown(0), chosen);
        choices->addItemWithTitle("None", EXValue());
    }
}
