#include "corvane/controls/CVMacTextChoiceField.h"
#include "corvane/controls/CellChoiceFields.h"
#include "corvane/platform/Locale.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

using namespace corvane;
using views::KeyEvent;

namespace {

std::shared_ptr<EXChoiceList> places() {
    auto list = std::make_shared<EXChoiceList>();
    list->addItemWithTitle("Office", 1);
    list->addItemWithTitle("Élysée", 2);
    list->addSectionWithTitle("Home");
    list->sectionAtIndex(1)->addItemWithTitle("Kitchen", 3);
    list->sectionAtIndex(1)->addItemWithTitle("Kitchen garden", 4);
    return list;
}

struct TextChoices : testing::Test {
    TextChoices() {
        field->setChoiceList(places());
        field->setAction([this](views::Control&) {
            sent +=
                field->stringValue() + "=" + std::to_string(field->value().integerValue()) + " ";
        });
        window.root().addSubview(field);
    }
    /// The text with its selection in brackets, after the keys: "\n", "\b" and the like as keys.
    std::string afterTyping(std::string_view keys) {
        window.makeFirstResponder(nullptr);
        field->setValue({});
        sent.clear();
        window.makeFirstResponder(field);
        for (const char key : keys) {
            switch (key) {
                case '\n':
                    window.keyDown(KeyEvent(views::kKeyReturn));
                    break;
                case '\b':
                    window.keyDown(KeyEvent(views::kKeyBackspace));
                    break;
                case '>':
                    window.keyDown(KeyEvent(views::kKeyRightArrow));
                    break;
                case '*':
                    window.fieldEditor().selectAll();
                    break;
                case 'v':
                    window.keyDown(KeyEvent(views::kKeyDownArrow));
                    break;
                case '.':
                    window.makeFirstResponder(nullptr);
                    break;
                default:
                    window.keyDown(KeyEvent(std::string(1, key)));
            }
        }
        std::string text = field->stringValue();
        if (!field->isEditing()) return text;
        text.insert(window.fieldEditor().selectionEnd(), "]");
        return text.insert(window.fieldEditor().selectionStart(), "[");
    }

    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    views::Window window{{400, 400}};
    std::shared_ptr<CVMacTextChoiceField> field =
        std::make_shared<CVMacTextChoiceField>(views::Rect{10, 10, 150, 22});
    std::string sent;
};

}  // namespace

TEST_F(TextChoices, CompleteWhatIsTyped) {
    const struct {
        const char* keys;
        const char* text;
        const char* sent;
        const char* sentWithUnknown;
    } cases[] = {
        {"o", "o[ffice]", "", ""},
        {"of\n", "Office", "Office=1 ", "Office=1 "},
        {"of.", "Office", "Office=1 ", "Office=1 "},
        {"ely", "ely[sée]", "", ""},
        {"ely>.", "Élysée", "Élysée=2 ", "Élysée=2 "},
        {"k", "k[itchen]", "", ""},
        {"kitchen ", "kitchen [garden]", "", ""},
        {"kitchen.", "Kitchen", "Kitchen=3 ", "Kitchen=3 "},
        {"o\b", "o[]", "", ""},
        {"of\b\b", "o[]", "", ""},
        {"of\bx", "ofx[]", "", ""},
        {"of*k", "k[itchen]", "", ""},
        {"of\b.", nullptr, "Office=1 ", "of=0 "},
        {"zoo.", nullptr, "", "zoo=0 "},
        {"vv\n", "Élysée", "Élysée=2 ", "Élysée=2 "},
        {"kv\n", "Kitchen garden", "Kitchen garden=4 ", "Kitchen garden=4 "},
    };
    for (const bool allows : {false, true}) {
        field->setAllowsUnknownText(allows);
        for (const auto& [keys, text, known, unknown] : cases) {
            const std::string shown = afterTyping(keys);
            const bool isDone = std::string_view(keys).ends_with('\n');
            if (text) {
                EXPECT_EQ(isDone ? field->stringValue() : shown, text) << keys;
            }
            EXPECT_EQ(sent, allows ? unknown : known) << keys;
        }
    }
}

