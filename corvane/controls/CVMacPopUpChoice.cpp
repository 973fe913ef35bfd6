#include "corvane/controls/CVMacPopUpChoice.h"

#include "corvane/platform/RunLoop.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Menu.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace corvane {

namespace {

constexpr double kRadius = 5;
constexpr double kMarginX = 8;
constexpr double kMarginY = 4;
constexpr double kArrowRoom = 20;
/// Letters that come later begin anew.
constexpr double kTypingPause = 1;

/// One pointing up and one pointing down.
void drawArrows(views::Canvas& canvas, const platform::Rect& rect, const platform::Color& color) {
    const double x = rect.x + rect.width / 2;
    const double y = rect.y + rect.height / 2;
    for (const double up : {-1.0, 1.0}) {
        const platform::Point tip{x, y + up * 6};
        canvas.drawLine({x - 3, y + up * 3}, tip, color, 1.5);
        canvas.drawLine(tip, {x + 3, y + up * 3}, color, 1.5);
    }
}

bool isOneLetterAgainAndAgain(const std::string& text, const std::string& letter) {
    for (std::size_t i = 0; i < text.size(); i += letter.size())
        if (text.compare(i, letter.size(), letter) != 0) return false;
    return true;
}

}  // namespace

CVMacPopUpChoice::~CVMacPopUpChoice() {
    platform::mainRunLoop().cancelCalls(this);
}

void CVMacPopUpChoice::setPlaceholder(std::string placeholder) {
    placeholder_ = std::move(placeholder);
    setNeedsDisplay();
}

// The menu.

void CVMacPopUpChoice::addItem(views::Menu& menu, const Choice& choice) {
    // The menu may outlive the control, and the list may be another one by then.
    const auto act = [weak = weak_from_this(), list = choiceList(),
                      path = choice.path](views::MenuItem&) {
        const auto self = std::static_pointer_cast<CVMacPopUpChoice>(weak.lock());
        if (self && self->choiceList() == list) self->choose(path);
    };
    views::MenuItem& item = menu.addItem(choice.title(), act);
    item.setDetail(choice.detail());
    item.setImage(iconOf(choice));
    item.setOn(choice.path == selectedIndexPath());
}

std::shared_ptr<views::Menu> CVMacPopUpChoice::menu() {
    auto menu = std::make_shared<views::Menu>();
    std::int64_t section = -1;
    for (const Choice& choice : choices()) {
        if (std::exchange(section, choice.path.section) != choice.path.section) {
            if (!menu->items().empty()) menu->addSeparator();
            const auto title = choiceList()->sectionAtIndex(section)->title();
            if (title && !title->empty()) menu->addItem(*title);
        }
        addItem(*menu, choice);
    }
    return menu;
}

void CVMacPopUpChoice::openMenu() {
    if (!isEnabled() || !window() || choices().empty()) return;
    window()->host().showMenu(menu(), convertToWindow(views::Point{0, frame().height}));
}

bool CVMacPopUpChoice::mouseDown(const views::MouseEvent&) {
    openMenu();
    return true;
}

// Keys.

bool CVMacPopUpChoice::keyDown(const views::KeyEvent& event) {
    if (event.characters() == " " && event.modifierFlags() == 0) {
        // Unless it goes on with a title of several words.
        if (typed_.empty() || !chooseByPrefix(typed_ + " ", false)) {
            openMenu();
        } else {
            typed_ += " ";
        }
        return true;
    }
    return interpretKeyEvent(event);
}

bool CVMacPopUpChoice::doCommand(views::Command command) {
    switch (command) {
        case views::Command::InsertNewline:
        case views::Command::MoveUp:
        case views::Command::MoveDown:
            openMenu();
            return true;
        default:
            return focusPassedOn(*this, command).value_or(false);
    }
}

bool CVMacPopUpChoice::insertText(std::string_view text) {
    const std::string letter = EXLocalizable::collationForString(text);
    if (letter.empty() || !isEnabled()) return false;
    typed_ += letter;
    auto& loop = platform::mainRunLoop();
    loop.cancelCalls(this);
    loop.callAfterDelay(kTypingPause, this, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) static_cast<CVMacPopUpChoice&>(*self).typed_.clear();
    });
    // The same letter again leads on to the next one, unless a title begins with both.
    const bool isFirst = typed_ == letter;
    if (chooseByPrefix(typed_, isFirst)) return true;
    if (!isFirst && isOneLetterAgainAndAgain(typed_, letter)) chooseByPrefix(letter, true);
    return true;
}

bool CVMacPopUpChoice::chooseByPrefix(const std::string& folded, bool fromNext) {
    const auto count = static_cast<std::int64_t>(choices().size());
    const std::int64_t present = selectedPosition();
    const std::int64_t first = fromNext ? present + 1 : std::max<std::int64_t>(present, 0);
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t position = (first + i) % count;
        const auto& choice = choices()[static_cast<std::size_t>(position)];
        if (!EXLocalizable::collationForString(choice.title()).starts_with(folded)) continue;
        choosePosition(position);
        return true;
    }
    return false;
}

// Looks.

std::string CVMacPopUpChoice::label() const {
    return selectedIndexPath() ? selectedTitle() : placeholder_;
}

views::Rect CVMacPopUpChoice::labelRect() const {
    const double width = std::max(0.0, frame().width - kMarginX - kArrowRoom);
    return views::mirrored({kMarginX, 0, width, frame().height}, frame().width);
}

std::string CVMacPopUpChoice::toolTip() const {
    std::string own = views::View::toolTip();
    if (!own.empty()) return own;
    const Choice* choice = selectedChoice();
    const std::string text = label();
    const bool isCut =
        views::isTextCut({choice ? iconOf(*choice) : nullptr, text}, labelRect().width);
    return isCut ? text : own;
}

views::Size CVMacPopUpChoice::preferredSizeThatFits(views::Size available) {
    views::Size widest = views::sizeOf({nullptr, placeholder_});
    for (const Choice& choice : choices()) {
        const std::string title = choice.title();
        const auto size = views::sizeOf({iconOf(choice), title});
        widest = {std::max(widest.width, size.width), std::max(widest.height, size.height)};
    }
    return {std::min(available.width, widest.width + kMarginX + kArrowRoom),
            widest.height + 2 * kMarginY};
}

void CVMacPopUpChoice::draw(views::Canvas& canvas, const views::Rect&) {
    const views::Theme& colors = views::theme();
    canvas.fillRoundedRect(bounds(), kRadius, colors.controlBackground);
    canvas.strokeRoundedRect(bounds(), kRadius, colors.border, 1);
    drawFocusRing(canvas, *this, bounds(), kRadius);
    const Choice* choice = selectedChoice();
    const std::string text = label();
    const auto& color = !isEnabled() ? colors.secondaryText
                        : choice     ? colors.text
                                     : colors.placeholderText;
    views::drawIconAndText(
        canvas, {.icon = choice ? iconOf(*choice) : nullptr, .text = text, .centred = false},
        labelRect(), color, isEnabled() ? nullptr : &colors.controlBackground);
    drawArrows(
        canvas,
        views::mirrored({frame().width - kArrowRoom, 0, kArrowRoom, frame().height}, frame().width),
        colors.secondaryText);
}

}  // namespace corvane
