#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/controls/CVMacRadioGroup.h"
#include "corvane/controls/CVMacSegmentedChoice.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/views/Event.h"
#include "corvane/views/Menu.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include "tests/support/RecordingImageService.h"

#include <gtest/gtest.h>

using namespace corvane;
using views::KeyEvent;
using views::Role;

namespace {

/// A section without title, and one with; the last two begin alike.
std::shared_ptr<EXChoiceList> weather() {
    auto list = std::make_shared<EXChoiceList>();
    list->addItemWithTitle("Sun", 0, 10);
    list->addItemWithTitle("Rain", 1, 11);
    list->itemAtIndex(1)->setDetailText("2 mm");
    list->addSectionWithTitle("Rare");
    list->sectionAtIndex(1)->addItemWithTitle("Snow", 2, 12);
    list->sectionAtIndex(1)->addItemWithTitle("Sleet", 3, EXValue());
    return list;
}

struct Host : views::WindowHost {
    void showMenu(const std::shared_ptr<views::Menu>& shown, platform::Point point) override {
        menu = shown;
        place = point;
    }
    std::shared_ptr<views::Menu> menu;
    platform::Point place;
};

struct Choices : testing::Test {
    Choices() { window.setHost(&host); }

    template <class Choice>
    std::shared_ptr<Choice> add() {
        auto choice = std::make_shared<Choice>(views::Rect{10, 10, 200, 100});
        choice->setChoiceList(weather());
        choice->setAction([this](views::Control& sender) {
            const auto& chosen = dynamic_cast<ChoiceControl&>(sender);
            sent += chosen.selectedTitle() + " ";
        });
        window.root().addSubview(choice);
        window.makeFirstResponder(choice);
        return choice;
    }
    std::string press(std::initializer_list<char32_t> keys) {
        for (const char32_t key : keys)
            window.keyDown(KeyEvent(key));
        return std::exchange(sent, "");
    }
    std::string type(const char* text) {
        window.keyDown(KeyEvent(std::string(text)));
        return std::exchange(sent, "");
    }
    std::string click(views::Point point) {
        window.mouseDown(views::MouseEvent(point));
        window.mouseUp(views::MouseEvent(point));
        return std::exchange(sent, "");
    }
    /// "Sun, Rain*, " for those within the view, checked ones with a star.
    static std::string children(const views::View& view) {
        std::string text;
        for (const auto& child : view.subviews()) {
            if (child->accessibilityRole() == Role::None) text += children(*child);
            if (child->accessibilityRole() != Role::RadioButton) continue;
            text += child->accessibilityName() + (*child->accessibilityChecked() ? "*, " : ", ");
        }
        return text;
    }

    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    Host host;
    views::Window window{{300, 300}};
    std::string sent;
};

}  // namespace

TEST_F(Choices, MapBetweenValuesAndItems) {
    const auto choice = add<CVMacPopUpChoice>();
    const struct {
        EXValue value;
        EXValue expected;
        std::string title;
    } cases[] = {{11, 11, "Rain"}, {12.0, 12, "Snow"}, {99, {}, ""}, {{}, {}, "Sleet"}};
    for (const auto& [value, expected, title] : cases) {
        choice->setValue(value);
        EXPECT_EQ(choice->value(), expected);
        EXPECT_EQ(choice->accessibilityValue(), title);
    }
    choice->setValue(12);
    auto other = std::make_shared<EXChoiceList>();
    other->addItemWithTitle("Schnee", 12);
    choice->setChoiceList(other);
    EXPECT_EQ(choice->selectedTitle(), "Schnee");
    choice->setSelectedIndexPath(platform::IndexPath{0, 1});
    EXPECT_FALSE(choice->selectedIndexPath());
    choice->setChoiceList(nullptr);
    choice->setValue(12);
    choice->openMenu();
    EXPECT_TRUE(choice->value().isNull());
    EXPECT_EQ(host.menu, nullptr);
    EXPECT_EQ(sent, "");
}

TEST_F(Choices, PopUpShowsAMenuWithSections) {
    tests::RecordingImageService images;
    const auto icons = std::make_shared<EXImageMap>();
    icons->setImageNames({"sun", "rain-t"});
    const auto choice = add<CVMacPopUpChoice>();
    choice->setIconMap(icons);
    choice->setValue(11);
    for (const char32_t key : {views::kKeyDownArrow, views::kKeyUpArrow, views::kKeyReturn, U' '}) {
        host.menu.reset();
        window.keyDown(KeyEvent(key));
        ASSERT_NE(host.menu, nullptr) << static_cast<int>(key);
    }
    EXPECT_EQ(host.place, (platform::Point{10, 110}));
    std::string text;
    for (const auto& item : host.menu->items())
        text += item->isSeparator() ? "-, "
                                    : item->title() + (item->isOn() ? "*" : "") +
                                          (item->isValid() ? "" : "!") + ", ";
    EXPECT_EQ(text, "Sun, Rain*, -, Rare!, Snow, Sleet, ");
    EXPECT_EQ(tests::descriptionOf(host.menu->items()[1]->image()), "rain-t*?");
    EXPECT_EQ(host.menu->items()[4]->image(), nullptr);
    EXPECT_EQ(host.menu->items()[0]->detail() + host.menu->items()[1]->detail(), "2 mm");
    host.menu->items()[1]->perform();  // chosen already
    host.menu->items()[4]->perform();
    EXPECT_EQ(sent, "Snow ");
    choice->setChoiceList(weather());
    host.menu->items()[0]->perform();  // of the list before
    EXPECT_EQ(choice->selectedTitle(), "Snow");
    choice->setEnabled(false);
    host.menu.reset();
    click({20, 20});
    EXPECT_EQ(host.menu, nullptr);
}

