// What views draw on: the seam to whoever owns the pixels.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/Point.h"
#include "corvane/platform/Rect.h"
#include "corvane/views/Font.h"

#include <string_view>

namespace corvane::views {

/// Texts begin at the leading side and end at the trailing one: left and right where the user's
/// language is written so, the other way round in one that is written from the right.
enum class TextAlignment : unsigned char { Left, Center, Right, Leading, Trailing };

struct TextStyle {
    Font font;
    platform::Color color;
    TextAlignment alignment = TextAlignment::Leading;
    bool wraps =
        false;  ///< from the top; otherwise one line in the middle, cut off with an ellipsis
};

/// Coordinates are those of the view that draws, y downwards, in points. Colours are taken for the
/// appearance of the screen. Valid during one drawing.
class Canvas {
  public:
    virtual ~Canvas() = default;

    /// Keeps translation and clip until the matching restore.
    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void translate(double dx, double dy) = 0;
    /// Cuts off what lies outside, on top of what is cut off already.
    virtual void clip(const platform::Rect& rect) = 0;

    virtual void fillRect(const platform::Rect& rect, const platform::Color& color) = 0;
    virtual void fillRoundedRect(const platform::Rect& rect, double radius,
                                 const platform::Color& color) = 0;
    /// The line lies inside of the rectangle.
    virtual void strokeRoundedRect(const platform::Rect& rect, double radius,
                                   const platform::Color& color, double width) = 0;
    virtual void drawLine(platform::Point from, platform::Point to, const platform::Color& color,
                          double width) = 0;
    /// Stretched to the rectangle.
    virtual void drawImage(const platform::ImagePtr& image, const platform::Rect& rect) = 0;
    /// Repeated all over the rectangle; one copy begins at the phase.
    virtual void drawTiledImage(const platform::ImagePtr& image, const platform::Rect& rect,
                                platform::Point phase) = 0;
    virtual void drawText(std::string_view text, const platform::Rect& rect,
                          const TextStyle& style) = 0;
};

/// Restores at the end of a block what the canvas was at its beginning.
class CanvasState {
  public:
    explicit CanvasState(Canvas& canvas) : canvas_(canvas) { canvas_.save(); }
    ~CanvasState() { canvas_.restore(); }
    CanvasState(const CanvasState&) = delete;
    CanvasState& operator=(const CanvasState&) = delete;

  private:
    Canvas& canvas_;
};

}  // namespace corvane::views
