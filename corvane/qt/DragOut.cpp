#include "corvane/qt/DragOut.h"

#include "corvane/qt/PasteboardMime.h"
#include "corvane/qt/QtCanvas.h"
#include "corvane/views/Mirroring.h"

#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace corvane::qt {

using views::DragOperation;
using views::DragSession;

namespace {

/// The platform's codes beside those that views name.
constexpr DragOperation kOperationCopy = 1;
constexpr DragOperation kOperationLink = 2;
constexpr DragOperation kOperationMove = 16;

constexpr double kMostWidth = 480;
constexpr double kMostHeight = 160;
constexpr double kOpacity = 0.8;

struct Underway {
    std::shared_ptr<DragSession> session;
    DragOperation operation = views::kDragOperationNone;
};

Underway& underway() {
    static Underway drag;
    return drag;
}

/// Where the picture begins in a view that is wider: texts begin there.
double leftOfPicture(const views::View& view) {
    return views::isMirrored() ? std::max(0.0, view.frame().width - kMostWidth) : 0;
}

}  // namespace

Qt::DropActions actionsOf(DragOperation operations) {
    Qt::DropActions actions;
    if (operations & kOperationCopy) actions |= Qt::CopyAction;
    if (operations & kOperationLink) actions |= Qt::LinkAction;
    if (operations & (kOperationMove | views::kDragOperationGeneric)) actions |= Qt::MoveAction;
    return actions;
}

DragOperation operationOf(Qt::DropAction action) {
    switch (action) {
        case Qt::CopyAction:
            return kOperationCopy;
        case Qt::LinkAction:
            return kOperationLink;
        case Qt::MoveAction:
        case Qt::TargetMoveAction:
            return kOperationMove;
        default:
            return views::kDragOperationNone;
    }
}

Qt::DropAction actionFor(DragOperation operation, Qt::DropActions possible) {
    if (operation == views::kDragOperationNone) return Qt::IgnoreAction;
    // What is "generic" moves things within this program. Another one would delete what it gave.
    const bool isForeign = !currentDragSession();
    if (isForeign && operation == views::kDragOperationGeneric && possible & Qt::CopyAction)
        return Qt::CopyAction;
    const Qt::DropActions wanted = actionsOf(operation) & possible;
    const Qt::DropActions choice = wanted ? wanted : possible;
    // A copy harms nobody; whatever "generic" means, the source need not lose what it gave.
    for (const auto action : {Qt::MoveAction, Qt::CopyAction, Qt::LinkAction})
        if (choice.testFlag(action) && (wanted || action != Qt::MoveAction)) return action;
    return Qt::IgnoreAction;
}

const std::shared_ptr<DragSession>& currentDragSession() {
    return underway().session;
}

void dropWasTaken(DragOperation operation) {
    underway().operation = operation;
}

QPixmap pictureOf(views::View& view, double scale, platform::Appearance appearance) {
    const double width = std::min(view.frame().width, kMostWidth);
    const double height = std::min(view.frame().height, kMostHeight);
    if (width < 1 || height < 1) return {};
    QPixmap picture(static_cast<int>(std::ceil(width * scale)),
                    static_cast<int>(std::ceil(height * scale)));
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(kOpacity);
    const double left = leftOfPicture(view);
    painter.translate(-left, 0);
    QtCanvas canvas(painter, appearance);
    view.drawTree(canvas, {left, 0, width, height});
    return picture;
}

void carryOut(const std::shared_ptr<DragSession>& session, QWidget& source,
              platform::Appearance appearance, const RunDrag& run) {
    auto* drag = new QDrag(&source);  // deletes itself, later
    drag->setMimeData(mimeDataOf(session->pasteboard).release());
    if (session->picture) {
        drag->setPixmap(pictureOf(*session->picture, source.devicePixelRatioF(), appearance));
        const auto grip = session->picture->convertFromWindow(session->start);
        const double x = grip.x - leftOfPicture(*session->picture);
        drag->setHotSpot(QPoint(static_cast<int>(std::clamp(x, 0.0, kMostWidth)),
                                static_cast<int>(std::clamp(grip.y, 0.0, kMostHeight))));
    }
    const auto before = std::exchange(underway(), {session});
    const Qt::DropAction action = run(*drag, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    const DragOperation taken = std::exchange(underway(), before).operation;
    session->end(taken != views::kDragOperationNone ? taken : operationOf(action));
}

}  // namespace corvane::qt