TEST_F(Choices, PopUpChoosesByTypedLetters) {
    const auto choice = add<CVMacPopUpChoice>();
    EXPECT_EQ(type("s"), "Sun ");
    loop.advance(2);
    EXPECT_EQ(type("S"), "Snow ");
    EXPECT_EQ(type("s"), "Sleet ");
    EXPECT_EQ(type("s"), "Sun ");
    loop.advance(2);
    EXPECT_EQ(type("s"), "Snow ");
    EXPECT_EQ(type("l"), "Sleet ");
    loop.advance(2);
    EXPECT_EQ(type("x"), "");
    EXPECT_EQ(choice->selectedTitle(), "Sleet");
    auto states = std::make_shared<EXChoiceList>();
    for (const char* title : {"On Air", "On Hold", "Only"})
        states->addItemWithTitle(title, EXValue(title));
    choice->setChoiceList(states);
    loop.advance(2);
    EXPECT_EQ(type("o"), "On Air ");
    for (const char* more : {"n", " "})
        EXPECT_EQ(type(more), "");
    EXPECT_EQ(type("h"), "On Hold ");
    EXPECT_EQ(host.menu, nullptr);
    type(" ");
    EXPECT_NE(host.menu, nullptr);
}

TEST_F(Choices, RadioGroupAndSegmentsAreDrivenByKeys) {
    using views::kKeyEnd;
    using views::kKeyHome;
    const auto radio = add<CVMacRadioGroup>();
    EXPECT_EQ(press({U' ', views::kKeyUpArrow, views::kKeyDownArrow, kKeyEnd, views::kKeyDownArrow,
                     kKeyHome}),
              "Sun Rain Sleet Sun ");
    radio->selectRow(1);
    EXPECT_EQ(radio->value(), EXValue(11));
    radio->selectRow(4);
    EXPECT_EQ(radio->selectedRow(), -1);
    const auto segments = add<CVMacSegmentedChoice>();
    EXPECT_EQ(press({views::kKeyRightArrow, views::kKeyRightArrow, kKeyEnd, views::kKeyRightArrow,
                     views::kKeyLeftArrow}),
              "Sun Rain Sleet Snow ");
    radio->setNextKeyView(segments);
    segments->setNextKeyView(radio);
    window.keyDown(KeyEvent(views::kKeyTab));
    EXPECT_EQ(window.firstResponder(), radio);
    window.keyDown(KeyEvent(views::kKeyBacktab));
    EXPECT_EQ(window.firstResponder(), segments);
    {
        platform::ScopedLocale arabic{platform::Locale("ar")};
        EXPECT_EQ(press({views::kKeyLeftArrow}), "Sleet ");
        EXPECT_EQ(click({15, 50}), "");  // chosen already
        EXPECT_EQ(click({205, 50}), "Sun ");
    }
    segments->setEnabled(false);
    EXPECT_FALSE(window.viewAt({15, 50})->accessibilityEnabled());
    EXPECT_EQ(press({kKeyEnd}), "");
    EXPECT_EQ(click({15, 50}), "");
}

TEST_F(Choices, AreSeenItemByItem) {
    tests::RecordingImageService images;
    const auto icons = std::make_shared<EXImageMap>();
    icons->setImageNames({"sun"});
    for (const bool isRadio : {true, false}) {
        std::shared_ptr<ChoiceControl> choice;
        if (isRadio) {
            choice = add<CVMacRadioGroup>();
        } else {
            choice = add<CVMacSegmentedChoice>();
        }
        choice->setIconMap(icons);
        choice->setValue(11);
        EXPECT_EQ(children(*choice), "Sun, Rain*, Snow, Sleet, ");
        EXPECT_EQ(choice->accessibilityRole(), Role::RadioGroup);
        // A picture alone is told by its tool tip, a row says everything itself.
        choice->layoutIfNeeded();
        const auto first = window.viewAt({15, 15});
        ASSERT_NE(first, nullptr);
        EXPECT_EQ(first->toolTip(), isRadio ? "" : "Sun");
        first->accessibilityPress();
        EXPECT_EQ(std::exchange(sent, ""), "Sun ");
        choice->setValue(12);
        choice->setAction([](views::Control& sender) {
            sender.removeFromSuperview();
            dynamic_cast<ChoiceControl&>(sender).setChoiceList(nullptr);
        });
        click({15, 40});
        EXPECT_TRUE(choice->value().isNull());
        EXPECT_EQ(children(*choice), "");
    }
}
