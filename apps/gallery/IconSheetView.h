// Shows a sheet of pictures with captions. One thread: the one that draws.
#pragma once

#include "corvane/views/View.h"

#include "apps/gallery/IconSheet.h"

#include <QImage>
#include <utility>

namespace corvane::gallery {

/// As many pictures in a row as the width has room for, at most those of the sheet.
class IconSheetView final : public views::View {
  public:
    explicit IconSheetView(IconSheet sheet) : sheet_(std::move(sheet)) {}

    void setSheet(IconSheet sheet) {
        sheet_ = std::move(sheet);
        setNeedsDisplay();
    }

    /// So that keys can scroll it.
    bool acceptsFirstResponder() const override { return true; }
    bool keyDown(const views::KeyEvent& event) override;
    bool mouseDown(const views::MouseEvent& event) override;
    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    views::Role accessibilityRole() const override { return views::Role::Image; }
    std::string accessibilityName() const override { return sheet_.title; }

  private:
    class Pen;

    std::size_t columnsFor(double width) const;
    double heightOf(const IconSheet::Group& group, std::size_t columns) const;

    IconSheet sheet_;
};

/// The sheet alone, on the main background. An application object must exist, for its fonts.
QImage pictureOfSheet(const IconSheet& sheet, double scale, platform::Appearance appearance);

}  // namespace corvane::gallery
