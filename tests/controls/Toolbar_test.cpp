#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/controls/CVMacToolbarButton.h"
#include "corvane/platform/Locale.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/ToolbarItem.h"

#include "tests/controls/BarsFixture.h"
#include "tests/support/RecordingImageService.h"

using namespace corvane;
using views::Role;
using views::View;

namespace {

struct LoggedAction final : CVAction {
    LoggedAction(std::string name, std::int64_t index, std::string& log)
        : CVAction(name, index), log_(log) {
        setTitle(std::move(name));
    }
    void actionInvoked(const Sender& sender) override {
        log_ += *title() + std::to_string(sender.index()) + " ";
        if (whenInvoked) whenInvoked();
        CVAction::actionInvoked(sender);
    }
    bool validate() const override {
        ++asked;
        if (whenAsked) whenAsked();
        return valid;
    }

    std::function<void()> whenInvoked;
    std::function<void()> whenAsked;
    bool valid = true;
    mutable int asked = 0;

  private:
    std::string& log_;
};

struct Toolbar : test::BarsFixture {
    std::shared_ptr<LoggedAction> action(const char* name, std::int64_t index = 0) {
        return std::make_shared<LoggedAction>(name, index, log);
    }
    /// "New", "Open" and "Share", the last two with a menu of "Mail" and "Print".
    void showThree(double width = 600) {
        open->setSubActions({mail, nullptr, print});
        share->setSubActions({mail, print});
        share->setAllowToggling(true);
        make->setAddAction(true);
        toolbar->setActions({share, nullptr, open, make, open});
        toolbar->didInvokeAction = [this](CVAction& invoked) { log += *invoked.title() + "! "; };
        show(toolbar, {0, 0, width, 40});
    }
    View* viewOf(const CVAction& of) const { return toolbar->viewForAction(of).get(); }
    std::string takeLog() { return std::exchange(log, ""); }

    std::string log;
    std::shared_ptr<CVMacToolbar> toolbar = std::make_shared<CVMacToolbar>();
    std::shared_ptr<LoggedAction> make = action("New", 7);
    std::shared_ptr<LoggedAction> open = action("Open", 1);
    std::shared_ptr<LoggedAction> share = action("Share", 2);
    std::shared_ptr<LoggedAction> mail = action("Mail", 0);
    std::shared_ptr<LoggedAction> print = action("Print", 1);
};

}  // namespace

TEST_F(Toolbar, StandsInTheOrderOfIndexesWithWhatAddsApartInFront) {
    showThree();
    EXPECT_EQ(toolbar->actions(), (CVMacToolbar::Actions{make, open, share}));
    EXPECT_EQ(toolbar->accessibilityRole(), Role::Toolbar);
    for (const char* locale : {"en", "ar"}) {
        const platform::ScopedLocale scope{platform::Locale(locale)};
        toolbar->setNeedsApplyLayout();
        loop.runTurn();
        const bool mirrored = std::string(locale) == "ar";
        const auto gap = [&](const CVAction& a, const CVAction& b) {
            const auto first = viewOf(a)->frame();
            const auto second = viewOf(b)->frame();
            return mirrored ? first.x - second.right() : second.x - first.right();
        };
        EXPECT_EQ(mirrored ? 600 - viewOf(*make)->frame().right() : viewOf(*make)->frame().x, 4);
        EXPECT_GT(gap(*make, *open), gap(*open, *share)) << locale;
        EXPECT_GT(gap(*open, *share), 0) << locale;
    }
    EXPECT_EQ(toolbar->buttonForAction(*share), nullptr);
    EXPECT_EQ(toolbar->buttonForAction(*mail), nullptr);
    toolbar->setActions({share});
    EXPECT_EQ(make->toolbarItem(), nullptr);
    EXPECT_EQ(share->toolbarItem()->label(), "Share");
}

