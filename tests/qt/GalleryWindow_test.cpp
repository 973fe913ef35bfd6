#include "apps/gallery/GalleryWindow.h"

#include "corvane/models/CVToolManager.h"
#include "corvane/platform/Console.h"
#include "corvane/qt/DragOut.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"
#include "corvane/table/CVMacTableViewCell.h"

#include "apps/gallery/ListsPage.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/Tools.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

using namespace corvane;
using gallery::TaskTable;

namespace {

/// The whole way: events of the desktop in, tasks out.
struct GalleryWindowTest : testing::Test {
    GalleryWindowTest() {
        window.show();
        window.activateWindow();
        settle();
    }
    static void settle() {
        for (int i = 0; i < 10; ++i)
            QApplication::processEvents();
    }
    static void press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        settle();
    }
    static void type(const char* text) {
        for (const QChar letter : QString::fromUtf8(text))
            press(Qt::Key_unknown, {}, letter);
    }
    /// The middle of a row, in its host.
    static QPointF middleOf(TaskTable& tasks, const CVIndexPath& path) {
        auto& table = tasks.table();
        table.layoutIfNeeded();
        const auto cell = table.cellForRowAtIndexPath(path);
        const auto frame = cell->convertToWindow(cell->bounds());
        return {frame.x + frame.width / 2, frame.y + frame.height / 2};
    }
    void mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers keys = {}) {
        const bool held = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, host.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          held ? Qt::LeftButton : Qt::NoButton, keys);
        QApplication::sendEvent(&host, &event);
    }
    void click(TaskTable& tasks, const CVIndexPath& path, Qt::KeyboardModifiers keys = {}) {
        mouse(QEvent::MouseButtonPress, middleOf(tasks, path), keys);
        mouse(QEvent::MouseButtonRelease, middleOf(tasks, path), keys);
        settle();
    }
    void drop(TaskTable& tasks, const CVIndexPath& path, const QMimeData& data) {
        const QPoint at = middleOf(tasks, path).toPoint();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&host, &enter);
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&host, &dropped);
        settle();
    }
    static std::string titles(const TaskTable& tasks, std::size_t section) {
        std::string text;
        for (const auto& task : tasks.sections().at(section).tasks)
            text += task.title.substr(0, task.title.find(' ')) + " ";
        return text;
    }
    std::string selected() {
        std::string text;
        for (const CVIndexPath& path : left.table().allIndexPathsForSelectedRows())
            text += std::to_string(path.section()) + "." + std::to_string(path.row()) + " ";
        return text;
    }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    qt::QtRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    qt::QtTextMeasurer measurer;
    views::ScopedTextMeasurer measurerScope{measurer};
    ScopedToolRegister tools;
    struct Registered {
        Registered() { gallery::registerTools(); }
    } registered;
    gallery::GalleryWindow window;
    qt::HostWidget& host = window.host();
    gallery::ListsPage& lists = dynamic_cast<gallery::ListsPage&>(*window.page());
    TaskTable& left = lists.leftTable();
    TaskTable& right = lists.rightTable();
};

}  // namespace

TEST_F(GalleryWindowTest, EditsAndInsertsByKeyboard) {
    left.table().startInlineEditingRowAtIndexPath(CVIndexPath(1, 1));
    settle();
    ASSERT_TRUE(host.liveEditor()->hasFocus());
    type("Öl");
    press(Qt::Key_Tab);
    EXPECT_EQ(titles(left, 1), "Return Öl Bake ");
    type("Cook");
    press(Qt::Key_Return);
    type("New");
    press(Qt::Key_Return);
    EXPECT_EQ(titles(left, 1), "Return Öl Cook New ");
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    settle();
    EXPECT_EQ(host.liveEditor(), nullptr);
    EXPECT_EQ(left.table().rows().rowCount(1), 4) << "the row that was not filled in has gone";
    EXPECT_TRUE(host.hasFocus());
}

TEST_F(GalleryWindowTest, SelectsAndMovesByKeyboardAndPointer) {
    click(left, {0, 1});
    EXPECT_EQ(selected(), "0.1 ");
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "0.2 0.3 ");
    click(left, {0, 0}, Qt::ControlModifier);
    EXPECT_EQ(selected(), "0.0 0.2 0.3 ");
    click(left, {1, 0});
    click(left, {1, 2}, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "1.0 1.1 1.2 ");
    click(left, {1, 0});
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(titles(left, 1), "Fix Return Bake ");
    EXPECT_EQ(selected(), "1.1 ");
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(left, 1), "Fix Bake ");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(left.table().allIndexPathsForSelectedRows().size(), 9u);
    click(right, {0, 0});
}

TEST_F(GalleryWindowTest, TakesWhatIsDropped) {
    QMimeData link;
    link.setUrls({QUrl("https://example.org/recipe")});
    link.setData("public.url-name", "Recipe for bread");
    drop(right, {1, 0}, link);
    EXPECT_EQ(titles(right, 1), "Numbers New Recipe ");
    QMimeData text;
    text.setText("Soup");
    drop(left, {0, 0}, text);
    EXPECT_EQ(titles(left, 0), "Water Call Buy Answer Soup ");
}
