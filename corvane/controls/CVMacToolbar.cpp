#include "corvane/controls/CVMacToolbar.h"

#include "corvane/controls/ActionMenu.h"
#include "corvane/controls/CVMacToolbarButton.h"
#include "corvane/controls/ToolbarParts.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace corvane {

using views::Rect;
using views::Size;
using views::View;

namespace {

constexpr double kMargin = 4;
constexpr double kGap = 3;
constexpr double kGapBetweenGroups = 15;
constexpr double kRounding = 0.01;  // of sums of widths

CVMacToolbarButton* buttonIn(const std::shared_ptr<View>& view) {
    return dynamic_cast<CVMacToolbarButton*>(view.get());
}

bool standsBefore(const std::shared_ptr<CVAction>& a, const std::shared_ptr<CVAction>& b) {
    if (a->addAction() != b->addAction()) return a->addAction();
    return a->index() < b->index();
}

ActionSegments* segmentsIn(const std::shared_ptr<View>& view) {
    return dynamic_cast<ActionSegments*>(view.get());
}

bool togglesBetweenActions(const CVAction& action) {
    return action.allowToggling() && !action.subActions().empty();
}

double leftOf(const View& view) {
    return view.convertToWindow(Rect{}).x;
}

}  // namespace

CVMacToolbar::CVMacToolbar() = default;

CVMacToolbar::~CVMacToolbar() {
    for (const Entry& entry : entries_)
        if (entry.action->toolbarItem() == entry.item) entry.action->setToolbarItem(nullptr);
}

// The actions and what shows them.

void CVMacToolbar::setActions(Actions actions) {
    std::erase(actions, nullptr);
    std::set<const CVAction*> seen;
    std::erase_if(actions, [&](const auto& action) { return !seen.insert(action.get()).second; });
    std::stable_sort(actions.begin(), actions.end(), standsBefore);
    actions_ = std::move(actions);
    std::vector<Entry> entries;
    for (const auto& action : actions_)
        entries.push_back(makeEntry(action, entryOf(*action)));
    replaceEntries(std::move(entries));
}

CVMacToolbar::Entry CVMacToolbar::makeEntry(const std::shared_ptr<CVAction>& action,
                                            const Entry* before) {
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacToolbar>(shared_from_this()));
    auto item = std::make_shared<ActionToolbarItem>(*action, [weak](const auto& changed) {
        if (const auto self = weak.lock()) self->itemDidChange(changed);
    });
    if (before) item->setEnabled(before->item->isEnabled());
    Entry entry{action, item, action->customView(), nullptr};
    // What is there already may have the focus, be pressed, or have a segment selected.
    const bool isKept = before && !before->customView && !entry.customView &&
                        (togglesBetweenActions(*action) ? segmentsIn(before->view) != nullptr
                                                        : buttonIn(before->view) != nullptr);
    entry.view = isKept ? before->view : makeView(entry);
    action->setToolbarItem(std::move(item));
    showItem(entry);
    return entry;
}

std::shared_ptr<View> CVMacToolbar::makeView(const Entry& entry) {
    if (entry.customView) return entry.customView;
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacToolbar>(shared_from_this()));
    if (togglesBetweenActions(*entry.action))
        return std::make_shared<ActionSegments>(entry.action, [weak](CVAction& invoked) {
            if (const auto self = weak.lock()) self->tell(invoked);
        });
    auto button = std::make_shared<CVMacToolbarButton>(entry.action);
    button->didInvokeAction = [weak](CVAction& invoked) {
        if (const auto self = weak.lock()) self->tell(invoked);
    };
    button->menuWillOpen = [weak] {
        if (const auto self = weak.lock()) self->validateActions();
    };
    return button;
}

