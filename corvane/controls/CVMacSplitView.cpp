#include "corvane/controls/CVMacSplitView.h"

#include "corvane/controls/PaneMemory.h"
#include "corvane/controls/PaneSizes.h"
#include "corvane/platform/NumberText.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ControlFocus.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace corvane {

using views::Rect;
using views::Size;
using views::View;

namespace {

constexpr double kDivider = 1;
constexpr double kGrab = 4;  // on each side of the divider
constexpr double kStep = 10;
constexpr double kFarAway = 1e6;

double plausible(double size) {
    return std::isfinite(size) ? std::clamp(size, 0.0, kFarAway) : 0;
}

}  // namespace

// The dividers.

class CVMacSplitView::Divider final : public View {
  public:
    Divider(CVMacSplitView& split, std::int64_t index) : split_(&split), index_(index) {
        setAccessibilityName(EXLocalizable::localize("Divider"));
    }
    void leave() { split_ = nullptr; }

    void draw(views::Canvas& canvas, const Rect&) override {
        const bool focused = showsFocus(*this);
        const double width = focused ? kDivider + 2 : kDivider;
        const bool upright = split_ && split_->isSideBySide();
        const Rect bounds = this->bounds();
        const Rect line = upright ? Rect{(bounds.width - width) / 2, 0, width, bounds.height}
                                  : Rect{0, (bounds.height - width) / 2, bounds.width, width};
        canvas.fillRect(line, focused ? views::theme().accent : views::theme().separator);
    }

    bool mouseDown(const views::MouseEvent& event) override {
        if (!split_) return false;
        isDragged_ = event.clickCount() == 1;
        moved_ = false;
        if (!isDragged_) {
            split_->toggleBeside(index_);
            return true;
        }
        split_->willDrag();
        offset_ = split_->alongOf(event.locationInWindow()) - split_->positionOf(index_);
        return true;
    }
    bool mouseDragged(const views::MouseEvent& event) override {
        if (!split_ || !isDragged_) return true;
        moved_ = true;
        split_->moveDivider(index_, split_->alongOf(event.locationInWindow()) - offset_, true);
        return true;
    }
    bool mouseUp(const views::MouseEvent&) override {
        if (split_ && std::exchange(moved_, false)) split_->save();
        return true;
    }

    bool keyDown(const views::KeyEvent& event) override {
        if (const auto passed = focusPassedOn(*this, event)) return *passed;
        if (!split_) return false;
        const char32_t key = event.firstCharacter();
        if (key == views::kKeyReturn || key == views::kKeyEnter) {
            split_->toggleBeside(index_);
            return true;
        }
        const auto distance = distanceOf(key);
        if (!distance) return false;
        split_->layoutIfNeeded();
        split_->moveDivider(index_, split_->positionOf(index_) + *distance, false);
        if (split_) split_->save();
        return true;
    }

    views::Cursor cursorAt(views::Point) const override {
        return split_ && split_->isSideBySide() ? views::Cursor::ResizeLeftRight
                                                : views::Cursor::ResizeUpDown;
    }
    bool acceptsFirstResponder() const override { return true; }
    views::Role accessibilityRole() const override { return views::Role::Splitter; }
    std::string accessibilityValue() const override {
        return split_ ? platform::numberText(std::lround(split_->positionOf(index_))) : "";
    }
    std::optional<double> accessibilityNumber() const override {
        return split_ ? std::optional(split_->positionOf(index_)) : std::nullopt;
    }
    bool accessibilityCanPress() const override {
        return split_ && split_->collapsibleBeside(index_) >= 0;
    }
    void accessibilityPress() override {
        if (split_) split_->toggleBeside(index_);
    }

  private:
    std::optional<double> distanceOf(char32_t key) const {
        const bool upright = split_->isSideBySide();
        const double back = upright && views::isMirrored() ? kStep : -kStep;
        if (key == (upright ? views::kKeyLeftArrow : views::kKeyUpArrow)) return back;
        if (key == (upright ? views::kKeyRightArrow : views::kKeyDownArrow)) return -back;
        if (key == views::kKeyHome) return -kFarAway;
        if (key == views::kKeyEnd) return kFarAway;
        return std::nullopt;
    }

