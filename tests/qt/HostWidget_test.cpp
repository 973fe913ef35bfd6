#include "corvane/qt/Keys.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/TextField.h"

#include "tests/qt/HostFixture.h"

#include <QDialog>
#include <QHelpEvent>
#include <QScreen>
#include <QToolTip>
#include <cmath>

using namespace corvane;
using namespace corvane::qt;
using views::Rect;

namespace {

struct Patch : views::View {
    using View::View;
    void draw(views::Canvas& canvas, const Rect&) override { canvas.fillRect(bounds(), color); }
    platform::Color color{{0, 1, 0}, {0, 1, 0}};
};

struct HostWidgetTest : HostTest {
    std::shared_ptr<views::ScrollView> addScrollView(const Rect& frame, views::Size document) {
        auto scrollView = add<views::ScrollView>(frame);
        scrollView->setDocumentView(
            std::make_shared<NotingView>(Rect{0, 0, document.width, document.height}));
        return scrollView;
    }
};

}  // namespace

TEST_F(HostWidgetTest, TellsViewsWhatThePointerDoes) {
    const auto view = add({10, 10, 50, 50});
    show();
    click({20, 30});
    EXPECT_EQ(view->takeLog(), "down1 20,30; up1 20,30; ");
    mouse(QEvent::MouseButtonDblClick, {20, 30});
    EXPECT_EQ(view->takeLog(), "down2 20,30; ");
    mouse(QEvent::MouseButtonPress, {20, 30}, Qt::ControlModifier);
    EXPECT_EQ(view->takeLog(), "down3 20,30*; ");
    mouse(QEvent::MouseMove, {150, 90});
    mouse(QEvent::MouseButtonRelease, {150, 90});
    EXPECT_EQ(view->takeLog(), "drag3 150,90; up3 150,90; ");
    click({150, 90});
    click({40, 40});
    EXPECT_EQ(view->takeLog(), "down1 40,40; up1 40,40; ");
}

TEST_F(HostWidgetTest, TellsViewsThatTheReleaseWentElsewhere) {
    struct Losing : NotingView {
        using NotingView::NotingView;
        void mouseWasLost() override { log += "lost; "; }
    };
    const auto view = add<Losing>({10, 10, 50, 50});
    show();
    mouse(QEvent::MouseButtonPress, {20, 30});
    click({150, 90});  // with a release in between that a menu got
    EXPECT_EQ(view->takeLog(), "down1 20,30; lost; ");
}

TEST_F(HostWidgetTest, TranslatesKeys) {
    const auto view = add({0, 0, 50, 50});
    show();
    host.viewWindow().makeFirstResponder(view);
    const std::tuple<int, const char*, Qt::KeyboardModifiers, char32_t> kCases[] = {
        {Qt::Key_Up, "", {}, views::kKeyUpArrow},
        {Qt::Key_Down, "", Qt::KeypadModifier, views::kKeyDownArrow},
        {Qt::Key_Tab, "\t", {}, views::kKeyTab},
        {Qt::Key_Backtab, "", Qt::ShiftModifier, views::kKeyBacktab},
        {Qt::Key_Return, "\r", {}, views::kKeyReturn},
        {Qt::Key_Escape, "\x1b", {}, views::kKeyEscape},
        {Qt::Key_Backspace, "\b", {}, views::kKeyBackspace},
        {Qt::Key_Delete, "\x7f", {}, views::kKeyDeleteForward},
        {Qt::Key_F6, "", Qt::ShiftModifier, views::kKeyF6},
        {Qt::Key_A, "\x01", Qt::ControlModifier, U'a'},
        {Qt::Key_A, "A", Qt::ShiftModifier, U'A'},
        {Qt::Key_unknown, "я", {}, U'я'},
    };
    for (const auto& [key, text, modifiers, expected] : kCases) {
        press(key, text, modifiers);
        EXPECT_EQ(view->takeLog(), "key " + std::to_string(expected) + "; ");
    }
    press(Qt::Key_Shift);
    EXPECT_EQ(view->takeLog(), "");
    EXPECT_EQ(modifierFlags(Qt::ControlModifier | Qt::AltModifier),
              views::kModifierCommand | views::kModifierOption);
    EXPECT_EQ(modifierFlags(Qt::MetaModifier | Qt::ShiftModifier),
              views::kModifierControl | views::kModifierShift);
}

