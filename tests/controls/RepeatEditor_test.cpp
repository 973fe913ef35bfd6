// The editor of repeat rules and its grid of bits.

#include "corvane/controls/CVMacBitmaskChooser.h"
#include "corvane/controls/CVMacRepeatEditor.h"
#include "corvane/controls/CVMacSegmentedChoice.h"
#include "corvane/views/Event.h"
#include "corvane/views/Window.h"

#include "tests/controls/FieldRoundTrip.h"

#include <gtest/gtest.h>

using namespace corvane;
using tests::FieldSurroundings;
using views::KeyEvent;
using Rule = HGCustomRepeat;

namespace {

struct Repeats : testing::Test {
    FieldSurroundings surroundings;
    views::Window window{{400, 300}};

    void key(char32_t key) { window.keyDown(KeyEvent(key)); }
    void type(const char* text) { window.keyDown(KeyEvent(std::string(text))); }
    void click(const views::View& view) {
        const auto frame = view.convertToWindow(view.bounds());
        const views::MouseEvent event({frame.x + 3, frame.y + 3});
        window.mouseDown(event);
        window.mouseUp(event);
    }
};

struct Bits : Repeats {
    std::shared_ptr<CVMacBitmaskChooser> chooser = std::make_shared<CVMacBitmaskChooser>();
    std::vector<std::int64_t> sent;

    Bits() {
        std::vector<std::string> labels;
        for (int day = 1; day <= 40; ++day)
            labels.push_back(std::to_string(day));
        chooser->setLabels(labels, 7);
        chooser->setFrameSize(chooser->preferredSizeThatFits({1000, 1000}));
        chooser->setAction([this](auto&) { sent.push_back(chooser->bitmask()); });
        window.root().addSubview(chooser);
        window.makeFirstResponder(chooser);
    }
    views::View& cell(std::size_t bit) const { return *chooser->subviews().at(bit); }
};

}  // namespace

TEST_F(Bits, AreToggledByClicksAndKeys) {
    chooser->setBitmask(std::int64_t{1} << 40);  // of a mask with more bits than cells
    ASSERT_EQ(chooser->subviews().size(), 31u);
    click(cell(30));
    type(" ");
    key(views::kKeyUpArrow);
    key(views::kKeyLeftArrow);
    type(" ");
    cell(0).accessibilityPress();
    chooser->toggleBit(31);
    chooser->toggleBit(-1);
    constexpr std::int64_t kMore = std::int64_t{1} << 40;
    EXPECT_EQ(sent, (std::vector{kMore | 1 << 30, kMore, kMore | 1 << 22, kMore | 1 << 22 | 1}));
    EXPECT_EQ(chooser->accessibilityValue(), "1, 23");
    EXPECT_EQ(cell(22).accessibilityChecked(), true);
    EXPECT_EQ(cell(22).accessibilityRole(), views::Role::CheckBox);
    const struct {
        char32_t key;
        std::int64_t bit;
    } moves[] = {{views::kKeyLeftArrow, 0}, {views::kKeyUpArrow, 0},    {views::kKeyDownArrow, 7},
                 {views::kKeyLeftArrow, 6}, {views::kKeyRightArrow, 7}, {views::kKeyDownArrow, 14}};
    for (const auto& [move, bit] : moves) {
        key(move);
        EXPECT_EQ(chooser->focusedBit(), bit);
    }
    chooser->setEnabled(false);
    click(cell(3));
    EXPECT_EQ(sent.size(), 4u);
    EXPECT_FALSE(cell(3).accessibilityEnabled());

    const double first = cell(0).frame().x;
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    chooser->layoutIfNeeded();
    EXPECT_EQ(cell(0).frame().right(), chooser->bounds().width - first);
    chooser->setEnabled(true);
    window.makeFirstResponder(chooser);
    key(views::kKeyLeftArrow);
    EXPECT_EQ(chooser->focusedBit(), 15);
    chooser->setLabels({}, 0);
    EXPECT_TRUE(!chooser->acceptsFirstResponder() && chooser->doCommand(views::Command::MoveDown));
}