void CVMacToolbar::replaceEntries(std::vector<Entry> entries) {
    const auto focusedAt = placeOfFocus();
    const auto before = std::exchange(entries_, std::move(entries));
    const auto still = entries_;  // whoever loses the focus may change the present ones
    const auto isStill = [&](auto part, const Entry& gone) {
        return std::any_of(still.begin(), still.end(),
                           [&](const Entry& entry) { return entry.*part == gone.*part; });
    };
    for (const Entry& gone : before) {
        if (!isStill(&Entry::view, gone) && isHere(gone)) gone.view->removeFromSuperview();
        if (!isStill(&Entry::item, gone) && gone.action->toolbarItem() == gone.item)
            gone.action->setToolbarItem(nullptr);
    }
    for (const Entry& entry : std::vector(entries_))
        if (!isHere(entry)) addSubview(entry.view);
    linkKeyViews();
    preferredSizeDidChange();
    if (focusedAt) layoutIfNeeded();
    keepFocus(focusedAt);
    if (views::Window* window = this->window()) window->eventFollowers().eventHappened();
}

void CVMacToolbar::showItem(const Entry& entry) {
    const ActionToolbarItem& item = *entry.item;
    if (auto* button = buttonIn(entry.view)) {
        button->setTitle(item.label());
        button->setImage(item.image());
        button->setShowsTitle(showsTitles_);
        button->setUsesLargeIcon(usesLargeIcons_);
    }
    if (auto* segments = segmentsIn(entry.view)) {
        segments->setAccessibilityName(item.label());
        segments->show(showsTitles_);
    }
    if (!item.toolTip().empty() || !entry.customView) entry.view->setToolTip(item.toolTip());
    if (auto* control = dynamic_cast<views::Control*>(entry.view.get()))
        control->setEnabled(item.isEnabled());
}

void CVMacToolbar::itemDidChange(const ActionToolbarItem& item) {
    auto entries = entries_;
    const auto changed = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return entry.item.get() == &item;
    });
    if (changed == entries.end()) return;
    if (item.view() != changed->customView) {
        changed->customView = item.view();
        changed->view = makeView(*changed);
        showItem(*changed);
        return replaceEntries(std::move(entries));
    }
    showItem(*changed);
    chooseTabStop();
    preferredSizeDidChange();
}

const CVMacToolbar::Entry* CVMacToolbar::entryOf(const CVAction& action) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.action.get() == &action;
    });
    return found == entries_.end() ? nullptr : &*found;
}

bool CVMacToolbar::isHere(const Entry& entry) const {
    return entry.view->superview() == this;
}

std::shared_ptr<View> CVMacToolbar::viewForAction(const CVAction& action) const {
    const Entry* entry = entryOf(action);
    return entry ? entry->view : nullptr;
}

std::shared_ptr<CVMacToolbarButton> CVMacToolbar::buttonForAction(const CVAction& action) const {
    return std::dynamic_pointer_cast<CVMacToolbarButton>(viewForAction(action));
}

void CVMacToolbar::tell(CVAction& action) {
    const auto keepAlive = shared_from_this();
    const auto told = didInvokeAction;
    if (told) told(action);
    // No event of the window comes before this one where a menu was chosen from.
    if (window()) window()->eventFollowers().eventHappened();
}

// Validation.

void CVMacToolbar::didMoveToWindow() {
    following_.reset();
    views::Window* window = this->window();
    if (!window) return;
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacToolbar>(shared_from_this()));
    following_ = window->eventFollowers().add([weak] {
        if (const auto self = weak.lock()) self->validateActions();
    });
    window->eventFollowers().eventHappened();
}

void CVMacToolbar::validateActions() {
    const auto keepAlive = shared_from_this();
    // An action that is asked may change which ones are here.
    for (const Entry& entry : std::vector(entries_)) {
        const bool valid = entry.action->validateToolbarItem(*entry.item);
        if (valid != entry.item->isEnabled()) entry.item->setEnabled(valid);
        if (const auto segments = std::dynamic_pointer_cast<ActionSegments>(entry.view))
            segments->validate();
    }
}

// The focus.

