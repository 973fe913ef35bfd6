#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/MonthChooserView.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/qt/QtPopOvers.h"

#include "tests/qt/HostFixture.h"

#include <QLineEdit>

using namespace corvane;
using namespace corvane::qt;

namespace {

/// On Wednesday, March 4, 2026, at noon, in en_US.
struct DateFieldTest : HostTest {
    DateFieldTest() {
        show();
        host.viewWindow().makeFirstResponder(field);
    }
    QLineEdit& line() { return dynamic_cast<QLineEdit&>(*host.liveEditor()); }
    void type(const char* letters) {
        for (; *letters; ++letters)
            press(0, std::string(1, *letters).c_str());
    }
    MonthChooserView& chooser() {
        return dynamic_cast<MonthChooserView&>(*field->dateChooserPopover().contentView());
    }

    platform::RecordingConsole quiet;
    platform::ScopedConsole console{quiet};
    platform::FixedClock noon{EXDateOnly(2026, 3, 4).date()};
    platform::ScopedClock clock{noon};
    platform::ScopedLocale locale{platform::Locale("en_US")};
    QtPopOvers presenter;
    ScopedPopOverPresenter popOvers{presenter};
    std::shared_ptr<CVMacDateField> field = add<CVMacDateField>({10, 10, 120, 24});
};

}  // namespace

TEST_F(DateFieldTest, GoesOnTakingWhatIsTypedWhileItsChooserIsUsed) {
    ASSERT_TRUE(field->dateChooserPopover().isShown());
    type("mar 2");
    press(Qt::Key_Left);
    EXPECT_EQ(line().cursorPosition(), 4);
    EXPECT_FALSE(chooser().hasHighlight());
    for (const auto key : {Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Left})
        press(key);
    EXPECT_EQ(chooser().highlightedDay(), EXDateOnly(2027, 3, 27));
    EXPECT_EQ(line().cursorPosition(), 4);
    EXPECT_TRUE(line().hasFocus());
    type("1");
    EXPECT_EQ(line().text(), "mar 12");
    EXPECT_EQ(chooser().day(), EXDateOnly(2026, 3, 12));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(line().text(), "Mar 19, 2026");
    EXPECT_FALSE(field->dateChooserPopover().isShown());
    QMouseEvent click(QEvent::MouseButtonPress, QPointF(5, 5), line().mapToGlobal(QPointF(5, 5)),
                      Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&line(), &click);
    EXPECT_TRUE(field->dateChooserPopover().isShown()) << "a click on what is edited opens it";
    press(Qt::Key_Escape);
    line().selectAll();
    type("x");
    press(Qt::Key_Return);
    EXPECT_EQ(line().text(), "");
    EXPECT_FALSE(field->dateValue());
}
