#include "apps/gallery/IconSheetView.h"

#include "corvane/qt/Colors.h"
#include "corvane/qt/QtCanvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/NamedColors.h"

#include <QPainter>
#include <algorithm>

namespace corvane::gallery {

using platform::Appearance;
using views::Rect;

namespace {

constexpr double kMargin = 16;
constexpr double kTitleHeight = 26;
constexpr double kCaptionHeight = 15;
constexpr double kContentWidth = 1110;  ///< in which all columns of a sheet have room
constexpr views::Font kTitleFont{13, true};
constexpr views::Font kCaptionFont{9};

double iconHeight(const IconSheet::Group& group) {
    double height = 12;
    for (const auto& icon : group.icons)
        if (icon.image) height = std::max(height, icon.image->size().height);
    return height;
}

double cellHeight(const IconSheet::Group& group) {
    return iconHeight(group) + kCaptionHeight + 8;
}

}  // namespace

/// Draws groups, one below the other.
class IconSheetView::Pen {
  public:
    Pen(views::Canvas& canvas, double width, std::size_t columns)
        : canvas_(canvas), width_(width), columns_(columns) {}

    void drawGroup(const IconSheet::Group& group, double top, const Rect& dirty) const {
        drawText({kMargin, top, width_ - 2 * kMargin, kTitleHeight - 4}, group.title,
                 {kTitleFont, NamedColors::mainTextColor(), views::leadingAlignment()});
        const double height = cellHeight(group);
        const double width = (width_ - 2 * kMargin) / static_cast<double>(columns_);
        for (std::size_t i = 0; i < group.icons.size(); ++i) {
            const auto column = static_cast<double>(i % columns_);
            const auto row = static_cast<double>(i / columns_);
            const Rect cell{kMargin + column * width, top + kTitleHeight + row * height, width,
                            height};
            if (cell.bottom() >= dirty.y && cell.y <= dirty.bottom())
                drawIcon(group.icons[i], views::mirrored(cell, width_), iconHeight(group));
        }
    }

  private:
    void drawIcon(const IconSheet::Icon& icon, const Rect& cell, double height) const {
        if (icon.image) {
            const auto size = icon.image->size();
            canvas_.drawImage(icon.image,
                              {cell.x + (cell.width - size.width) / 2,
                               cell.y + (height - size.height) / 2, size.width, size.height});
        } else {
            canvas_.drawLine({cell.x, cell.y}, {cell.right(), cell.bottom()},
                             NamedColors::categoryRedColor(), 1);
        }
        canvas_.drawText(
            icon.caption, {cell.x + 2, cell.y + height + 2, cell.width - 4, kCaptionHeight},
            {kCaptionFont, NamedColors::mainDescriptiveColor(), views::TextAlignment::Center});
    }

    void drawText(const Rect& rect, const std::string& text, const views::TextStyle& style) const {
        canvas_.drawText(text, views::mirrored(rect, width_), style);
    }

    views::Canvas& canvas_;
    double width_;
    std::size_t columns_;
};

std::size_t IconSheetView::columnsFor(double width) const {
    const double cell = kContentWidth / static_cast<double>(sheet_.columns);
    const double room = std::max(cell, width - 2 * kMargin);
    return std::clamp<std::size_t>(static_cast<std::size_t>(room / cell), 1, sheet_.columns);
}

double IconSheetView::heightOf(const IconSheet::Group& group, std::size_t columns) const {
    const auto rows = (group.icons.size() + columns - 1) / columns;
    return kTitleHeight + static_cast<double>(rows) * cellHeight(group) + 6;
}

views::Size IconSheetView::preferredSizeThatFits(views::Size available) {
    double height = 2 * kMargin;
    for (const auto& group : sheet_.groups)
        height += heightOf(group, columnsFor(available.width));
    return {available.width, height};
}

void IconSheetView::draw(views::Canvas& canvas, const Rect& dirty) {
    canvas.fillRect(dirty, NamedColors::mainBackgroundColor());
    const std::size_t columns = columnsFor(frame().width);
    const Pen pen(canvas, frame().width, columns);
    double top = kMargin;
    for (const auto& group : sheet_.groups) {
        const double height = heightOf(group, columns);
        if (top + height >= dirty.y && top <= dirty.bottom()) pen.drawGroup(group, top, dirty);
        top += height;
    }
    if (isFirstResponder() && window()->isActive())
        canvas.strokeRoundedRect(visibleRect(), 0, views::theme().accent, 2);
}

bool IconSheetView::keyDown(const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    if (!window() || !command) return false;
    if (*command == views::Command::InsertTab) return window()->selectNextKeyViewOf(*this);
    return *command == views::Command::InsertBacktab && window()->selectPreviousKeyViewOf(*this);
}

bool IconSheetView::mouseDown(const views::MouseEvent&) {
    return window() && window()->makeFirstResponder(shared_from_this());
}

QImage pictureOfSheet(const IconSheet& sheet, double scale, Appearance appearance) {
    IconSheetView view(sheet);
    const auto size = view.preferredSizeThatFits({kContentWidth + 2 * kMargin, 0});
    view.setFrameSize(size);
    QImage picture(static_cast<int>(size.width * scale), static_cast<int>(size.height * scale),
                   QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(qt::qColor(NamedColors::mainBackgroundColor(), appearance));
    QPainter painter(&picture);
    qt::QtCanvas canvas(painter, appearance);
    view.draw(canvas, view.bounds());
    return picture;
}

}  // namespace corvane::gallery