    CVMacSplitView* split_;  ///< null when that has gone
    std::int64_t index_;
    double offset_ = 0;
    bool isDragged_ = false;
    bool moved_ = false;
};

CVMacSplitView::CVMacSplitView(Arrangement arrangement) : arrangement_(arrangement) {}

CVMacSplitView::~CVMacSplitView() {
    for (const auto& divider : dividers_)
        divider->leave();
}

void CVMacSplitView::setArrangement(Arrangement arrangement) {
    arrangement_ = arrangement;
    preferredSizeDidChange();
}

// The panes.

void CVMacSplitView::addPane(std::shared_ptr<View> view, Pane pane) {
    const auto isThere = [&](const Slot& slot) { return slot.view == view; };
    if (!view || isDescendantOf(*view) || std::any_of(panes_.begin(), panes_.end(), isThere))
        return;
    pane.minimum = plausible(pane.minimum);
    pane.preferred = std::max(pane.minimum, plausible(pane.preferred));
    panes_.push_back({view, pane, pane.preferred, 0, pane.preferred, false});
    addSubview(view);
    panesDidChange();
}

void CVMacSplitView::addPane(std::shared_ptr<View> view) {
    addPane(std::move(view), Pane{});
}

void CVMacSplitView::removePane(const View& view) {
    const auto found = std::find_if(panes_.begin(), panes_.end(),
                                    [&](const Slot& slot) { return slot.view.get() == &view; });
    if (found == panes_.end()) return;
    const Slot gone = *found;
    panes_.erase(found);
    if (gone.collapsed) gone.view->setHidden(false);
    const bool noneShows =
        std::all_of(panes_.begin(), panes_.end(), [](const Slot& slot) { return slot.collapsed; });
    if (noneShows && !panes_.empty()) setCollapsed(paneCount() - 1, false);
    if (gone.view->superview() == this) gone.view->removeFromSuperview();
    panesDidChange();
}

void CVMacSplitView::panesDidChange() {
    for (const auto& divider : std::exchange(dividers_, {})) {
        divider->leave();
        divider->removeFromSuperview();
    }
    std::vector<std::shared_ptr<View>> keyViews;
    for (std::int64_t i = 0; i < paneCount(); ++i) {
        const Slot& slot = this->slot(i);
        keyViews.push_back(slot.pane.keyView ? slot.pane.keyView : slot.view);
        if (i + 1 == paneCount()) break;
        dividers_.push_back(std::make_shared<Divider>(*this, i));
        addSubview(dividers_.back());
        keyViews.push_back(dividers_.back());
    }
    setKeyViewParts(keyViews);
    restores_ = !autosaveName_.empty();
    preferredSizeDidChange();
}

std::shared_ptr<View> CVMacSplitView::paneAtIndex(std::int64_t index) const {
    return isIndex(index) ? slot(index).view : nullptr;
}

std::shared_ptr<View> CVMacSplitView::dividerAfterPane(std::int64_t index) const {
    // There are fewer while a pane comes.
    const bool isThere = index >= 0 && index < std::ssize(dividers_);
    return isThere ? dividers_[static_cast<std::size_t>(index)] : nullptr;
}

// Sizes.

double CVMacSplitView::sizeOfPane(std::int64_t index) const {
    return isIndex(index) ? slot(index).shown : 0;
}

void CVMacSplitView::setSizeOfPane(std::int64_t index, double size) {
    if (!isIndex(index) || !std::isfinite(size)) return;
    const auto keepAlive = shared_from_this();
    Slot& slot = this->slot(index);
    // Before the first layout, and while it is hidden, there is nothing to move.
    if (lengthForPanes() <= 0 || needsApplyLayout() || slot.collapsed || paneCount() < 2) {
        slot.wanted = std::max(slot.pane.minimum, plausible(size));
        return setNeedsApplyLayout();
    }
    if (index + 1 < paneCount()) {
        moveDivider(index, positionOf(index) + size - slot.shown, false);
    } else {
        moveDivider(index - 1, positionOf(index - 1) - size + slot.shown, false);
    }
    save();
}

