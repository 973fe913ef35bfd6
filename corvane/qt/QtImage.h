// A picture as a recipe: its pixels are made for a scale and an appearance when it is drawn. One
// thread: the one that draws. No display is needed, nor an application object.
#pragma once

#include "corvane/platform/Image.h"

#include <QImage>
#include <functional>
#include <vector>

class QPainter;

namespace corvane::qt {

class QtImage : public platform::Image {
  public:
    explicit QtImage(platform::Size size) : size_(size) {}
    platform::Size size() const final { return size_; }

    /// With `scale` pixels a point, which is the picture's device pixel ratio. The last few are
    /// kept. Null where the scale is not positive, or the picture would be absurdly large.
    QImage rendered(double scale, platform::Appearance appearance) const;

  protected:
    /// Draws in points from the upper left corner, on transparent ground.
    virtual void paint(QPainter& painter, double scale, platform::Appearance appearance) const = 0;

  private:
    struct Rendering {
        double scale;
        platform::Appearance appearance;
        QImage image;
    };

    platform::Size size_;
    mutable std::vector<Rendering> renderings_;
};

/// The same for the image of any service; null for one that this layer did not make.
QImage renderedImage(const platform::ImagePtr& image, double scale,
                     platform::Appearance appearance);

using Painting = std::function<void(QPainter&, platform::Appearance)>;

/// A picture that a function draws, in points.
platform::ImagePtr drawnImage(platform::Size size, Painting painting);

}  // namespace corvane::qt
