// Sheets and panels over a window's content.

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/CVMacPanel.h"
#include "corvane/controls/CVMacSheet.h"
#include "corvane/platform/Locale.h"
#include "corvane/views/Button.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <gtest/gtest.h>

using namespace corvane;
using views::KeyEvent;
using views::Rect;

namespace {

/// Two fields in a chain.
struct Fields : views::View {
    Fields() : View(Rect{0, 0, 200, 60}) {
        for (const auto& field : {first, last})
            addSubview(field);
        first->setNextKeyView(last);
    }
    views::Size preferredSizeThatFits(views::Size) override { return {200, 60}; }

    std::shared_ptr<views::TextField> first =
        std::make_shared<views::TextField>(Rect{0, 0, 200, 20});
    std::shared_ptr<views::TextField> last =
        std::make_shared<views::TextField>(Rect{0, 30, 200, 20});
};

struct Sheets : testing::Test {
    views::Window window{{400, 300}};
    std::shared_ptr<Fields> content = std::make_shared<Fields>();
    std::shared_ptr<Fields> inside = std::make_shared<Fields>();
    std::string log;

    Sheets() { window.setContentView(content); }
    std::shared_ptr<CVMacSheet> makeSheet(const std::shared_ptr<views::View>& view,
                                          const char* name) {
        auto sheet = std::make_shared<CVMacSheet>(view);
        sheet->setTitle(name);
        sheet->didEnd = [this, name] { log += name; };
        return sheet;
    }
    bool hasFocus(const std::shared_ptr<views::TextField>& field) const {
        return window.firstResponder() == field;
    }
    void key(char32_t key, std::uint64_t flags = 0) { window.keyDown(KeyEvent(key, flags)); }
};

}  // namespace

TEST_F(Sheets, TakeEventsAndTabForThemselvesAndGiveTheFocusBack) {
    window.makeFirstResponder(content->last);
    content->last->setAction([&](auto&) { log += "committed "; });
    window.keyDown(KeyEvent(std::string("x")));
    const auto sheet = makeSheet(inside, "end ");
    inside->last->setNextKeyView(content->first);  // a way out
    sheet->beginInWindow(window);
    sheet->beginInWindow(window);
    EXPECT_EQ(log, "committed ");
    EXPECT_TRUE(sheet->isShown() && hasFocus(inside->first));
    key(views::kKeyTab);
    EXPECT_TRUE(hasFocus(inside->last));
    key(views::kKeyTab);
    EXPECT_TRUE(hasFocus(inside->first));
    key(views::kKeyTab, views::kModifierShift);
    EXPECT_TRUE(hasFocus(inside->last));
    EXPECT_FALSE(window.makeFirstResponder(content->first));
    EXPECT_TRUE(window.mouseDown(views::MouseEvent({5, 5})));
    EXPECT_EQ(window.contextMenu(views::MouseEvent({5, 5})), nullptr);
    EXPECT_TRUE(hasFocus(inside->last));
    window.makeFirstResponder(nullptr);
    key(views::kKeyTab);
    EXPECT_TRUE(hasFocus(inside->first));

    const auto card = sheet->subviews().front();
    EXPECT_EQ(card->accessibilityRole(), views::Role::Dialog);
    EXPECT_EQ(card->accessibilityName(), "end ");
    for (const double width : {500.0, 100.0, 10.0}) {
        window.setSize({width, 280});
        sheet->layoutIfNeeded();
        EXPECT_EQ(sheet->frame(), window.root().bounds());
        EXPECT_NEAR(card->frame().x + card->frame().right(), width, 1) << "in the middle";
    }
    key(views::kKeyEscape);
    EXPECT_EQ(log, "committed end ");
    EXPECT_TRUE(!sheet->isShown() && hasFocus(content->last));
}

TEST_F(Sheets, WaitForTheOneBefore) {
    window.makeFirstResponder(content->first);
    const auto a = makeSheet(inside, "a");
    const auto b = makeSheet(std::make_shared<Fields>(), "b");
    const auto c = makeSheet(nullptr, "c");
    const auto d = makeSheet(std::make_shared<Fields>(), "d");
    for (const auto& sheet : {a, b, c, d})
        sheet->beginInWindow(window);
    EXPECT_TRUE(a->isShown() && !b->isShown());
    b->end();
    b->end();
    EXPECT_EQ(log, "b");
    a->end();
    EXPECT_TRUE(c->isShown() && !window.firstResponder());
    key(views::kKeyEscape);
    EXPECT_EQ(log, "bac");
    a->didEnd = [&] { b->beginInWindow(window); };
    d->removeFromSuperview();
    EXPECT_EQ(log, "bacd");
    EXPECT_TRUE(hasFocus(content->first));
    a->beginInWindow(window);
    a->end();
    EXPECT_TRUE(b->isShown());
    a->beginInWindow(window);
    {
        views::Window another({100, 100});
        d->beginInWindow(another);
        c->beginInWindow(another);
    }
    for (const auto& sheet : {c, d, a, b})
        sheet->end();
    EXPECT_EQ(log, "bacdb") << "and none from a window that went away";
    // Ended by whoever loses the focus to it.
    content->first->setAction([&](auto&) { d->beginInWindow(window), c->end(); });
    window.makeFirstResponder(content->first);
    window.keyDown(KeyEvent(std::string("x")));
    c->beginInWindow(window);
    EXPECT_TRUE(!c->isShown() && d->isShown());
    d->end();
    EXPECT_EQ(log, "bacdbcd");
    EXPECT_EQ(window.modalViews().current(), nullptr);
}

