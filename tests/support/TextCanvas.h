// A canvas that keeps the texts drawn on it, each with its place and what lies behind it.
#pragma once

#include "corvane/controls/Contrast.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"

#include "tests/support/Blending.h"

#include <algorithm>
#include <string>
#include <vector>

namespace corvane::tests {

using platform::Appearance;
using platform::Color;
using platform::RGBA;

struct DrawnText {
    std::string text;
    platform::Rect rect;  ///< in the window
    views::TextAlignment alignment = views::TextAlignment::Left;
    Color color;
    Color ground;

    double contrastIn(Appearance appearance) const {
        const RGBA behind = ground.in(appearance);
        return contrastBetween(over(color.in(appearance), behind), behind);
    }
};

class TextCanvas final : public views::Canvas {
  public:
    const std::vector<DrawnText>& texts() const { return texts_; }

    void save() override { saved_.push_back(origin_); }
    void restore() override {
        origin_ = saved_.back();
        saved_.pop_back();
    }
    void translate(double dx, double dy) override { origin_ = origin_ + platform::Point{dx, dy}; }
    void clip(const platform::Rect&) override {}
    void fillRect(const platform::Rect& rect, const Color& color) override {
        fills_.push_back({rect.movedBy(origin_.x, origin_.y), color});
    }
    void fillRoundedRect(const platform::Rect& rect, double, const Color& color) override {
        fillRect(rect, color);
    }
    void strokeRoundedRect(const platform::Rect&, double, const Color&, double) override {}
    void drawLine(platform::Point, platform::Point, const Color&, double) override {}
    void drawImage(const platform::ImagePtr&, const platform::Rect&) override {}
    void drawTiledImage(const platform::ImagePtr&, const platform::Rect&,
                        platform::Point) override {}
    void drawText(std::string_view text, const platform::Rect& rect,
                  const views::TextStyle& style) override {
        if (text.empty() || rect.isEmpty()) return;
        const auto placed = rect.movedBy(origin_.x, origin_.y);
        const auto alignment = views::resolved(style.alignment);
        texts_.push_back({std::string(text), placed, alignment, style.color,
                          groundAt(middleOf(text, placed, style, alignment))});
    }

  private:
    struct Fill {
        platform::Rect rect;
        Color color;
    };

    static platform::Point middleOf(std::string_view text, const platform::Rect& rect,
                                    const views::TextStyle& style, views::TextAlignment alignment) {
        const double width =
            std::min(rect.width, views::textMeasurer().sizeOfText(text, style.font).width);
        double x = rect.x + rect.width / 2;
        if (alignment == views::TextAlignment::Left) x = rect.x + width / 2;
        if (alignment == views::TextAlignment::Right) x = rect.right() - width / 2;
        const double line = views::textMeasurer().lineHeight(style.font);
        return {x, rect.y + (style.wraps ? std::min(line, rect.height) : rect.height) / 2};
    }

    Color groundAt(platform::Point point) const {
        Color ground = views::theme().background;
        for (const auto& [rect, color] : fills_)
            if (rect.contains(point))
                ground = {over(color.in(Appearance::Light), ground.in(Appearance::Light)),
                          over(color.in(Appearance::Dark), ground.in(Appearance::Dark))};
        return ground;
    }

    platform::Point origin_;
    std::vector<platform::Point> saved_;
    std::vector<Fill> fills_;
    std::vector<DrawnText> texts_;
};

}  // namespace corvane::tests
