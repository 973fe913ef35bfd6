// Hosts where lines begin at the right.

#include "corvane/platform/Locale.h"
#include "corvane/qt/DragOut.h"
#include "corvane/qt/Menus.h"
#include "corvane/views/Label.h"
#include "corvane/views/Menu.h"
#include "corvane/views/ScrollView.h"

#include "tests/qt/HostFixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

using namespace corvane;
using namespace corvane::qt;

namespace {

struct RightToLeftTest : HostTest {
    /// The columns of the host in which there is anything but its ground.
    std::pair<int, int> inkedColumns() {
        const QImage image = host.grab().toImage();
        const QColor ground = image.pixelColor(image.width() / 2, image.height() - 1);
        std::pair<int, int> columns{image.width(), -1};
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) != ground)
                    columns = {std::min(columns.first, x), std::max(columns.second, x)};
        return columns;
    }

    platform::ScopedLocale locale{platform::Locale("ar_EG")};
};

}  // namespace

TEST_F(RightToLeftTest, TextsBeginAtTheRight) {
    const auto label = std::make_shared<views::Label>();
    label->setFrame({0, 0, 200, 30});
    host.viewWindow().root().addSubview(label);
    show();
    for (const char* text : {"Milk", "حليب"})
        for (const bool wraps : {false, true}) {
            label->setText(text);
            label->setWraps(wraps);
            const auto [first, last] = inkedColumns();
            EXPECT_GT(first, 130) << text;
            EXPECT_GT(last, 190) << text;
        }
}

TEST_F(RightToLeftTest, TextsAreEditedWhereTheyStand) {
    const auto line = add<views::TextField>({10, 10, 150, 24});
    const auto paragraph = add<views::TextView>({10, 40, 150, 40});
    for (const auto& field : {line, std::shared_ptr<views::TextField>(paragraph)})
        field->setStringValue("Milk");
    show();
    host.viewWindow().makeFirstResponder(line);
    const auto& edit = dynamic_cast<QLineEdit&>(*host.liveEditor());
    EXPECT_EQ(edit.alignment(), Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    EXPECT_EQ(edit.layoutDirection(), Qt::RightToLeft);
    host.viewWindow().makeFirstResponder(paragraph);
    auto& paragraphs = dynamic_cast<QPlainTextEdit&>(*host.liveEditor());
    paragraphs.setPlainText("ميلينا الطويلة عن البيت عند البحيرة، والسؤال هل ما زال القارب هناك");
    paragraphs.moveCursor(QTextCursor::Start);
    for (int width = 100; width < 180; width += 3) {  // with lines that just fit, too
        paragraph->setFrameSize({static_cast<double>(width), 40});
        QApplication::processEvents();
        EXPECT_NEAR(paragraphs.cursorRect().right(), paragraphs.viewport()->width(), 2) << width;
    }
    line->setAlignment(views::TextAlignment::Left);
    host.viewWindow().makeFirstResponder(line);
    EXPECT_EQ(edit.alignment(), Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter);
}

TEST_F(RightToLeftTest, ScrollersAreAtTheLeft) {
    const auto scrollView = add<views::ScrollView>({0, 0, 200, 100});
    const auto document = std::make_shared<views::View>(views::Rect{0, 0, 200, 1000});
    scrollView->setDocumentView(document);
    show();
    const auto [first, last] = inkedColumns();
    EXPECT_EQ(first, 2);
    EXPECT_LT(last, 10);
    mouse(QEvent::MouseButtonPress, {5, 10});
    mouse(QEvent::MouseMove, {5, 40});
    EXPECT_GT(scrollView->documentVisibleRect().y, 100);
}

TEST_F(RightToLeftTest, DragsShowWhereTextsBegin) {
    const auto label = std::make_shared<views::Label>("Milk");
    label->setFrame({0, 0, 900, 30});
    const QImage picture = pictureOf(*label, 1, platform::Appearance::Light).toImage();
    int ink = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = picture.width() - 60; x < picture.width(); ++x)
            ink += picture.pixelColor(x, y).alpha();
    EXPECT_GT(ink, 0);
}

TEST_F(RightToLeftTest, MenusAreLaidOutFromTheRight) {
    const auto menu = std::make_shared<views::Menu>();
    menu->addItem("Cut");
    EXPECT_EQ(qMenuOf(menu, host)->layoutDirection(), Qt::RightToLeft);
}
