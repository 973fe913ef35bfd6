#include "corvane/qt/PdfPages.h"

#include "corvane/qt/QtCanvas.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/TablePrint.h"
#include "corvane/views/Theme.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>

namespace corvane::qt {

namespace {

constexpr int kDotsPerInch = 96;
constexpr double kMargin = 15;  ///< in millimetres
constexpr double kFooterHeight = 24;

void drawFooter(views::Canvas& canvas, const platform::Rect& rect, std::size_t page,
                std::size_t pageCount) {
    views::TextStyle style;
    style.font.size = 11;
    style.color = views::theme().secondaryText;
    style.alignment = views::TextAlignment::Center;
    canvas.drawText(std::to_string(page + 1) + " / " + std::to_string(pageCount), rect, style);
}

}  // namespace

QPageLayout usualPageLayout() {
    const bool inches = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(inches ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
            QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter};
}

QByteArray pdfOfTable(const std::shared_ptr<CVMacTableView>& table, const QString& title,
                      const QPageLayout& layout) {
    const QSizeF paper = layout.paintRect(QPageLayout::Inch).size() * kDotsPerInch;
    const platform::Size page{paper.width(), paper.height() - kFooterHeight};
    if (page.width <= 0 || page.height <= 0) return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(kDotsPerInch);
    writer.setPageLayout(layout);
    {
        QPainter painter(&writer);
        const TablePrint print(table, page);
        for (std::size_t index = 0; index < print.pageCount(); ++index) {
            if (index > 0) writer.newPage();
            QtCanvas canvas(painter, platform::Appearance::Light);
            painter.save();
            const double scale = print.scaleOfPage(index);
            painter.scale(scale, scale);
            print.drawPage(index, canvas);
            painter.restore();
            drawFooter(canvas, {0, page.height, page.width, kFooterHeight}, index,
                       print.pageCount());
        }
    }
    return bytes;
}

}  // namespace corvane::qt