TEST_F(Toolbar, InvokesTheActionWhereItIsToldThatThenTells) {
    showThree();
    click(*viewOf(*make));
    EXPECT_EQ(takeLog(), "New1 New! ");
    make->setUseDefaultActionInvokedSelector(false);
    window.makeFirstResponder(toolbar->buttonForAction(*make));
    type(" ");
    press(views::kKeyReturn);
    toolbar->viewForAction(*make)->accessibilityPress();
    EXPECT_EQ(takeLog(), "New! New! New! ");
    // Segments pass on to the action of their own that was chosen.
    auto& segments = dynamic_cast<views::SegmentedControl&>(*viewOf(*share));
    window.makeFirstResponder(toolbar->viewForAction(*share));
    segments.setSelectedSegment(0);
    press(views::kKeyRightArrow);
    EXPECT_EQ(takeLog(), "Share1 Print1 Share! ");
    // Which keep the selection and the focus when the actions are set again, even by that.
    share->whenInvoked = [&] { toolbar->setActions({share, open, make}); };
    share->setSubActions({print, mail});
    press(views::kKeyHome);
    share->whenInvoked = nullptr;
    EXPECT_EQ(takeLog(), "Share1 Mail1 Share! ");
    EXPECT_EQ(segments.accessibilityValue(), "Mail");
    EXPECT_EQ(focus().get(), &segments);
    // What is told may take everything away.
    make->setUseDefaultActionInvokedSelector(true);
    make->whenInvoked = [&] { toolbar->setActions({}); };
    const auto button = toolbar->viewForAction(*make);
    click(*button);
    EXPECT_EQ(takeLog(), "New1 New! ");
    EXPECT_TRUE(toolbar->actions().empty());
    toolbar->removeFromSuperview();
    button->accessibilityPress();
    EXPECT_EQ(takeLog(), "New1 New! ");
}

TEST_F(Toolbar, MakesTheMenuOfAnActionsActionsAnewForEachOpening) {
    showThree();
    EXPECT_EQ(viewOf(*open)->accessibilityRole(), Role::PopUpButton);
    mail->valid = false;
    click(*viewOf(*open));
    const auto first = menu;
    EXPECT_EQ(menuText(), "(Mail), Print");
    first->items()[0]->perform();
    first->items()[1]->perform();
    EXPECT_EQ(takeLog(), "Print2 Print! ");
    mail->valid = true;
    window.makeFirstResponder(toolbar->viewForAction(*open));
    press(views::kKeyDownArrow);
    EXPECT_NE(menu, first);
    EXPECT_EQ(menuText(), "Mail, Print");
    print->setSubActions({open});  // without end
    click(*viewOf(*open));
    EXPECT_NE(menu->items()[1]->submenu(), nullptr);
    print->setSubActions({});
    // The desktop runs what was chosen when the menu has gone.
    toolbar->removeFromSuperview();
    shown.reset();
    toolbar.reset();
    menu->items()[0]->perform();
    EXPECT_EQ(takeLog(), "Mail2 ");
}

TEST_F(Toolbar, AsksWhetherActionsAreValidOnceAfterEvents) {
    showThree();
    const int asked = make->asked;
    EXPECT_EQ(asked, 1);
    make->valid = false;
    loop.runTurn();
    EXPECT_EQ(make->asked, asked);
    const views::MouseEvent elsewhere(views::Point{300, 300});
    window.mouseDown(elsewhere);
    window.mouseUp(elsewhere);
    EXPECT_TRUE(toolbar->buttonForAction(*make)->isEnabled());
    loop.runTurn();
    EXPECT_EQ(make->asked, asked + 1);
    EXPECT_FALSE(toolbar->buttonForAction(*make)->isEnabled());
    EXPECT_FALSE(make->toolbarItem()->isEnabled());
    click(*viewOf(*make));
    EXPECT_EQ(takeLog(), "");
    make->valid = true;
    print->valid = false;
    toolbar->validateActions();
    EXPECT_TRUE(viewOf(*make)->accessibilityEnabled());
    const std::function<void()> events[] = {
        [&] { window.setActive(false); },
        [&] {  // as a host's own widget does it
            window.makeFirstResponder(before);
            window.fieldEditor().setText("typed");
        },
        [&] { toolbar->viewForAction(*make)->accessibilityPress(); },
    };
    for (const auto& event : events) {
        loop.runTurn();
        const int once = make->asked + 1;
        event();
        loop.runTurn();
        EXPECT_EQ(make->asked, once);
    }
    EXPECT_FALSE(dynamic_cast<views::SegmentedControl&>(*viewOf(*share)).segments()[1].enabled);
    const int askedBefore = make->asked;
    viewOf(*open)->accessibilityPress();  // opens the menu
    EXPECT_EQ(make->asked, askedBefore + 1);
    make->whenAsked = [&] { toolbar->setActions({share}); };
    toolbar->validateActions();
    EXPECT_EQ(toolbar->actions().size(), 1u);
}