void CVMacToolbar::linkKeyViews() {
    std::vector<std::shared_ptr<View>> parts;
    for (const Entry& entry : entries_)
        parts.push_back(entry.view);
    if (overflow_) parts.push_back(overflow_);
    setKeyViewParts(parts);
    chooseTabStop();
}

std::vector<std::shared_ptr<View>> CVMacToolbar::focusableViews() const {
    std::vector<std::shared_ptr<View>> views;
    const auto add = [&](const std::shared_ptr<View>& view) {
        if (view && view->superview() == this && !view->isHidden() && view->acceptsFirstResponder())
            views.push_back(view);
    };
    for (const Entry& entry : entries_)
        add(entry.view);
    add(overflow_);
    return views;
}

void CVMacToolbar::chooseTabStop() {
    CVMacToolbarButton* stop = nullptr;
    const auto candidates = focusableViews();
    for (const auto& view : candidates) {
        auto* button = buttonIn(view);
        if (!button) continue;
        if (!stop || button->isFirstResponder() ||
            (button->isTabStop() && !stop->isFirstResponder() && !stop->isTabStop()))
            stop = button;
    }
    const auto decide = [stop](const std::shared_ptr<View>& view) {
        if (auto* button = buttonIn(view)) button->setTabStop(button == stop);
    };
    for (const Entry& entry : entries_)
        decide(entry.view);
    decide(overflow_);
}

void CVMacToolbar::moveFocus(bool rightwards) {
    const auto focused = window() ? window()->firstResponder() : nullptr;
    if (!focused) return;
    // By place: what has the focus may have been disabled since, and be none of the stops.
    std::shared_ptr<View> target;
    for (const auto& stop : focusableViews()) {
        if (focused->isDescendantOf(*stop)) continue;
        const double distance = (leftOf(*stop) - leftOf(*focused)) * (rightwards ? 1 : -1);
        const bool isNearer = !target || std::abs(leftOf(*stop) - leftOf(*focused)) <
                                             std::abs(leftOf(*target) - leftOf(*focused));
        if (distance > 0 && isNearer) target = stop;
    }
    if (target && window()->makeFirstResponder(target)) chooseTabStop();
}

std::optional<double> CVMacToolbar::placeOfFocus() const {
    const auto focused = window() ? window()->firstResponder() : nullptr;
    if (!focused || !focused->isDescendantOf(*this)) return std::nullopt;
    return leftOf(*focused);
}

void CVMacToolbar::keepFocus(std::optional<double> place) {
    const auto stops = focusableViews();
    if (!place || stops.empty() || !window() || window()->firstResponder()) return;
    window()->makeFirstResponder(
        *std::min_element(stops.begin(), stops.end(), [&](const auto& a, const auto& b) {
            return std::abs(leftOf(*a) - *place) < std::abs(leftOf(*b) - *place);
        }));
    chooseTabStop();
}

bool CVMacToolbar::keyDown(const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    const bool rightwards = command == views::Command::MoveRight;
    if (!rightwards && command != views::Command::MoveLeft) return false;
    layoutIfNeeded();
    moveFocus(rightwards);
    return true;  // at an end too
}

// Layout.

void CVMacToolbar::setShowsTitles(bool shows) {
    showsTitles_ = shows;
    for (const Entry& entry : entries_)
        showItem(entry);
    preferredSizeDidChange();
}

void CVMacToolbar::setUsesLargeIcons(bool large) {
    usesLargeIcons_ = large;
    for (const Entry& entry : entries_)
        showItem(entry);
    preferredSizeDidChange();
}

double CVMacToolbar::gapBefore(std::size_t entry) const {
    if (entry == 0) return 0;
    const bool changes =
        entries_[entry - 1].action->addAction() != entries_[entry].action->addAction();
    return changes ? kGapBetweenGroups : kGap;
}

Size CVMacToolbar::sizeOf(const Entry& entry) const {
    if (!isHere(entry)) return {};
    // A view of somebody else's may want everything.
    constexpr Size kMost{400, 100};
    const Size size = entry.view->preferredSizeThatFits(kMost);
    return {std::min(size.width, kMost.width), size.height};
}

