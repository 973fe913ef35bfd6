// A canvas of views on a Qt painter. One thread: the one that draws.
#pragma once

#include "corvane/views/Canvas.h"

#include <QColor>

class QPainter;

namespace corvane::qt {

/// Draws with the painter's transformation and clip at the beginning, and leaves both as they were
/// if its calls are balanced. The painter is active for as long as the canvas is used.
class QtCanvas final : public views::Canvas {
  public:
    QtCanvas(QPainter& painter, platform::Appearance appearance);

    void save() override;
    void restore() override;
    void translate(double dx, double dy) override;
    void clip(const platform::Rect& rect) override;
    void fillRect(const platform::Rect& rect, const platform::Color& color) override;
    void fillRoundedRect(const platform::Rect& rect, double radius,
                         const platform::Color& color) override;
    void strokeRoundedRect(const platform::Rect& rect, double radius, const platform::Color& color,
                           double width) override;
    void drawLine(platform::Point from, platform::Point to, const platform::Color& color,
                  double width) override;
    void drawImage(const platform::ImagePtr& image, const platform::Rect& rect) override;
    void drawTiledImage(const platform::ImagePtr& image, const platform::Rect& rect,
                        platform::Point phase) override;
    void drawText(std::string_view text, const platform::Rect& rect,
                  const views::TextStyle& style) override;

  private:
    void drawLineOfText(std::string_view text, const platform::Rect& rect,
                        const views::TextStyle& style);
    void drawParagraphs(std::string_view text, const platform::Rect& rect,
                        const views::TextStyle& style);
    double pixels(double points) const;
    double imageScale() const;

    QPainter& painter_;
    platform::Appearance appearance_;
    bool hasPixels_;
    double scale_;
};

}  // namespace corvane::qt
