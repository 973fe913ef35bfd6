#include "corvane/table/CVMacSectionHeaderView.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Theme.h"

namespace corvane {

namespace {

constexpr double kIndentation = 10;

platform::Color color(const CVMacSectionHeaderView::Color& light,
                      const CVMacSectionHeaderView::Color& dark, const platform::Color& fallback) {
    const platform::Color base = light.value_or(fallback);
    if (!dark) return base;
    return {base.in(platform::Appearance::Light), dark->in(platform::Appearance::Dark)};
}

}  // namespace

void CVMacSectionHeaderView::setTitle(std::string title) {
    title_ = std::move(title);
    setNeedsDisplay();
}

void CVMacSectionHeaderView::set(Color Colors::*which, const Color& color) {
    colors_.*which = color;
    setNeedsDisplay();
}

void CVMacSectionHeaderView::draw(views::Canvas& canvas, const views::Rect&) {
    const views::Theme& theme = views::theme();
    const views::Rect bounds = this->bounds();
    canvas.fillRect(
        bounds, color(colors_.background, colors_.alternativeBackground, theme.controlBackground));
    const double line = bounds.bottom() - 0.5;
    canvas.drawLine({0, line}, {bounds.width, line},
                    color(colors_.border, colors_.alternativeBorder, theme.separator), 1);
    views::TextStyle style;
    style.font = {12, true, false};
    style.color = colors_.text.value_or(theme.secondaryText);
    canvas.drawText(title_, bounds.insetBy(kIndentation, 0), style);
}

}  // namespace corvane