TEST_F(Sheets, PressTheirButtonsByKeys) {
    const auto sheet = makeSheet(inside, "end");
    const auto ok = std::make_shared<views::Button>();
    const auto cancel = std::make_shared<views::Button>();
    ok->setAction([&](auto&) { log += "ok "; });
    cancel->setAction([&](auto&) { log += "cancel "; });
    sheet->setDefaultButton(ok);
    sheet->setCancelButton(cancel);
    sheet->beginInWindow(window);
    window.makeFirstResponder(nullptr);
    key(views::kKeyReturn);
    key(views::kKeyEscape);
    EXPECT_EQ(log, "ok cancel ");
    sheet->end();

    // A form brings its own; it must be reached even while nobody has the focus.
    struct Controller : CVDetailController {
        std::int64_t countFields(Index) const override { return 2; }
    };
    const auto controller = std::make_shared<Controller>();
    const auto form = CVMacDetailForm::make(controller);
    const auto formSheet = makeSheet(form, "form ");
    form->didClose = [&] { formSheet->end(); };
    for (const char32_t way : {views::kKeyReturn, views::kKeyEscape}) {
        for (const bool withoutFocus : {true, false}) {
            log.clear();
            formSheet->beginInWindow(window);
            if (withoutFocus) window.makeFirstResponder(nullptr);
            key(way);
            EXPECT_EQ(log, "form ");
        }
    }
}

TEST_F(Sheets, StayOverTheContentAndBelowWhatComesLater) {
    const auto sheet = makeSheet(inside, "");
    sheet->beginInWindow(window);
    window.setContentView(std::make_shared<Fields>());
    EXPECT_EQ(window.root().subviews().back(), sheet);
    EXPECT_TRUE(hasFocus(inside->first));
    const auto over = std::make_shared<views::TextField>(Rect{0, 0, 50, 20});
    window.root().addSubview(over);
    EXPECT_TRUE(window.makeFirstResponder(over));
    EXPECT_EQ(window.viewAt({5, 5}), over);
}

TEST_F(Sheets, PanelsFloatAndBlockNothing) {
    window.makeFirstResponder(content->last);
    const auto panel = std::make_shared<CVMacPanel>("Panel", inside);
    const auto other = std::make_shared<CVMacPanel>("Other", std::make_shared<Fields>());
    panel->didClose = [&] { log += "closed "; };
    panel->showInWindow(window);
    panel->layoutIfNeeded();
    EXPECT_TRUE(hasFocus(inside->first));
    const auto bar = [&] {
        return views::Point{panel->frame().x + panel->frame().width / 2, panel->frame().y + 5};
    };
    const auto drag = [&](views::Point to) {
        window.mouseDown(views::MouseEvent(bar()));
        window.mouseDragged(views::MouseEvent(to));
        window.mouseUp(views::MouseEvent(to));
    };
    const auto middle = panel->frame();
    EXPECT_NEAR(middle.x + middle.right(), 400, 1);
    drag({bar().x + 20, bar().y + 30});
    EXPECT_EQ(panel->frame(), middle.movedBy(20, 30));
    drag({5000, -5000});
    EXPECT_EQ(panel->frame(), (Rect{400 - middle.width, 0, middle.width, middle.height}));
    window.setSize({300, 300});
    panel->layoutIfNeeded();
    EXPECT_EQ(panel->frame().right(), 300);

    other->showInWindow(window);
    window.makeFirstResponder(inside->last);
    window.mouseDown(views::MouseEvent({panel->frame().right() - 5, 5}));
    EXPECT_EQ(window.root().subviews().back(), panel) << "in front";
    EXPECT_TRUE(hasFocus(inside->last));
    EXPECT_EQ(log, "");
    EXPECT_TRUE(window.makeFirstResponder(content->first)) << "below";
    window.makeFirstResponder(inside->last);
    key(views::kKeyTab);
    EXPECT_EQ(window.firstResponder()->accessibilityName(), EXLocalizable::localize("Close"));
    key(views::kKeyTab);
    EXPECT_TRUE(hasFocus(inside->first));
    key(views::kKeyTab, views::kModifierShift);
    window.keyDown(KeyEvent(std::string(" ")));
    EXPECT_EQ(log, "closed ");
    EXPECT_TRUE(hasFocus(content->last));
    panel->showInWindow(window);
    EXPECT_EQ(panel->frame().right(), 300) << "where it was";
    key(views::kKeyEscape);
    panel->close();
    EXPECT_EQ(log, "closed closed ");
    std::make_shared<CVMacPanel>("", nullptr)->showInWindow(window);
}