TEST_F(TextChoices, KeepTheChoiceWhereTheTextSaysNone) {
    field->setValue(3);
    window.makeFirstResponder(field);
    window.keyDown(KeyEvent(std::string("zoo")));
    window.makeFirstResponder(nullptr);
    EXPECT_EQ(field->stringValue(), "Kitchen");
    EXPECT_EQ(sent, "");
    field->setStringValue("");
    field->sendAction();
    EXPECT_EQ(sent, "=0 ");
    field->setValue(99);
    EXPECT_EQ(field->stringValue(), "");
    field->setValue(4);
    field->setChoiceList(nullptr);
    EXPECT_EQ(field->stringValue(), "");
    EXPECT_TRUE(field->value().isNull());
    EXPECT_EQ(afterTyping("o"), "o[]");
}

TEST_F(TextChoices, CompleteNothingThatWasTakenAway) {
    for (const auto& [value, keys, text] :
         std::vector<std::tuple<int, std::u32string, const char*>>{
             {3, {views::kKeyRightArrow, views::kKeyBackspace}, "Kitche"},
             {1, {views::kKeyRightArrow, views::kKeyBackspace, views::kKeyBackspace}, "Offi"},
             {1, {U'o', U'f', views::kKeyRightArrow, views::kKeyBackspace}, "offic"},
             {1, {U'o', views::kKeyReturn, views::kKeyRightArrow, views::kKeyBackspace}, "Offic"},
             {3, {U'K'}, "Kitchen"},
             {1, {views::kKeyRightArrow, U'x'}, "Officex"}}) {
        window.makeFirstResponder(nullptr);
        field->setValue(value);
        window.makeFirstResponder(field);
        for (const char32_t key : keys)
            window.keyDown(KeyEvent(key));
        EXPECT_EQ(field->stringValue(), text);
    }
}

TEST_F(TextChoices, OpenAndCloseByTheArrow) {
    const auto clickAt = [this](double x) {
        window.mouseDown(views::MouseEvent({x, 20}));
        window.mouseUp(views::MouseEvent({x, 20}));
        return field->dateChooserPopover().isShown();
    };
    EXPECT_TRUE(clickAt(155));
    EXPECT_FALSE(clickAt(155));
    EXPECT_TRUE(clickAt(155));
    EXPECT_TRUE(clickAt(20));
    EXPECT_EQ(field->textRect().right(), 150 - 4 - 18);
    window.keyDown(KeyEvent(views::kKeyReturn));
    EXPECT_FALSE(field->dateChooserPopover().isShown());
    platform::ScopedLocale arabic{platform::Locale("ar")};
    EXPECT_EQ(field->textRect().x, 4 + 18);
    EXPECT_TRUE(clickAt(15));
    EXPECT_FALSE(clickAt(15));
    field->setBordered(false);
    EXPECT_EQ(field->textRect().width, 150 - 2 * 4);
    EXPECT_TRUE(clickAt(15));
    EXPECT_TRUE(clickAt(15));
}

TEST_F(TextChoices, AreChosenWithTheMouse) {
    window.makeFirstResponder(field);
    const auto row = window.viewAt({30, 10 + 22 + 4 + 24 * 2 + 10});
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->accessibilityName(), "Kitchen");
    field->setAction([this](views::Control&) { field->removeFromSuperview(); });
    row->accessibilityPress();
    EXPECT_EQ(field->value(), EXValue(3));
    EXPECT_EQ(row->window(), nullptr);
}

TEST(CellChoiceFields, OpenWithTheirRowAndCommitIt) {
    test::TableFixture fixture{{1, 2}};
    const auto cell = fixture.cell(0, 1);
    const auto field = createTextChoiceField(*cell);
    field->setChoiceList(places());
    EXPECT_EQ(field->superview(), cell->contentView().get());
    EXPECT_FALSE(field->isEditable());
    cell->activateField(field);
    EXPECT_EQ(fixture.takeLog(), "select(0,1) ");
    field->setStringValue("kitchen");
    field->sendAction();
    field->sendAction();  // nothing new
    EXPECT_EQ(fixture.takeLog(), "edit(0,1) ");
    // 7 letters of 6.5.
    EXPECT_EQ(preferredSizeForTextChoiceField(*field), (platform::Size{7 * 6.5 + 8, 21}));
    EXPECT_EQ(preferredHeightForWidthOfTextChoiceField(10, *field), 21);
    EXPECT_EQ(preferredSizeThatFitsForTextChoiceField({20, 10}, *field), (platform::Size{20, 10}));
    EXPECT_GT(field->preferredSizeThatFits({500, 500}).width, 14 * 6.5);
}
