#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/MonthChooserView.h"
#include "corvane/controls/PopOver.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

#include "tests/controls/FieldRoundTrip.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

using namespace corvane;
using namespace corvane::views;
using tests::FieldSurroundings;

namespace {

/// A date field and a plain one after it in a window.
struct Form {
    Form() {
        field->setAction([this](Control&) { ++sent; });
        field->setNextKeyView(other);
        other->setNextKeyView(field);
        window.root().addSubview(field);
        window.root().addSubview(other);
    }
    MonthChooserView& chooser() {
        return dynamic_cast<MonthChooserView&>(*field->dateChooserPopover().contentView());
    }
    bool isOpen() { return field->dateChooserPopover().isShown(); }
    bool press(char32_t key, std::uint64_t modifiers = 0) {
        return window.keyDown(KeyEvent(key, modifiers));
    }
    void type(const char* text) { window.keyDown(KeyEvent(std::string(text))); }
    void click(const View& view) {
        const Rect place = view.convertToWindow(view.bounds());
        const MouseEvent event({place.x + place.width / 2, place.y + place.height / 2});
        window.mouseDown(event);
        window.mouseUp(event);
    }
    std::string value() const {
        const auto day = EXCalendar::currentCalendar().dateOnlyForDate(field->dateValue());
        return day ? day->isoString() : "";
    }
    std::string highlight() {
        const auto day = chooser().highlightedDay();
        return day ? day->isoString() : "";
    }

    Window window{{600, 400}};
    std::shared_ptr<CVMacDateField> field = std::make_shared<CVMacDateField>(Rect{10, 10, 120, 22});
    std::shared_ptr<TextField> other = std::make_shared<TextField>(Rect{10, 300, 120, 22});
    int sent = 0;
};

/// By name; null where there is none.
const View* cellNamed(const View& chooser, std::string_view name) {
    for (const auto& view : chooser.subviews())
        if (view->accessibilityRole() == Role::Button && view->accessibilityName() == name)
            return view.get();
    return nullptr;
}

}  // namespace

TEST(DateChooser, OpensWithTheFocusAndLeavesItToTheField) {
    platform::RecordingConsole console;
    const FieldSurroundings surroundings(&console);
    Form form;
    EXPECT_FALSE(form.isOpen());
    form.press(kKeyTab);
    EXPECT_TRUE(form.isOpen());
    EXPECT_FALSE(form.field->dateChooserPopoverIsBeingPresented());
    EXPECT_EQ(form.field->dateChooserPopover().backgroundColor(),
              form.chooser().headerBackgroundColor());
    form.type("mar 2");
    EXPECT_EQ(form.chooser().shownMonth(), EXDateOnly(2027, 3, 1));  // what is typed shows
    form.type("0");
    EXPECT_EQ(form.chooser().day(), EXDateOnly(2026, 3, 20));
    EXPECT_TRUE(form.field->isEditing());
    EXPECT_EQ(form.value(), "");
    form.press(kKeyTab);
    EXPECT_FALSE(form.isOpen());
    EXPECT_TRUE(form.other->isEditing());
    EXPECT_EQ(form.value(), "2026-03-20");
    EXPECT_EQ(form.sent, 1);

    form.press(kKeyBacktab);
    console = {};
    form.click(*cellNamed(form.chooser(), "April 2026"));
    EXPECT_EQ(form.chooser().shownMonth(), EXDateOnly(2026, 4, 1));
    EXPECT_TRUE(form.isOpen() && form.field->isEditing());
    form.click(*cellNamed(form.chooser(), "March 2026"));
    form.click(*cellNamed(form.chooser(), "Friday, March 6, 2026"));
    EXPECT_FALSE(form.isOpen());
    EXPECT_TRUE(form.field->isEditing());
    EXPECT_EQ(form.field->stringValue(), "Friday");
    EXPECT_EQ(form.value(), "2026-03-06");
    EXPECT_EQ(form.sent, 2);
    EXPECT_THAT(console.lines(), testing::Contains("[CVMacDateField dateChooser:didChooseDate:]"));
    form.press(kKeyTab);
    EXPECT_EQ(form.sent, 2);  // the text is the value's
}

TEST(DateChooser, RubbishEmptiesTheFieldEachTime) {
    const FieldSurroundings surroundings;
    Form form;
    form.press(kKeyTab);
    for (const char32_t end : {kKeyReturn, kKeyReturn, kKeyTab}) {
        form.field->setDateValue(platform::currentClock().now());
        form.type("xyz");
        form.press(end);
        EXPECT_EQ(form.field->stringValue(), "");
        EXPECT_EQ(form.value(), "");
    }
    EXPECT_EQ(form.sent, 3);
    form.press(kKeyBacktab);
    form.type("tom");
    form.field->setEditable(false);  // which ends the editing
    EXPECT_EQ(form.value(), "2026-03-05");
    EXPECT_FALSE(form.isOpen());
    form.field->removeFromSuperview();
    EXPECT_EQ(form.window.root().subviews().size(), 1u);
}