TEST_F(Toolbar, PutsWhatDoesNotFitIntoAMenu) {
    const platform::ScopedLanguages german({"de"});
    showThree();
    const double all = toolbar->preferredSizeThatFits({2000, 40}).width;
    EXPECT_EQ(viewOf(*share)->frame().right() + 4, all);
    EXPECT_EQ(toolbar->preferredSizeThatFits({100, 40}).width, 100);
    for (const double width : {all - 1e-9, all - 1, 100.0, 30.0, 0.0, all}) {
        window.makeFirstResponder(toolbar->viewForAction(*open));
        const bool hadFocus = focus() != nullptr;
        toolbar->setFrameSize({width, 40});
        loop.runTurn();
        double end = 0;
        for (const CVAction* each : {static_cast<CVAction*>(&*make), static_cast<CVAction*>(&*open),
                                     static_cast<CVAction*>(&*share)})
            if (!viewOf(*each)->isHidden()) end = viewOf(*each)->frame().right();
        EXPECT_LE(end, std::max(width, 30.0));
        EXPECT_EQ(viewOf(*share)->isHidden(), width < all - 0.5);
        EXPECT_EQ(hadFocus, focus() && focus()->isDescendantOf(*toolbar)) << width;
        auto back = tabStops(views::kKeyBacktab);
        std::reverse(back.begin(), back.end());
        EXPECT_EQ(tabStops(), back) << width;
    }
    toolbar->setFrameSize({100, 40});
    loop.runTurn();
    const auto overflow = partsOf(*toolbar, Role::PopUpButton).back();
    EXPECT_EQ(overflow->accessibilityName(), "Weitere Aktionen");
    open->setSubActions({});
    open->valid = false;
    overflow->accessibilityPress();
    EXPECT_EQ(menuText(), "(Open), Share");
    menu->items()[1]->submenu()->items()[0]->perform();
    EXPECT_EQ(takeLog(), "Mail2 Mail! ");
    EXPECT_EQ(viewOf(*share)->accessibilityValue(), "Mail");
    open->whenAsked = [&] { toolbar->setActions({share, make}); };
    overflow->accessibilityPress();
    EXPECT_EQ(menuText(), "Share");
    EXPECT_TRUE(menu->items()[0]->submenu()->items()[0]->isOn());
    toolbar->setActions({});
    toolbar->setFrameSize({0, 40});
    loop.runTurn();
    EXPECT_TRUE(overflow->isHidden());
}

TEST_F(Toolbar, FollowsWhatIsDoneToAnActionsItem) {
    showThree();
    const auto item = make->toolbarItem();
    const double width = viewOf(*make)->frame().width;
    item->setLabel("A longer name");
    item->setToolTip("Makes a new one");
    item->setEnabled(false);
    loop.runTurn();
    EXPECT_GT(viewOf(*make)->frame().width, width);
    EXPECT_EQ(viewOf(*make)->accessibilityName(), "A longer name");
    EXPECT_EQ(viewOf(*make)->toolTip(), "Makes a new one");
    EXPECT_FALSE(viewOf(*make)->accessibilityEnabled());
    const auto custom = std::make_shared<views::TextField>();
    item->setView(custom);
    EXPECT_EQ(viewOf(*make), custom.get());
    EXPECT_EQ(custom->superview(), toolbar.get());
    item->setView(nullptr);
    EXPECT_EQ(viewOf(*make)->accessibilityName(), "A longer name");
    EXPECT_FALSE(toolbar->buttonForAction(*make)->isEnabled());
    EXPECT_EQ(custom->superview(), nullptr);
    // A button stays when the actions are set again, with its focus.
    item->setEnabled(true);
    const auto button = toolbar->buttonForAction(*make);
    window.makeFirstResponder(button);
    make->setTitle("Renamed");
    toolbar->setActions({make, share});
    EXPECT_EQ(focus(), button);
    EXPECT_EQ(button->title(), "Renamed");
    item->setLabel("Of nobody");
    EXPECT_EQ(button->title(), "Renamed");
    toolbar->setActions({share});  // takes the focus away, but not out of the toolbar
    EXPECT_EQ(focus(), toolbar->viewForAction(*share));
}

TEST_F(Toolbar, IsOneStopOfTabWithinWhichArrowsMove) {
    const auto more = action("More", 9);
    const auto field = std::make_shared<views::TextField>();
    const auto custom = action("Custom", 5);
    custom->setCustomView(field);
    open->valid = false;
    toolbar->setActions({make, open, custom, more});
    show(toolbar, {0, 0, 600, 40});
    const auto at = [&](const CVAction& of) { return toolbar->viewForAction(of); };
    EXPECT_EQ(tabStops(), (std::vector<View*>{field.get(), at(*make).get()}));
    window.makeFirstResponder(at(*make));
    press(views::kKeyRightArrow);
    EXPECT_EQ(focus(), at(*more));
    press(views::kKeyRightArrow);
    EXPECT_EQ(focus(), at(*more));
    EXPECT_EQ(tabStops(), (std::vector<View*>{field.get(), at(*more).get()}));
    {
        const platform::ScopedLocale arabic{platform::Locale("ar")};
        toolbar->setNeedsApplyLayout();
        window.makeFirstResponder(at(*more));
        press(views::kKeyRightArrow);
        EXPECT_EQ(focus(), at(*make));
    }
    // One that is disabled while it has the focus can still be left.
    toolbar->setNeedsApplyLayout();
    loop.runTurn();
    make->valid = false;
    toolbar->validateActions();
    EXPECT_EQ(focus(), at(*make));
    press(views::kKeyRightArrow);
    EXPECT_EQ(focus(), at(*more));
}

