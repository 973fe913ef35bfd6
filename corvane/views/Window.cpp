#include "corvane/views/Window.h"

#include "corvane/views/Event.h"
#include "corvane/views/Menu.h"
#include "corvane/views/WindowHost.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

namespace {

/// Whoever loses the focus may give it to another one, and that one to a third.
constexpr int kMostHandovers = 8;

/// Offers an event to a view, then to those around it, until one is done with it.
template <typename Offer>
std::shared_ptr<View> offer(std::shared_ptr<View> view, const Offer& isDone) {
    while (view) {
        if (isDone(*view)) return view;
        View* above = view->superview();
        view = above ? above->shared_from_this() : nullptr;
    }
    return nullptr;
}

std::shared_ptr<View> firstKeyViewIn(const View& view) {
    for (const auto& inside : view.subviews()) {
        if (inside->isHidden()) continue;
        if (inside->canBecomeKeyView()) return inside;
        if (auto found = firstKeyViewIn(*inside)) return found;
    }
    return nullptr;
}

std::shared_ptr<View> lastKeyViewIn(const View& view) {
    const auto& subviews = view.subviews();
    for (auto inside = subviews.rbegin(); inside != subviews.rend(); ++inside) {
        if ((*inside)->isHidden()) continue;
        if (auto found = lastKeyViewIn(**inside)) return found;
        if ((*inside)->canBecomeKeyView()) return *inside;
    }
    return nullptr;
}

}  // namespace

class Window::Root final : public View {
  public:
    Root(Window& window, const Rect& frame) : View(frame), window_(&window) {}
    Window* window() const override { return window_; }
    bool clipsToBounds() const override { return true; }
    void leaveWindow() { window_ = nullptr; }

  private:
    Window* window_;
};

Window::Window(Size size)
    : root_(std::make_shared<Root>(*this, Rect{0, 0, size.width, size.height})) {}

Window::~Window() {
    root_->announceWindow(nullptr);
    static_cast<Root&>(*root_).leaveWindow();
    root_->announceMove();
}

WindowHost& Window::host() const {
    static WindowHost nobody;
    return host_ ? *host_ : nobody;
}

void Window::setSize(Size size) {
    root_->setFrameSize(size);
    if (contentView_) contentView_->setFrame(root_->bounds());
    modalViews_.fillWindow();
}

void Window::setContentView(const std::shared_ptr<View>& view) {
    if (view == contentView_) return;
    if (contentView_) contentView_->removeFromSuperview();
    contentView_ = view;
    if (!view) return;
    view->setFrame(root_->bounds());
    root_->addSubview(view);
    view->sendToBack();
}

void Window::setActive(bool active) {
    if (active == active_) return;
    active_ = active;
    eventFollowers_.eventHappened();  // what another program has copied may be pasted
    root_->setNeedsDisplay();
}

// Focus.

bool Window::makeFirstResponder(const std::shared_ptr<View>& view) {
    if (view == firstResponder_.lock()) return true;
    const auto isWelcome = [&] {
        return !view || (view->window() == this && view->acceptsFirstResponder() &&
                         modalViews_.admits(*view));
    };
    if (!isWelcome() || !resignFirstResponder(nullptr, false) || !isWelcome()) return false;
    firstResponder_ = view;
    host().firstResponderDidChange(view);
    if (!view) return true;
    parts_.focusDidMove(view);
    view->setNeedsDisplay();
    if (!view->becomeFirstResponder() && firstResponder_.lock() == view) {
        firstResponder_.reset();
        host().firstResponderDidChange(nullptr);
    }
    return firstResponder_.lock() == view;
}

bool Window::resignFirstResponder(const View* within, bool evenIfRefused) {
    for (int i = 0; i < kMostHandovers; ++i) {
        const auto view = firstResponder_.lock();
        if (!view || (within && !view->isDescendantOf(*within))) return true;
        if (!view->resignFirstResponder() && !evenIfRefused) return false;
        view->setNeedsDisplay();
        if (firstResponder_.lock() == view) firstResponder_.reset();
    }
    return firstResponder_.expired();
}

bool Window::selectKeyView(const std::shared_ptr<View>& view) {
    if (!view || !makeFirstResponder(view)) return false;
    view->scrollRectToVisible(view->bounds());
    return true;
}

bool Window::selectNextKeyViewOf(const View& view) {
    return selectKeyView(view.nextValidKeyView());
}

bool Window::selectPreviousKeyViewOf(const View& view) {
    return selectKeyView(view.previousValidKeyView());
}

bool Window::selectFirstKeyViewIn(const View& view) {
    return selectKeyView(firstKeyViewIn(view));
}

bool Window::selectLastKeyViewIn(const View& view) {
    return selectKeyView(lastKeyViewIn(view));
}