TEST_F(HostWidgetTest, LeavesWhatNobodyWantsToTheDialogAround) {
    QDialog dialog;
    host.setParent(&dialog);
    const auto view = add({0, 0, 150, 90});
    const auto field = std::make_shared<views::TextField>(Rect{0, 60, 100, 24});
    view->addSubview(field);
    dialog.show();
    dialog.activateWindow();
    show();
    host.viewWindow().makeFirstResponder(view);
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible()) << "the view has a use for it";
    view->keys = false;
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());

    dialog.show();
    show();
    host.viewWindow().makeFirstResponder(field);
    press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible()) << "of the editor, too";
    dialog.show();
    show();
    host.viewWindow().makeFirstResponder(field);
    view->keys = true;
    view->takeLog();
    press(Qt::Key_Escape);
    press(Qt::Key_K, "\x0b", Qt::ControlModifier);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(view->takeLog(), "key 27; key 107; ") << "neither is asked for twice";
    host.setParent(nullptr);
}

TEST_F(HostWidgetTest, SharesTheFocusWithOtherWidgets) {
    QWidget window;
    host.setParent(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    const auto first = add({0, 0, 50, 50});
    const auto second = add({50, 0, 50, 50});
    window.show();
    window.activateWindow();
    other.setFocus();
    QApplication::processEvents();
    EXPECT_FALSE(host.viewWindow().isActive());
    host.viewWindow().makeFirstResponder(second);
    EXPECT_TRUE(host.hasFocus());
    EXPECT_TRUE(host.viewWindow().isActive());
    press(Qt::Key_Tab);
    EXPECT_EQ(second->takeLog(), "key 9; ");
    first->keys = second->keys = false;
    press(Qt::Key_Tab);
    EXPECT_TRUE(other.hasFocus()) << "nobody in the host wants the key";
    EXPECT_FALSE(host.viewWindow().isActive());
    host.viewWindow().makeFirstResponder(nullptr);
    host.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(host.viewWindow().firstResponder(), first) << "Tab goes on inside";
    other.setFocus();
    host.viewWindow().makeFirstResponder(nullptr);
    other.setFocus();
    host.setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(host.viewWindow().firstResponder(), second) << "and back, from the end";
    host.setParent(nullptr);
}

TEST_F(HostWidgetTest, Scrolls) {
    const auto outer = addScrollView({0, 0, 200, 100}, {400, 500});
    const auto inner = std::make_shared<views::ScrollView>(Rect{0, 0, 100, 60});
    inner->setDocumentView(std::make_shared<NotingView>(Rect{0, 0, 100, 90}));
    outer->documentView()->addSubview(inner);
    show();
    const auto at = [](const auto& view) { return view->documentVisibleRect().origin(); };
    wheel({10, 10}, {0, -7}, {0, -120});  // a touchpad
    EXPECT_EQ(at(inner), (views::Point{0, 7}));
    wheel({10, 10}, {}, {0, -120});
    EXPECT_EQ(at(inner), (views::Point{0, 30}));
    wheel({10, 10}, {}, {0, -120});  // at its end: the one around it
    const double step = at(outer).y;
    EXPECT_GT(step, 20);
    wheel({150, 50}, {}, {0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(at(outer), (views::Point{step, step}));
    wheel({150, 50}, {0, -7}, {0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(at(outer), (views::Point{step + 7, step})) << "of a touchpad, too";
    const auto document = std::static_pointer_cast<NotingView>(outer->documentView());
    host.viewWindow().makeFirstResponder(document);
    const double before = at(outer).y;
    press(Qt::Key_End);
    EXPECT_NE(document->takeLog(), "") << "a view that has a use for the key gets it";
    EXPECT_EQ(at(outer).y, before);
    document->keys = false;
    for (const auto& [key, y] : {std::pair{Qt::Key_End, 400},
                                 {Qt::Key_PageUp, 400 - 76},
                                 {Qt::Key_PageDown, 400},
                                 {Qt::Key_Home, 0}}) {
        press(key);
        EXPECT_EQ(at(outer).y, y);
    }
    inner->setFrame({0, 0, 100, 90});
    const auto small = std::static_pointer_cast<NotingView>(inner->documentView());
    small->keys = false;
    for (const auto& first :
         {std::shared_ptr<views::View>(small), std::shared_ptr<views::View>()}) {
        host.viewWindow().makeFirstResponder(first);
        press(Qt::Key_End);
        EXPECT_EQ(at(outer).y, 400) << "around one that shows all it has";
        outer->scrollTo({0, 0});
    }
    // By the bar at the right edge: 100 points of 500 are 19 of 96.
    mouse(QEvent::MouseButtonPress, {197, 10});
    mouse(QEvent::MouseMove, {197, 10 + 35});
    EXPECT_NEAR(at(outer).y, 206, 10);
    EXPECT_EQ(at(outer).y, std::round(at(outer).y)) << "letters would blur";
    mouse(QEvent::MouseButtonRelease, {197, 44});
    EXPECT_EQ(std::static_pointer_cast<NotingView>(outer->documentView())->takeLog(), "");
}

TEST_F(HostWidgetTest, PaintsOnlyWhatIsSeenAndChanged) {
    const auto scrollView = addScrollView({0, 0, 200, 100}, {200, 100000});
    std::vector<std::shared_ptr<NotingView>> rows;
    for (int i = 0; i < 5000; ++i) {
        rows.push_back(std::make_shared<NotingView>(Rect{0, i * 20.0, 200, 20}));
        scrollView->documentView()->addSubview(rows.back());
    }
    show();
    host.repaint();
    const auto count = [&] {
        QApplication::processEvents();
        int sum = 0;
        for (const auto& row : rows)
            sum += std::exchange(row->drawn, 0);
        return sum;
    };
    count();
    rows[2]->setNeedsDisplay();
    EXPECT_LE(count(), 3);
    scrollView->scrollBy(0, 50000);
    EXPECT_LE(count(), 7);
    rows[2]->setNeedsDisplay();
    EXPECT_EQ(count(), 0);
}

TEST_F(HostWidgetTest, PaintsWhatLiesBetweenOthersThatWaitForIt) {
    const std::shared_ptr<Patch> patches[] = {
        add<Patch>({0, 0, 10, 10}), add<Patch>({190, 90, 10, 10}), add<Patch>({90, 40, 10, 10})};
    show();
    for (const auto& patch : patches) {
        patch->color = platform::Color({1, 0, 0}, {1, 0, 0});
        patch->setNeedsDisplay();
    }
    QApplication::processEvents();
    const QImage shown = host.screen()->grabWindow(host.winId()).toImage();
    for (const QPoint at : {QPoint(5, 5), QPoint(195, 95), QPoint(95, 45)})
        EXPECT_EQ(shown.pixelColor(at), QColor(Qt::red)) << at.x();
}

TEST_F(HostWidgetTest, DrawsNoBarsOverWhatCoversThem) {
    addScrollView({0, 0, 200, 100}, {200, 1000});
    show();
    const auto bar = [&] { return host.grab().toImage().pixelColor(195, 10); };
    const QColor ground = host.grab().toImage().pixelColor(100, 50);
    EXPECT_NE(bar(), ground);
    const auto cover = std::make_shared<Patch>(Rect{0, 0, 200, 100});
    host.viewWindow().modalViews().begin(cover);
    EXPECT_EQ(bar(), QColor(Qt::green));
    host.viewWindow().modalViews().end(*cover);
    EXPECT_NE(bar(), ground);
}

TEST_F(HostWidgetTest, FollowsTheDesktop) {
    const auto view = add<views::TextField>({10, 10, 100, 30});
    view->setToolTip("a < b");
    show();
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 20), QPointF(20, 20), Qt::NoButton,
                     Qt::NoButton, {});
    QApplication::sendEvent(&host, &move);
    EXPECT_EQ(host.cursor().shape(), Qt::IBeamCursor);
    QHelpEvent help(QEvent::ToolTip, {20, 20}, host.mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(&host, &help);
    EXPECT_EQ(QToolTip::text(), "<p>a &lt; b</p>");
    QToolTip::hideText();
    host.resize(300, 200);
    EXPECT_EQ(host.viewWindow().size(), (views::Size{300, 200}));
    EXPECT_EQ(host.appearance(), platform::Appearance::Light);
    QPalette dark = host.palette();
    dark.setColor(QPalette::Window, Qt::black);
    host.setPalette(dark);
    EXPECT_EQ(host.appearance(), platform::Appearance::Dark);
    EXPECT_LT(host.grab().toImage().pixelColor(200, 150).lightness(), 80);
}
