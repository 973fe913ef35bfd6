#include "apps/gallery/IconSheet.h"

#include "corvane/qt/Colors.h"
#include "corvane/qt/QtImage.h"
#include "corvane/vocabulary/NamedColors.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace corvane::gallery {

using platform::Appearance;

namespace {

constexpr double kMargin = 16;
constexpr double kTitleHeight = 26;
constexpr double kCaptionHeight = 15;
constexpr double kContentWidth = 1110;

double iconHeight(const IconSheet::Group& group) {
    double height = 12;
    for (const auto& icon : group.icons)
        if (icon.image) height = std::max(height, icon.image->size().height);
    return height;
}

double cellHeight(const IconSheet::Group& group) {
    return iconHeight(group) + kCaptionHeight + 8;
}

double groupHeight(const IconSheet::Group& group, std::size_t columns) {
    const auto rows = (group.icons.size() + columns - 1) / columns;
    return kTitleHeight + static_cast<double>(rows) * cellHeight(group) + 6;
}

class SheetPainter {
  public:
    SheetPainter(QPainter& painter, std::size_t columns, double scale, Appearance appearance)
        : painter_(painter), columns_(columns), scale_(scale), appearance_(appearance) {
        font_.setFamily(QStringLiteral("DejaVu Sans"));
    }

    void drawGroup(const IconSheet::Group& group, double top) const {
        drawText(QRectF(kMargin, top, kContentWidth, kTitleHeight - 4), group.title, 13,
                 NamedColors::mainTextColor(), Qt::AlignLeft | Qt::AlignVCenter);
        const double height = cellHeight(group);
        const double width = kContentWidth / static_cast<double>(columns_);
        for (std::size_t i = 0; i < group.icons.size(); ++i) {
            const auto column = static_cast<double>(i % columns_);
            const auto row = static_cast<double>(i / columns_);
            drawIcon(
                group.icons[i],
                QRectF(kMargin + column * width, top + kTitleHeight + row * height, width, height),
                iconHeight(group));
        }
    }

  private:
    void drawIcon(const IconSheet::Icon& icon, const QRectF& cell, double iconHeight) const {
        const auto image = qt::renderedImage(icon.image, scale_, appearance_);
        if (image.isNull()) {
            painter_.setPen(Qt::red);
            painter_.drawLine(cell.topLeft(), cell.bottomRight());
        } else {
            const auto size = icon.image->size();
            painter_.drawImage(QPointF(cell.left() + (cell.width() - size.width) / 2,
                                       cell.top() + (iconHeight - size.height) / 2),
                               image);
        }
        drawText(
            QRectF(cell.left() + 2, cell.top() + iconHeight + 2, cell.width() - 4, kCaptionHeight),
            icon.caption, 9, NamedColors::mainDescriptiveColor(), Qt::AlignCenter);
    }

    void drawText(const QRectF& box, const std::string& text, int pixels,
                  const platform::Color& color, int flags) const {
        QFont font = font_;
        font.setPixelSize(pixels);
        painter_.setFont(font);
        painter_.setPen(qt::qColor(color, appearance_));
        painter_.drawText(box, flags,
                          QFontMetricsF(font).elidedText(QString::fromStdString(text),
                                                         Qt::ElideMiddle, box.width()));
    }

    QPainter& painter_;
    std::size_t columns_;
    double scale_;
    Appearance appearance_;
    QFont font_;
};

}  // namespace

QImage IconSheet::rendered(double scale, Appearance appearance) const {
    double height = 2 * kMargin;
    for (const auto& group : groups)
        height += groupHeight(group, columns);
    const double width = kContentWidth + 2 * kMargin;
    QImage sheet(static_cast<int>(width * scale), static_cast<int>(height * scale),
                 QImage::Format_ARGB32_Premultiplied);
    sheet.setDevicePixelRatio(scale);
    sheet.fill(qt::qColor(NamedColors::mainBackgroundColor(), appearance));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    const SheetPainter groupPainter(painter, columns, scale, appearance);
    double top = kMargin;
    for (const auto& group : groups) {
        groupPainter.drawGroup(group, top);
        top += groupHeight(group, columns);
    }
    return sheet;
}

}  // namespace corvane::gallery
