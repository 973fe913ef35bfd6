#include "corvane/qt/DropTarget.h"

#include "corvane/qt/DragOut.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/PasteboardMime.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"

#include <QDropEvent>
#include <chrono>

namespace corvane::qt {

namespace {

constexpr double kScrollingEdge = 22;
constexpr double kScrollStep = 9;
constexpr std::chrono::milliseconds kScrollInterval{25};

/// How far to scroll for a pointer there: nothing in the middle.
double stepAt(const views::ScrollView& scrollView, platform::Point inWindow) {
    const double y = scrollView.convertFromWindow(inWindow).y;
    if (y < kScrollingEdge) return -kScrollStep;
    return y >= scrollView.frame().height - kScrollingEdge ? kScrollStep : 0;
}

views::ScrollView* scrollViewAt(const views::Window& window, platform::Point point) {
    const auto view = window.viewAt(point);
    if (auto* scrollView = dynamic_cast<views::ScrollView*>(view.get())) return scrollView;
    return view ? view->enclosingScrollView() : nullptr;
}

}  // namespace

DropTarget::DropTarget(views::Window& window) : window_(window) {
    scrollTimer_.setInterval(kScrollInterval);
    scrollTimer_.callOnTimeout([this] { scroll(); });
}

void DropTarget::begin(const QMimeData& data, QPointF position) {
    if (const auto& session = currentDragSession()) {
        info_.emplace(*session, pointOf(position));
    } else {
        info_.emplace(pasteboardOf(data), pointOf(position));
    }
}

void DropTarget::enter(QDragEnterEvent& event) {
    // The program of the drag before may have gone without a word.
    leave();
    begin(*event.mimeData(), event.position());
    // Taken whatever is below the pointer now: a drag that was refused here never comes again.
    event.setDropAction(actionFor(window_.draggingMoved(*info_), event.possibleActions()));
    event.accept();
    scrollTimer_.start();
}

void DropTarget::move(QDragMoveEvent& event) {
    if (!info_) begin(*event.mimeData(), event.position());
    info_->setDraggingLocation(pointOf(event.position()));
    const auto action = actionFor(window_.draggingMoved(*info_), event.possibleActions());
    event.setDropAction(action);
    event.setAccepted(action != Qt::IgnoreAction);
}

void DropTarget::leave() {
    scrollTimer_.stop();
    if (info_) window_.draggingExited(*info_);
    info_.reset();
}

void DropTarget::drop(QDropEvent& event) {
    scrollTimer_.stop();
    if (!info_) begin(*event.mimeData(), event.position());
    auto info = *std::exchange(info_, std::nullopt);
    info.setDraggingLocation(pointOf(event.position()));
    const auto operation = window_.draggingMoved(info);
    const bool taken = window_.drop(info);
    if (taken) dropWasTaken(operation);
    event.setDropAction(taken ? actionFor(operation, event.possibleActions()) : Qt::IgnoreAction);
    event.setAccepted(taken);
}

void DropTarget::scroll() {
    if (!info_) return;
    auto* scrollView = scrollViewAt(window_, info_->draggingLocation());
    const double step = scrollView ? stepAt(*scrollView, info_->draggingLocation()) : 0;
    if (step == 0) return;
    const auto before = scrollView->documentVisibleRect().origin();
    scrollView->scrollBy(0, step);
    if (scrollView->documentVisibleRect().origin() != before) window_.draggingMoved(*info_);
}

}  // namespace corvane::qt