TEST(DateChooser, TakesKeysFromTheFieldOnceTheyLeadIntoIt) {
    const FieldSurroundings surroundings;  // Wednesday, March 4, 2026
    Form form;
    form.press(kKeyTab);
    form.type("a");
    form.press(kKeyLeftArrow);
    EXPECT_EQ(form.highlight(), "");  // it moved in the text
    const struct {
        char32_t key;
        std::uint64_t modifiers;
        const char* highlight;
    } steps[] = {
        {kKeyDownArrow, 0, "2026-03-11"},  {kKeyLeftArrow, 0, "2026-03-10"},
        {kKeyHome, 0, "2026-03-08"},       {kKeyEnd, 0, "2026-03-14"},
        {kKeyRightArrow, 0, "2026-03-15"}, {kKeyPageUp, 0, "2026-02-15"},
        {kKeyUpArrow, 0, "2026-02-08"},    {kKeyPageDown, kModifierShift, "2027-02-08"},
        {kKeyPageDown, 0, "2027-03-08"},   {kKeyDownArrow, kModifierCommand, "2027-03-08"},
    };
    for (const auto& [key, modifiers, highlight] : steps) {
        form.press(key, modifiers);
        EXPECT_EQ(form.highlight(), highlight);
    }
    EXPECT_EQ(form.chooser().accessibilityName(), "March 2027");
    EXPECT_EQ(form.chooser().accessibilityValue(), "Monday, March 8, 2027");
    form.type("b");
    EXPECT_EQ(form.highlight(), "");
    EXPECT_EQ(form.field->stringValue(), "ba");
    form.press(kKeyDownArrow);
    form.press(kKeyReturn);
    EXPECT_EQ(form.value(), "2026-03-11");
    EXPECT_FALSE(form.isOpen());
    EXPECT_EQ(form.sent, 1);
    EXPECT_TRUE(form.press(kKeyUpArrow));
    EXPECT_TRUE(form.isOpen());
    EXPECT_TRUE(form.press(kKeyEscape));
    EXPECT_FALSE(form.isOpen());
    EXPECT_TRUE(form.field->isEditing());
    form.click(*form.field);
    EXPECT_TRUE(form.isOpen());
}

TEST(DateChooser, PagesFollowTheLocale) {
    const FieldSurroundings surroundings;
    const struct {
        const char *locale, *title, *first, *today, *following;
        bool mirrored;
    } cases[] = {
        {"en_US", "March 2026", "Sunday, March 1, 2026", "Wednesday, March 4, 2026", "April 2026",
         false},
        {"de_DE", "März 2026", "Montag, 23. Februar 2026", "Mittwoch, 4. März 2026", "April 2026",
         false},
        {"ja_JP", "2026年3月", "2026年3月1日日曜日", "2026年3月4日水曜日", "2026年4月", false},
        {"ar_EG", "مارس ٢٠٢٦", "السبت، ٢٨ فبراير ٢٠٢٦", "الأربعاء، ٤ مارس ٢٠٢٦", "أبريل ٢٠٢٦",
         true},
    };
    for (const auto& [locale, title, first, today, following, mirrored] : cases) {
        CVMacDateChooserView chooser{platform::Locale(locale)};
        EXPECT_EQ(chooser.accessibilityName(), title);
        const View* firstDay = cellNamed(chooser, first);
        const View* presentDay = cellNamed(chooser, today);
        ASSERT_TRUE(firstDay && presentDay) << locale;
        EXPECT_EQ(firstDay->frame().x > presentDay->frame().x, mirrored) << locale;
        EXPECT_EQ(presentDay->accessibilityValue(), "Today");
        const View* next = cellNamed(chooser, following);
        ASSERT_TRUE(next) << locale;
        EXPECT_EQ(next->frame().x < 100, mirrored) << locale;
        EXPECT_FALSE(presentDay->accessibilitySelected());
        chooser.setDay(EXDateOnly(2026, 3, 4));
        EXPECT_TRUE(presentDay->accessibilitySelected());
        chooser.setHighlightedDay(EXDateOnly(2026, 3, 10));
        chooser.moveByKey(KeyEvent(kKeyLeftArrow));
        EXPECT_EQ(chooser.highlightedDay(), EXDateOnly(2026, 3, mirrored ? 11 : 9));
    }
}

