#include "corvane/views/Drag.h"

#include "corvane/platform/Pasteboard.h"
#include "corvane/qt/DragOut.h"
#include "corvane/views/ScrollView.h"

#include "tests/qt/HostFixture.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

using namespace corvane;
using namespace corvane::qt;
using views::DraggingInfo;
using views::DragOperation;
using views::Rect;

namespace {

/// Drags itself out, and takes what is dropped.
struct DraggableView : NotingView {
    explicit DraggableView(const Rect& frame) : NotingView(frame) {
        registerForDraggedTypes({std::string(platform::kPasteboardTypeString),
                                 std::string(platform::kPasteboardTypeURL)});
    }
    bool mouseDragged(const views::MouseEvent& event) override {
        platform::PasteboardItem item;
        item.setValue(platform::kPasteboardTypeString, "a row");
        views::DragSession session{
            shared_from_this(), {}, shared_from_this(), event.locationInWindow()};
        session.pasteboard.addItem(item);
        window()->beginDragging(std::move(session));
        return true;
    }
    void draggingSessionEnded(DragOperation done) override {
        log += "ended " + std::to_string(done) + "; ";
    }
    DragOperation draggingEntered(DraggingInfo&) override {
        log += "entered; ";
        return operation;
    }
    DragOperation draggingUpdated(DraggingInfo&) override { return operation; }
    void draggingExited(DraggingInfo&) override { log += "exited; "; }
    bool performDragOperation(DraggingInfo& info) override {
        log += info.draggingSource() ? "from here: " : "from elsewhere: ";
        for (const auto& item : info.draggingPasteboard().items())
            for (const auto& type : item.types())
                log += item.textForType(type).value_or("?") + "; ";
        return true;
    }
    DragOperation operation = views::kDragOperationGeneric;
};

struct DragHost : HostWidget {
    Qt::DropAction runDrag(QDrag& drag, Qt::DropActions possible) override {
        return run ? run(drag, possible) : Qt::IgnoreAction;
    }
    std::function<Qt::DropAction(QDrag&, Qt::DropActions)> run;
};

struct DragTest : HostTest {
    /// As the desktop would: in, over, and down or out again.
    static Qt::DropAction bring(QWidget& to, QPoint at, const QMimeData& data, bool drop,
                                Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction) {
        QDragEnterEvent enter(at, possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&to, &enter);
        QDragMoveEvent move(at, possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&to, &move);
        if (!drop || !move.isAccepted()) {
            QDragLeaveEvent leave;
            QApplication::sendEvent(&to, &leave);
            return Qt::IgnoreAction;
        }
        QDropEvent dropped(at, possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&to, &dropped);
        return dropped.isAccepted() ? dropped.dropAction() : Qt::IgnoreAction;
    }
};

}  // namespace

TEST_F(DragTest, GoesFromHostToHost) {
    DragHost source;
    source.resize(100, 100);
    source.show();
    const auto row = std::make_shared<DraggableView>(Rect{0, 20, 100, 20});
    source.viewWindow().root().addSubview(row);
    const auto target = add<DraggableView>({0, 0, 100, 50});
    host.resize(100, 100);
    host.show();
    for (const auto& [at, drop, logOfRow, logOfTarget] :
         {std::tuple{QPoint(10, 10), true, "down1 10,30; ended 4; ", "entered; from here: a row; "},
          {QPoint(10, 10), false, "down1 10,30; ended 0; ", "entered; exited; "},
          {QPoint(10, 90), true, "down1 10,30; ended 0; ", ""}}) {
        source.run = [&, at = at, drop = drop](QDrag& drag, Qt::DropActions possible) {
            EXPECT_EQ(drag.pixmap().size(), QSize(100, 20));
            EXPECT_EQ(drag.hotSpot(), QPoint(10, 15));
            return bring(host, at, *drag.mimeData(), drop, possible);
        };
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseMove}) {
            const QPointF position(10, type == QEvent::MouseMove ? 35 : 30);
            QMouseEvent event(type, position, position, Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(&source, &event);
        }
        EXPECT_FALSE(currentDragSession());
        QApplication::processEvents();
        EXPECT_EQ(row->takeLog(), logOfRow);
        EXPECT_EQ(target->takeLog(), logOfTarget);
    }
}