double CVMacSplitView::lengthForPanes() const {
    const double length = isSideBySide() ? frame().width : frame().height;
    return length - kDivider * static_cast<double>(dividers_.size());
}

double CVMacSplitView::positionOf(std::int64_t divider) const {
    double position = kDivider * static_cast<double>(divider);
    for (std::int64_t i = 0; i <= divider && i < paneCount(); ++i)
        position += slot(i).shown;
    return position;
}

double CVMacSplitView::alongOf(views::Point point) const {
    const views::Point inside = convertFromWindow(point);
    if (!isSideBySide()) return inside.y;
    return views::isMirrored() ? frame().width - inside.x : inside.x;
}

Rect CVMacSplitView::placeAlong(double start, double size) const {
    if (!isSideBySide()) return {0, start, frame().width, size};
    return views::mirrored({start, 0, size, frame().height}, frame().width);
}

void CVMacSplitView::willDrag() {
    layoutIfNeeded();
    for (Slot& slot : panes_)
        slot.beforeDrag = slot.collapsed ? slot.wanted : slot.shown;
}

void CVMacSplitView::takeShownSizes() {
    for (Slot& slot : panes_)
        if (!slot.collapsed) slot.wanted = slot.shown;
}

void CVMacSplitView::moveDivider(std::int64_t divider, double position, bool mayCollapse) {
    if (divider < 0 || divider + 1 >= paneCount()) return;
    Slot& before = slot(divider);
    Slot& after = slot(divider + 1);
    const double moved = position - positionOf(divider);
    if (before.collapsed || after.collapsed) {
        if (before.collapsed == after.collapsed || !mayCollapse) return;
        const bool opens = before.collapsed ? dragsOutOfCollapse(divider, moved)
                                            : dragsOutOfCollapse(divider + 1, -moved);
        if (opens) sizesDidChange();
        return;
    }
    const double both = before.shown + after.shown;
    const double wanted = before.shown + moved;
    const auto goes = [&](const Slot& pane, double size) {
        return mayCollapse && pane.pane.collapsible && size < pane.pane.minimum / 2;
    };
    for (const auto& [pane, size] :
         {std::pair(divider, wanted), std::pair(divider + 1, both - wanted)}) {
        if (!goes(slot(pane), size)) continue;
        takeShownSizes();
        if (!setCollapsed(pane, true)) continue;
        // Whoever lost the focus may have removed it.
        if (isIndex(pane)) slot(pane).wanted = slot(pane).beforeDrag;
        return sizesDidChange();
    }
    if (both < before.pane.minimum + after.pane.minimum) return;
    const double size = std::clamp(wanted, before.pane.minimum, both - after.pane.minimum);
    if (size == before.shown) return;
    takeShownSizes();
    before.wanted = size;
    after.wanted = both - size;
    sizesDidChange();
}

bool CVMacSplitView::dragsOutOfCollapse(std::int64_t pane, double size) {
    Slot& slot = this->slot(pane);
    if (size < std::max(slot.pane.minimum / 2, kStep)) return false;
    takeShownSizes();
    slot.wanted = std::max(size, slot.pane.minimum);
    return setCollapsed(pane, false);
}

void CVMacSplitView::sizesDidChange() {
    const auto keepAlive = shared_from_this();
    setNeedsApplyLayout();
    layoutIfNeeded();
    for (const auto& divider : std::vector(dividers_))
        divider->accessibilityDidChange(views::AccessibilityChange::Value);
    const auto told = didResizePanes;
    if (told) told();
}

// Collapsing.

bool CVMacSplitView::isPaneCollapsed(std::int64_t index) const {
    return isIndex(index) && slot(index).collapsed;
}

void CVMacSplitView::setPaneCollapsed(std::int64_t index, bool collapsed) {
    if (!isIndex(index) || slot(index).collapsed == collapsed) return;
    const auto keepAlive = shared_from_this();
    if (!setCollapsed(index, collapsed)) return;
    sizesDidChange();
    save();
}