TEST_F(Sheets, KeysGoFromTheWindowToItsPanelsAndBack) {
    const auto others = std::make_shared<Fields>();
    const auto panel = std::make_shared<CVMacPanel>("Panel", inside);
    const auto other = std::make_shared<CVMacPanel>("Other", others);
    panel->showInWindow(window);
    other->showInWindow(window);
    window.makeFirstResponder(content->last);
    content->last->setAction([&](auto&) { log += "committed "; });
    window.keyDown(KeyEvent(std::string("x")));
    constexpr auto kShift = views::kModifierShift;
    constexpr auto kControl = views::kModifierCommand;
    const struct {
        char32_t key;
        std::uint64_t flags;
        std::shared_ptr<views::TextField> field;
    } steps[] = {
        {views::kKeyF6, 0, inside->first},
        {views::kKeyTab, 0, inside->last},
        {views::kKeyF6, 0, others->first},
        {views::kKeyF6, kShift, inside->last},
        {views::kKeyF6, kShift, content->last},
        {views::kKeyF6, kShift, others->first},
        {views::kKeyF6, 0, content->last},
        {views::kKeyTab, kControl, inside->last},
        {views::kKeyTab, kControl | kShift, content->last},
        {views::kKeyBacktab, kControl | kShift, others->first},
    };
    for (const auto& [way, flags, field] : steps) {
        EXPECT_TRUE(window.keyDown(KeyEvent(way, flags)));
        EXPECT_TRUE(hasFocus(field)) << "for key " << static_cast<unsigned>(way);
        const auto front = window.root().subviews().back();
        EXPECT_TRUE(field->isDescendantOf(*content) || field->isDescendantOf(*front));
    }
    EXPECT_EQ(log, "committed ");

    // A sheet keeps the focus, but not from a panel above it.
    const auto sheet = makeSheet(std::make_shared<Fields>(), "");
    sheet->beginInWindow(window);
    const auto inSheet = window.firstResponder();
    EXPECT_FALSE(window.keyDown(KeyEvent(views::kKeyF6)));
    EXPECT_EQ(window.firstResponder(), inSheet);
    panel->close();
    panel->showInWindow(window);
    for (const bool isInPanel : {false, true, false}) {
        EXPECT_TRUE(window.keyDown(KeyEvent(views::kKeyF6)));
        EXPECT_EQ(hasFocus(inside->first), isInPanel);
    }
    sheet->end();

    // Only to what is there to be seen; and in, from nowhere.
    other->setHidden(true);
    window.makeFirstResponder(inside->first);
    inside->first->setHidden(true);
    key(views::kKeyF6);
    EXPECT_TRUE(hasFocus(content->last));
    key(views::kKeyF6);
    EXPECT_TRUE(hasFocus(inside->last));
    panel->close();
    window.makeFirstResponder(nullptr);
    key(views::kKeyF6, views::kModifierShift);
    EXPECT_TRUE(hasFocus(content->last));
    EXPECT_FALSE(window.keyDown(KeyEvent(views::kKeyF6)));
    window.setContentView(std::make_shared<views::TextField>());
    panel->showInWindow(window);
    key(views::kKeyF6);
    EXPECT_EQ(window.firstResponder(), window.contentView()) << "the whole content is one field";
}

TEST_F(Sheets, PanelsKeepTheirButtonInAWindowThatIsTooSmall) {
    for (const char* language : {"en", "ar"}) {
        const platform::ScopedLocale locale{platform::Locale(language)};
        const auto panel = std::make_shared<CVMacPanel>("Panel", std::make_shared<Fields>());
        window.setSize({400, 300});
        panel->showInWindow(window);
        window.setSize({120, 20});
        panel->layoutIfNeeded();
        panel->subviews().back()->layoutIfNeeded();
        const auto button = panel->subviews().back()->subviews().front();
        const auto frame = button->convertToWindow(button->bounds());
        EXPECT_EQ(button->accessibilityName(), EXLocalizable::localize("Close"));
        EXPECT_TRUE(frame.x >= 0 && frame.right() <= 120) << language << " " << frame.x;
        EXPECT_LT(frame.y, 20);
        panel->close();
    }
}