TEST_F(DragTest, DoesNotBeginAfterTheButtonWasReleased) {
    DragHost source;
    source.run = [](QDrag&, Qt::DropActions) {
        ADD_FAILURE() << "it would hang on the pointer";
        return Qt::IgnoreAction;
    };
    source.show();
    const auto row = std::make_shared<DraggableView>(Rect{0, 20, 100, 20});
    source.viewWindow().root().addSubview(row);
    for (const auto& [type, y] : {std::pair{QEvent::MouseButtonPress, 30},
                                  {QEvent::MouseMove, 35},
                                  {QEvent::MouseButtonRelease, 35}}) {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(10, y), QPointF(10, y), Qt::LeftButton, held, {});
        QApplication::sendEvent(&source, &event);
    }
    QApplication::processEvents();
    EXPECT_EQ(row->takeLog(), "down1 10,30; ended 0; ");
}

TEST_F(DragTest, ComesFromOtherPrograms) {
    const auto target = add<DraggableView>({0, 0, 100, 50});
    host.resize(100, 100);
    host.show();
    QMimeData link;
    link.setUrls({QUrl("https://example.org/")});
    link.setData("public.url-name", "Example");
    EXPECT_EQ(bring(host, {10, 10}, link, true, Qt::CopyAction | Qt::LinkAction), Qt::CopyAction);
    EXPECT_EQ(target->takeLog(), "entered; from elsewhere: https://example.org/; Example; ");
    target->operation = views::kDragOperationNone;
    EXPECT_EQ(bring(host, {10, 10}, link, true), Qt::IgnoreAction);
    target->operation = views::kDragOperationGeneric;
    target->takeLog();
    for (int i = 0; i < 2; ++i) {  // the first one's program has gone without a word
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &link, Qt::LeftButton, {});
        QApplication::sendEvent(&host, &enter);
    }
    EXPECT_EQ(target->takeLog(), "entered; exited; entered; ");
    QMimeData unknown;
    unknown.setData("application/x-other", "1");
    EXPECT_EQ(bring(host, {10, 10}, unknown, true), Qt::IgnoreAction);
    for (const auto& [operation, possible, action] :
         {std::tuple{DragOperation{1}, Qt::MoveAction | Qt::CopyAction, Qt::CopyAction},
          {DragOperation{16}, Qt::MoveAction | Qt::CopyAction, Qt::MoveAction},
          {DragOperation{4}, Qt::CopyAction | Qt::LinkAction, Qt::CopyAction},
          {DragOperation{4}, Qt::CopyAction | Qt::MoveAction, Qt::CopyAction},
          {DragOperation{2}, Qt::MoveAction | Qt::MoveAction, Qt::IgnoreAction},
          {DragOperation{0}, Qt::MoveAction | Qt::CopyAction, Qt::IgnoreAction}})
        EXPECT_EQ(actionFor(operation, possible), action) << operation;
}

TEST_F(DragTest, ScrollsAtTheEdge) {
    const auto scrollView = add<views::ScrollView>({0, 0, 100, 100});
    scrollView->setDocumentView(std::make_shared<DraggableView>(Rect{0, 0, 100, 300}));
    host.resize(100, 100);
    host.show();
    QMimeData text;
    text.setText("x");
    for (const auto& [y, end] : {std::pair{90, 200.0}, {5, 0.0}}) {
        QDragEnterEvent enter({50, y}, Qt::CopyAction, &text, Qt::LeftButton, {});
        QApplication::sendEvent(&host, &enter);
        while (scrollView->documentVisibleRect().y != end)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QDragLeaveEvent leave;
        QApplication::sendEvent(&host, &leave);
    }
}