bool Window::selectPart(bool forward) {
    const auto modal = modalViews_.current();
    for (const auto& part : parts_.allFrom(firstResponder_.lock().get(), forward)) {
        auto target = parts_.lastFocusIn(*part);
        if (!target && part->canBecomeKeyView()) target = part;
        if (!target && !part->isHidden()) target = firstKeyViewIn(*part);
        if (!target || !modalViews_.admits(*target)) continue;
        // Once only: whoever keeps the focus may say so to the user.
        if (!selectKeyView(target)) return false;
        // What is modal stays below that which was shown above it.
        if (part != contentView_ && part != modal) part->bringToFront();
        return true;
    }
    return false;
}

void Window::willRemove(const View& view) {
    if (const auto captured = captured_.lock(); captured && captured->isDescendantOf(view)) {
        captured_.reset();
        captured->mouseWasLost();
    }
    if (const auto first = firstResponder_.lock(); first && first->isDescendantOf(view)) {
        resignFirstResponder(&view, true);
        if (firstResponder_.expired()) host().firstResponderDidChange(nullptr);
    }
    modalViews_.willRemove(view);
}

// Events.

bool Window::mouseDown(const MouseEvent& event) {
    eventFollowers_.eventHappened();
    // Its release went elsewhere, such as into a menu that came up meanwhile.
    if (const auto before = captured_.lock()) {
        captured_.reset();
        before->mouseWasLost();
    }
    const auto press = [&](View& view) { return view.mouseDown(event); };
    const auto pressed = viewAt(event.locationInWindow());
    auto taker = offer(pressed, press);
    // Taking the focus from an editor commits what was typed there, upon which other views may have
    // come into the places of those before. Then the new one is meant.
    if (!taker && pressed && pressed->window() != this)
        taker = offer(viewAt(event.locationInWindow()), press);
    if (taker && taker->window() == this) captured_ = taker;
    return taker != nullptr;
}

bool Window::mouseDragged(const MouseEvent& event) {
    const auto view = captured_.lock();
    return view && view->mouseDragged(event);
}

bool Window::mouseUp(const MouseEvent& event) {
    eventFollowers_.eventHappened();
    const auto view = captured_.lock();
    captured_.reset();
    return view && view->mouseUp(event);
}

std::shared_ptr<Menu> Window::contextMenu(const MouseEvent& event) {
    eventFollowers_.eventHappened();
    std::shared_ptr<Menu> menu;
    offer(viewAt(event.locationInWindow()), [&](View& view) {
        menu = view.menuForEvent(event);
        return menu != nullptr;
    });
    if (menu) host().showMenu(menu, event.locationInWindow());
    return menu;
}

bool Window::keyDown(const KeyEvent& event) {
    eventFollowers_.eventHappened();
    const auto first = firstResponder_.lock();
    const auto modal = modalViews_.current();
    if (offer(first ? first : modal, [&](View& view) { return view.keyDown(event); })) return true;
    const auto command = commandForKey(event);
    if (command == Command::SelectNextPart && selectPart(true)) return true;
    if (command == Command::SelectPreviousPart && selectPart(false)) return true;
    // Whoever has no focus can still be reached by the keyboard.
    const View& within = modal ? *modal : *root_;
    if (!first && command == Command::InsertTab) return selectFirstKeyViewIn(within);
    if (!first && command == Command::InsertBacktab) return selectLastKeyViewIn(within);
    host().beep();
    return false;
}

// Drawing.

namespace {

void tellOfTextSizes(const std::shared_ptr<View>& view) {
    view->textSizesDidChange();
    const auto subviews = view->subviews();  // which may come and go meanwhile
    for (const auto& subview : subviews)
        tellOfTextSizes(subview);
}

}  // namespace

void Window::textSizesDidChange() {
    tellOfTextSizes(root_);
    root_->setNeedsDisplay();
}

void Window::invalidate(const Rect& rect) {
    if (dirty_.isEmpty()) {
        dirty_ = rect;
    } else {
        const double x = std::min(dirty_.x, rect.x);
        const double y = std::min(dirty_.y, rect.y);
        dirty_ = {x, y, std::max(dirty_.right(), rect.right()) - x,
                  std::max(dirty_.bottom(), rect.bottom()) - y};
    }
    host().windowNeedsDisplay(rect);
}

Rect Window::takeDirtyRect() {
    return std::exchange(dirty_, {});
}

// Sheets and drags.

void Window::beginSheet(Alert alert, AlertCompletion completion) {
    sheets_.push_back({std::move(alert), std::move(completion)});
    if (sheets_.size() == 1) host().showSheet(sheets_.front().alert);
}

void Window::endSheet(int response) {
    if (sheets_.empty()) return;
    eventFollowers_.eventHappened();
    const AlertCompletion completion = std::move(sheets_.front().completion);
    sheets_.pop_front();
    // The next one is on its way before anybody can add another.
    if (!sheets_.empty()) host().showSheet(sheets_.front().alert);
    if (completion) completion(response);
}

void Window::beginDragging(DragSession session) {
    captured_.reset();
    dragSession_ = std::make_shared<DragSession>(std::move(session));
    host().beginDragging(dragSession_);
}

bool Window::drop(DraggingInfo& info) {
    eventFollowers_.eventHappened();
    return dropRouter_.dropped(*root_, info);
}

}  // namespace corvane::views
