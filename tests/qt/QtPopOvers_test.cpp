#include "corvane/qt/QtPopOvers.h"

#include "corvane/controls/PopOver.h"

#include "tests/qt/HostFixture.h"

using namespace corvane;
using namespace corvane::qt;
using views::Rect;

namespace {

struct Content : NotingView {
    views::Size preferredSizeThatFits(views::Size) override { return {120, 80}; }
    bool mouseUp(const views::MouseEvent&) override {
        if (onClick) onClick();
        return true;
    }
    std::function<void()> onClick;
};

struct QtPopOversTest : HostTest {
    QtPopOversTest() {
        show();
        host.viewWindow().makeFirstResponder(field);
        popOver.showBeside(field);
        QApplication::processEvents();
    }
    /// The one that shows the content; null for none.
    HostWidget* panel() {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QWidget* widget : host.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<HostWidget*>(widget)) return found;
        return nullptr;
    }

    QtPopOvers presenter;
    ScopedPopOverPresenter scope{presenter};
    std::shared_ptr<views::TextField> field = add<views::TextField>({20, 10, 100, 24});
    std::shared_ptr<Content> content = std::make_shared<Content>();
    PopOver popOver{content};
};

}  // namespace

TEST_F(QtPopOversTest, StandsBesideItsViewAndLeavesTheFocus) {
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->geometry(), QRect(host.mapToGlobal(QPoint(20, 37)), QSize(122, 82)));
    EXPECT_TRUE(host.liveEditor()->hasFocus());
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                      Qt::LeftButton, {});
    QApplication::sendEvent(panel(), &press);
    EXPECT_EQ(content->takeLog(), "down1 5,5; ");
    EXPECT_TRUE(host.liveEditor()->hasFocus());
    field->setFrame({30, 20, 100, 24});
    EXPECT_EQ((panel(), panel()->pos()), host.mapToGlobal(QPoint(30, 47)));
    content->onClick = [&] { popOver.close(); };
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                        Qt::NoButton, {});
    QApplication::sendEvent(panel(), &release);
    EXPECT_FALSE(panel());
    EXPECT_EQ(content->superview(), nullptr);
}

TEST_F(QtPopOversTest, EndsWithItsHost) {
    popOver.close();
    auto other = std::make_unique<HostWidget>();
    other->viewWindow().root().addSubview(field);
    other->show();
    popOver.showBeside(field);
    other.reset();
    EXPECT_FALSE(popOver.isShown());
    EXPECT_EQ(content->superview(), nullptr);
    host.viewWindow().root().addSubview(field);
    popOver.showBeside(field);
    EXPECT_TRUE(panel());
}

TEST_F(QtPopOversTest, GoesWithItsView) {
    field->removeFromSuperview();
    panel();
    EXPECT_FALSE(panel());
    EXPECT_FALSE(popOver.isShown());
    PopOver elsewhere(std::make_shared<Content>());
    views::Window window({100, 100});
    window.root().addSubview(field);
    elsewhere.showBeside(field);
    EXPECT_FALSE(panel()) << "in no host";
    host.viewWindow().root().addSubview(field);
    popOver.showBeside(field);
    EXPECT_TRUE(panel());
    host.hide();
    panel();
    EXPECT_FALSE(popOver.isShown());
}