TEST_F(Toolbar, GivesIconsAndTitlesTheSizesOfTheirActions) {
    tests::RecordingImageService images;
    make->setIcon(images.imageNamed("plus"));
    toolbar->setActions({make});
    show(toolbar, {0, 0, 600, 60});
    const auto button = toolbar->buttonForAction(*make);
    const auto size = [&] { return button->preferredSizeThatFits({}); };
    const auto small = size();
    make->setSmallIconSize({40, 44});
    EXPECT_EQ(size().width, small.width - 18 + 40);
    EXPECT_EQ(size().height, 44 + 8);
    make->setTitleWidth(100);
    EXPECT_EQ(size().width, 7 + 40 + 5 + 100 + 7);
    toolbar->setShowsTitles(true);
    loop.runTurn();
    EXPECT_EQ(button->toolTip(), "");
    make->setTitleWidth(5);
    toolbar->setShowsTitles(true);
    loop.runTurn();
    EXPECT_EQ(button->toolTip(), "New");  // it is cut off
    toolbar->setShowsTitles(false);
    EXPECT_EQ(size().width, 7 + 40 + 7);
    EXPECT_EQ(button->accessibilityName(), "New");
    make->setLargeIconSize({50, 50});
    toolbar->setUsesLargeIcons(true);
    EXPECT_EQ(size().height, 50 + 8);
    make->toolbarItem()->setImage(nullptr);  // then the title shows in any case
    EXPECT_GT(size().height, 8);
    EXPECT_EQ(CVMacToolbarButton(nullptr).preferredSizeThatFits({}).width, 14);
}

TEST_F(Toolbar, StandsAtTheTrailingSideOfATitleBar) {
    const auto bar = std::make_shared<CVMacTitleBar>();
    showThree();
    bar->setTitle("Inbox");
    bar->setSubtitle("12");
    bar->setAccessoryView(toolbar);
    show(bar, {0, 0, 600, 40});
    EXPECT_EQ(bar->accessibilityRole(), Role::Header);
    EXPECT_EQ(bar->accessibilityName() + bar->accessibilityValue(), "Inbox12");
    EXPECT_EQ(toolbar->frame().right(), 590);
    EXPECT_EQ(tabStops().size(), 2u);  // through the bar into the toolbar, and out
    bar->setFrameSize({150, 40});
    loop.runTurn();
    EXPECT_GE(toolbar->frame().x, 10 + 50);
    bar->setFrameSize({600, 40});
    toolbar->setActions({make});  // takes less room at once
    loop.runTurn();
    EXPECT_EQ(toolbar->frame().width, toolbar->preferredSizeThatFits({600, 40}).width);
    EXPECT_EQ(bar->toolTip(), "");
    bar->setTitle(std::string(200, 'x'));
    loop.runTurn();
    EXPECT_EQ(bar->toolTip(), std::string(200, 'x') + " – 12");
    EXPECT_LE(bar->preferredSizeThatFits({300, 40}).width, 300);
    EXPECT_GT(toolbar->frame().x, 200);
    // Into another bar and back.
    const auto other = std::make_shared<CVMacTitleBar>();
    window.root().addSubview(other);
    other->setFrame({0, 50, 600, 40});
    bar->setTitle("Inbox");
    bar->setNextKeyView(other);
    other->setNextKeyView(behind);
    other->setAccessoryView(toolbar);
    bar->setAccessoryView(nullptr);
    EXPECT_EQ(tabStops(), (std::vector<View*>{viewOf(*make)}));
    EXPECT_EQ(focus(), behind);
    for (const auto& each : {bar, other, bar})
        each->setAccessoryView(toolbar);
    loop.runTurn();
    EXPECT_EQ(toolbar->superview(), bar.get());
    other->setNextKeyView(nullptr);
    bar->setNextKeyView(behind);
    other->removeFromSuperview();  // is not in the chain, and stays out
    EXPECT_EQ(behind->previousValidKeyView(), toolbar->viewForAction(*make));
    // By mistake.
    bar->setAccessoryView(bar);
    EXPECT_EQ(bar->accessoryView(), toolbar);
    make->setCustomView(bar);
    toolbar->setActions({make});
    EXPECT_EQ(toolbar->superview(), bar.get());
    make->setCustomView(nullptr);
    toolbar->setActions({make});
    const platform::ScopedLocale arabic{platform::Locale("ar")};
    bar->setNeedsApplyLayout();
    loop.runTurn();
    EXPECT_EQ(toolbar->frame().x, 10);
}