TEST(DateChooser, EveryMonthHasAPageOfWholeWeeks) {
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "dv_MV"}) {
        const EXCalendar calendar(platform::Calendar({}, platform::Locale(locale)));
        EXDateOnly month(2024, 1, 1);
        for (int i = 0; i < 48; ++i, month = dayAfterMove(calendar, month, DayMove::NextMonth)) {
            const MonthGrid grid(calendar, *calendar.dateOnlyByAddingDays(i % 28, month));
            EXPECT_EQ(grid.firstOfMonth(), month);
            EXPECT_EQ(calendar.weekdayForDateOnly(grid.days()[0]), calendar.firstWeekday());
            EXPECT_LE(grid.days()[0], month);
            EXPECT_EQ(std::count_if(grid.days().begin(), grid.days().end(),
                                    [&](EXDateOnly day) { return grid.isInMonth(day); }),
                      calendar.numberOfDaysInMonthForDateOnly(month));
        }
    }
    const EXCalendar calendar(platform::Calendar({}, platform::Locale("en_US")));
    EXPECT_EQ(dayAfterMove(calendar, {2026, 1, 31}, DayMove::NextMonth), EXDateOnly(2026, 2, 28));
    EXPECT_EQ(dayAfterMove(calendar, {9999, 12, 31}, DayMove::NextDay), EXDateOnly(9999, 12, 31));
    EXPECT_EQ(dayAfterMove(calendar, {1, 1, 1}, DayMove::PreviousWeek), EXDateOnly(1, 1, 1));
}

TEST(DateChooser, OfATimeFieldOffersHalfHours) {
    const FieldSurroundings surroundings;  // at 17:20
    Window window({600, 400});
    const auto field = std::make_shared<CVMacTimeOnlyField>(Rect{10, 10, 120, 22});
    std::vector<std::string> sent;
    field->setAction([&](Control&) { sent.push_back(field->stringValue()); });
    window.root().addSubview(field);
    window.makeFirstResponder(field);
    const auto& chooser =
        dynamic_cast<CVMacTimeOnlyChooserView&>(*field->dateChooserPopover().contentView());
    const auto after = [&](std::initializer_list<char32_t> keys) {
        for (const auto key : keys)
            window.keyDown(KeyEvent(key));
        return chooser.highlightedTime().value_or(EXTimeOnly()).isoString();
    };
    EXPECT_EQ(after({kKeyDownArrow}), "19:00:00");
    EXPECT_EQ(after({kKeyRightArrow, kKeyEnd}), "19:30:00");
    EXPECT_EQ(after({kKeyPageDown, kKeyRightArrow, kKeyDownArrow}), "23:30:00");
    EXPECT_EQ(after({kKeyHome, kKeyUpArrow, kKeyReturn}), "00:00:00");
    EXPECT_EQ(field->timeOnlyValue(), EXTimeOnly(20, 0, 0));
    window.keyDown(KeyEvent(std::string("9:30")));
    window.keyDown(KeyEvent(kKeyReturn));
    EXPECT_THAT(sent, testing::ElementsAre("8:00\u202FPM", "9:30\u202FAM"));
    EXPECT_FALSE(field->dateChooserPopover().isShown());
    field->showDateChooserOverlay();
    const View* cell = cellNamed(chooser, "9:30\u202FAM");
    ASSERT_TRUE(cell);
    EXPECT_TRUE(cell->accessibilitySelected());
}

TEST(PopOver, LiesWhereThereIsRoomOrWhereItsPresenterPutsIt) {
    const FieldSurroundings surroundings;
    Form form;
    const auto frameAt = [&](const Rect& field) {
        form.window.makeFirstResponder(nullptr);
        form.field->setFrame(field);
        form.window.makeFirstResponder(form.field);
        return form.chooser().superview()->frame();
    };
    EXPECT_GT(frameAt({10, 10, 120, 22}).y, 31);
    EXPECT_LT(frameAt({10, 350, 120, 22}).bottom(), 351);
    EXPECT_LE(frameAt({550, 10, 120, 22}).right(), 600);

    struct Elsewhere : PopOverPresenter {
        explicit Elsewhere(Form& inForm) : form(inForm) {}
        void present(PopOver&, const std::shared_ptr<View>&) override {
            form.window.makeFirstResponder(form.other);  // as where a desktop moves the focus
        }
        void dismiss(PopOver&) override { ++dismissed; }
        Form& form;
        int dismissed = 0;
    } elsewhere(form);
    form.window.makeFirstResponder(nullptr);
    const ScopedPopOverPresenter scope(elsewhere);
    form.window.makeFirstResponder(form.field);
    EXPECT_TRUE(form.isOpen());
    EXPECT_FALSE(form.field->isEditing());
    form.field->hideDateChooserOverlay();
    EXPECT_EQ(elsewhere.dismissed, 1);
    EXPECT_FALSE(form.isOpen());
}
