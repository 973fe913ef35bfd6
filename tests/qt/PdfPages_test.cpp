#include "corvane/qt/PdfPages.h"

#include "corvane/platform/Console.h"
#include "corvane/table/TablePrint.h"

#include "apps/gallery/TaskTable.h"

#include "HostFixture.h"

namespace corvane::qt {
namespace {

class PdfPages : public HostTest {
  protected:
    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    std::shared_ptr<gallery::TaskTable> tasks =
        gallery::TaskTable::make("many", gallery::manyExampleTasks(100), {});
};

/// The objects of the document that are pages.
int pagesIn(const QByteArray& pdf) {
    return static_cast<int>(pdf.count("/Type /Page\n"));
}

TEST_F(PdfPages, HoldEveryPageOfTheTable) {
    const QPageLayout a5(QPageSize(QPageSize::A5), QPageLayout::Portrait, QMarginsF(20, 20, 20, 20),
                         QPageLayout::Millimeter);
    const QByteArray pdf = pdfOfTable(tasks->sharedTable(), "Tasks", a5);
    EXPECT_TRUE(pdf.startsWith("%PDF-1."));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    // What is left of it beside the footer.
    const QSizeF paper = a5.paintRect(QPageLayout::Inch).size() * 96;
    const TablePrint print(tasks->sharedTable(), {paper.width(), paper.height() - 24});
    EXPECT_EQ(pagesIn(pdf), static_cast<int>(print.pageCount()));
    EXPECT_GT(print.pageCount(), 3u);
}

TEST_F(PdfPages, OfNothingAreOneBlankPageOrNone) {
    tasks->setSections({});
    EXPECT_EQ(pagesIn(pdfOfTable(tasks->sharedTable(), "Empty")), 1);
    const QPageLayout allMargin(QPageSize(QPageSize::A6), QPageLayout::Portrait,
                                QMarginsF(10, 74, 10, 73), QPageLayout::Millimeter);
    EXPECT_TRUE(pdfOfTable(tasks->sharedTable(), "No room", allMargin).isEmpty());
}

}  // namespace
}  // namespace corvane::qt