bool CVMacSplitView::setCollapsed(std::int64_t pane, bool collapsed) {
    Slot& slot = this->slot(pane);
    const auto shown = std::count_if(panes_.begin(), panes_.end(),
                                     [](const Slot& each) { return !each.collapsed; });
    if (collapsed && (!slot.pane.collapsible || shown < 2)) return false;
    slot.collapsed = collapsed;
    const auto focused = window() ? window()->firstResponder() : nullptr;
    const bool hadFocus = focused && focused->isDescendantOf(*slot.view);
    const auto divider = dividerAfterPane(std::max<std::int64_t>(0, pane - 1));
    slot.view->setHidden(collapsed);  // after which the slot may have gone
    if (hadFocus && window() && !window()->firstResponder()) window()->makeFirstResponder(divider);
    return true;
}

std::int64_t CVMacSplitView::collapsibleBeside(std::int64_t divider) const {
    std::int64_t best = -1;
    for (const std::int64_t pane : {divider, divider + 1}) {
        if (!isIndex(pane) || !slot(pane).pane.collapsible) continue;
        if (slot(pane).collapsed) return pane;
        if (best < 0 || (slot(best).pane.stretches && !slot(pane).pane.stretches)) best = pane;
    }
    return best;
}

void CVMacSplitView::toggleBeside(std::int64_t divider) {
    const std::int64_t pane = collapsibleBeside(divider);
    if (pane >= 0) setPaneCollapsed(pane, !slot(pane).collapsed);
}

// Layout.

Size CVMacSplitView::preferredSizeThatFits(Size available) {
    double along = kDivider * static_cast<double>(dividers_.size());
    double across = 0;
    for (const Slot& slot : panes_) {
        if (slot.collapsed || slot.view->superview() != this) continue;
        along += slot.wanted;
        const Size size =
            slot.view->preferredSizeThatFits(isSideBySide() ? Size{slot.wanted, available.height}
                                                            : Size{available.width, slot.wanted});
        across = std::max(across, isSideBySide() ? size.height : size.width);
    }
    const Size size = isSideBySide() ? Size{along, across} : Size{across, along};
    return {std::min(size.width, available.width), std::min(size.height, available.height)};
}

void CVMacSplitView::applyLayout() {
    const double room = lengthForPanes();
    if (panes_.empty() || room <= 0) return;
    if (std::exchange(restores_, false)) restore();
    std::vector<PaneSize> panes;
    for (const Slot& slot : panes_)
        panes.push_back({slot.pane.minimum, slot.wanted, slot.pane.stretches, slot.collapsed});
    const auto sizes = paneSizesIn(room, panes);
    double start = 0;
    for (std::size_t i = 0; i < std::min(sizes.size(), panes_.size()); ++i) {
        panes_[i].shown = sizes[i];
        const auto view = panes_[i].view;
        if (view->superview() == this && !panes_[i].collapsed)
            view->setFrame(placeAlong(start, sizes[i]));
        start += sizes[i];
        if (i >= dividers_.size()) continue;
        dividers_[i]->setFrame(placeAlong(start - kGrab, kDivider + 2 * kGrab));
        start += kDivider;
    }
}

// What is remembered.

void CVMacSplitView::setAutosaveName(std::string name) {
    autosaveName_ = std::move(name);
    restores_ = !autosaveName_.empty();
    if (restores_) setNeedsApplyLayout();
}

void CVMacSplitView::save() const {
    // What is remembered comes first: these sizes are of before.
    if (autosaveName_.empty() || restores_) return;
    std::vector<RememberedPane> panes;
    for (const Slot& slot : panes_)
        panes.push_back({slot.wanted, slot.collapsed});
    rememberPanes(autosaveName_, panes);
}

void CVMacSplitView::restore() {
    const auto remembered = rememberedPanes(autosaveName_, panes_.size());
    if (!remembered) return;
    // Whoever loses the focus may change the panes.
    const auto count = std::ssize(*remembered);
    for (std::int64_t i = 0; i < count && count == paneCount(); ++i) {
        const RememberedPane& pane = (*remembered)[static_cast<std::size_t>(i)];
        slot(i).wanted = std::max(slot(i).pane.minimum, plausible(pane.size));
        if (slot(i).collapsed != pane.collapsed) setCollapsed(i, pane.collapsed);
    }
}

}  // namespace corvane