Size CVMacToolbar::preferredSizeThatFits(Size available) {
    Size size{2 * kMargin, 0};
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Size part = sizeOf(entries_[i]);
        size = {size.width + gapBefore(i) + part.width, std::max(size.height, part.height)};
    }
    return {std::min(size.width, available.width), size.height + 2 * kMargin};
}

void CVMacToolbar::applyLayout() {
    const auto keepAlive = shared_from_this();
    const double room = frame().width - 2 * kMargin;
    double wanted = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i)
        wanted += gapBefore(i) + sizeOf(entries_[i]).width;
    const bool overflows = !entries_.empty() && wanted > room + kRounding;
    const auto focusedAt = placeOfFocus();
    placeOverflow(overflows);
    placeEntries(room - (overflows ? overflow_->frame().width + kGap : 0));
    // The focus stays in the toolbar when what had it goes into the menu, or the menu's button
    // goes.
    keepFocus(focusedAt);
    chooseTabStop();
}

void CVMacToolbar::placeOverflow(bool overflows) {
    if (!overflow_ && !overflows) return;
    if (!overflow_) {
        const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacToolbar>(shared_from_this()));
        overflow_ = toolbarOverflowButton([weak] {
            if (const auto self = weak.lock()) self->openOverflow();
        });
        addSubview(overflow_);
        linkKeyViews();
    }
    overflow_->setHidden(!overflows);
    const Size size = overflow_->preferredSizeThatFits({});
    const Rect place{frame().width - kMargin - size.width, (frame().height - size.height) / 2,
                     size.width, size.height};
    overflow_->setFrame(views::mirrored(place, frame().width));
}

void CVMacToolbar::placeEntries(double room) {
    // What is hidden gives up the focus, and whoever learns of that may set other actions.
    const auto entries = entries_;
    double x = 0;
    shown_ = 0;
    bool fits = true;
    for (std::size_t i = 0; i < entries.size() && entries.size() == entries_.size(); ++i) {
        const Size size = sizeOf(entries[i]);
        const double start = x + gapBefore(i);
        fits = fits && start + size.width <= room + kRounding;
        if (isHere(entries[i])) entries[i].view->setHidden(!fits);
        if (!fits) continue;
        ++shown_;
        x = start + size.width;
        const double height = std::min(size.height, frame().height);
        const Rect place{kMargin + start, (frame().height - height) / 2, size.width, height};
        if (isHere(entries[i])) entries[i].view->setFrame(views::mirrored(place, frame().width));
    }
}

void CVMacToolbar::draw(views::Canvas& canvas, const Rect&) {
    for (std::size_t i = 1; i < std::min(shown_, entries_.size()); ++i) {
        if (gapBefore(i) != kGapBetweenGroups || !isHere(entries_[i])) continue;
        const Rect next = views::mirrored(entries_[i].view->frame(), frame().width);
        const Rect line{next.x - (kGapBetweenGroups + 1) / 2, 5, 1, frame().height - 10};
        canvas.fillRect(views::mirrored(line, frame().width), views::theme().border);
    }
}

void CVMacToolbar::openOverflow() {
    validateActions();
    layoutIfNeeded();
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacToolbar>(shared_from_this()));
    const auto menu = std::make_shared<views::Menu>();
    for (std::size_t i = shown_; i < entries_.size(); ++i) {
        const auto segments = std::dynamic_pointer_cast<ActionSegments>(entries_[i].view);
        auto item = menuItemForAction(entries_[i].action, [weak, segments](CVAction& invoked) {
            if (segments) segments->select(invoked);
            if (const auto self = weak.lock()) self->tell(invoked);
        });
        if (segments && item->submenu()) segments->markSelected(*item->submenu());
        menu->addItem(std::move(item));
    }
    if (window() && overflow_)
        window()->host().showMenu(
            menu, overflow_->convertToWindow(views::Point{0, overflow_->frame().height}));
}

}  // namespace corvane