TEST_F(Repeats, AreEditedPerFrequency) {
    const platform::ScopedLocale german{platform::Locale("de_DE")};  // Monday comes first
    const auto editor = std::make_shared<CVMacRepeatEditor>();
    window.setContentView(editor);
    std::string told;
    editor->didChangeRepeat = [&](const Rule& rule) {
        told += fmt::format("{}/{}/{} ", rule.frequency(), rule.interval(), rule.occurrences());
    };
    EXPECT_EQ(editor->repeat(), Rule());
    editor->setRepeatForDay(Rule(Rule::kWeekly, 3, 0b1), EXDateOnly(2024, 3, 5));  // on Sundays
    editor->layoutIfNeeded();
    const auto& grid = *editor->occurrenceChooser();
    EXPECT_EQ(grid.accessibilityValue(), "Sonntag");
    EXPECT_EQ(grid.bitmask(), 0b1000000);
    EXPECT_EQ(editor->repeat(), Rule(Rule::kWeekly, 3, 0b1));

    key(views::kKeyTab);
    EXPECT_EQ(editor->frequencyControl()->accessibilityValue(), "Weekly");
    key(views::kKeyRightArrow);
    EXPECT_EQ(grid.accessibilityValue(), "5");
    key(views::kKeyRightArrow);
    EXPECT_EQ(grid.accessibilityValue(), "März");
    EXPECT_EQ(grid.labels().size(), 12u);
    key(views::kKeyLeftArrow);
    key(views::kKeyLeftArrow);
    EXPECT_EQ(told, "2/1/16 3/1/4 2/1/16 1/3/1 ") << "as it was chosen";
    told.clear();
    click(*grid.subviews().front());  // Monday
    EXPECT_EQ(told, "1/3/3 ");
    key(views::kKeyTab);
    EXPECT_EQ(window.firstResponder(), editor->intervalField());
    told.clear();
    key(views::kKeyUpArrow);
    key(views::kKeyUpArrow);
    key(views::kKeyDownArrow);
    const struct {
        const char* text;
        const char* shown;
    } cases[] = {{"12", "12"},   {"٣", "3"},
                 {"x", "3"},     {"", "3"},
                 {"3", "3"},     {"0", "1"},
                 {"-5", "1"},    {"99999999999999999999", "999"},
                 {"1.5", "999"}, {"-99999999999999999999", "1"}};
    for (const auto& [text, shown] : cases) {
        window.makeFirstResponder(editor->intervalField());
        window.fieldEditor().setText(text);
        key(views::kKeyTab);
        EXPECT_EQ(editor->intervalField()->stringValue(), shown) << text;
    }
    EXPECT_EQ(told, "1/4/3 1/5/3 1/4/3 1/12/3 1/3/3 1/1/3 1/999/3 1/1/3 ");
    EXPECT_TRUE(window.firstResponder() == editor->occurrenceChooser());
    told.clear();
    window.makeFirstResponder(editor->intervalField());
    window.fieldEditor().setText("5");
    click(*editor->frequencyControl());
    EXPECT_EQ(told, "1/5/3 0/1/0 ") << "what was typed for weeks";

    // What cannot be chosen here stays: a long interval, and a bit beyond the days.
    editor->setRepeatForDay(Rule(Rule::kWeekly, 1500, 0b10000010), std::nullopt);
    EXPECT_EQ(grid.accessibilityValue(), "Montag");
    editor->layoutIfNeeded();
    click(*grid.subviews()[1]);
    EXPECT_EQ(editor->repeat(), Rule(Rule::kWeekly, 1500, 0b10000110));
    editor->setRepeatForDay(Rule(9, -4, 5), std::nullopt);
    EXPECT_EQ(editor->repeat(), Rule(Rule::kDaily, 1, 0));
    EXPECT_TRUE(grid.isHidden());
    editor->setRepeatForDay(Rule(Rule::kMonthly, 2, 0b11), std::nullopt);
    EXPECT_EQ(editor->repeat(), Rule(Rule::kMonthly, 2, 0b11));
    {
        const platform::ScopedLocale arabic{platform::Locale("ar_EG")};
        editor->setRepeatForDay(Rule(Rule::kMonthly, 1500, 0b11), std::nullopt);
        EXPECT_EQ(editor->intervalField()->stringValue(), "١٥٠٠");
        window.makeFirstResponder(editor->intervalField());
        key(views::kKeyDownArrow);
        EXPECT_EQ(editor->intervalField()->stringValue(), "١٤٩٩");
        EXPECT_EQ(editor->repeat().interval(), 1499);
    }
    editor->didChangeRepeat = [&](const Rule&) { window.setContentView(nullptr); };
    click(*grid.subviews().front());
    EXPECT_EQ(editor->window(), nullptr);
}
