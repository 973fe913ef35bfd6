// How the gallery's pages place what is on them: one view below the other, or side by side. One
// thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/CompoundView.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane::gallery {

/// Mirrored where the language is written from right to left. A view takes the length it prefers,
/// a fixed one, or a share of what the others leave. Tab goes through the views in their order, of
/// a scroll view through what it scrolls.
class Stack : public views::CompoundView {
  public:
    enum class Axis { Down, Across };
    /// Across its axis, a view fills the stack, or it is as large as it prefers: at the leading
    /// side of a stack that goes down, in the middle of one that goes across or at its top.
    enum class Breadth { Whole, Own, OwnAtStart };
    struct Place {
        double length = 0;  ///< 0 for the preferred one
        double share = 0;
        Breadth breadth = Breadth::Whole;
    };

    explicit Stack(Axis axis, double spacing = 8, double margin = 0)
        : axis_(axis), spacing_(spacing), margin_(margin) {}

    void add(const std::shared_ptr<views::View>& view, Place place);
    void add(const std::shared_ptr<views::View>& view) { add(view, {}); }
    void removeAll();
    /// Behind the views; none at first.
    void setGround(const platform::Color& color) { ground_ = color; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;

  private:
    struct Part {
        std::shared_ptr<views::View> view;
        Place place;
    };
    struct Extent {
        double length;   ///< along the axis
        double breadth;  ///< across it
    };

    void connectKeyViews();
    Extent extentOf(views::Size size) const;
    views::Size sizeOf(Extent extent) const;
    /// Of the parts that are not hidden, each with the length that it gets.
    std::vector<double> lengthsWithin(Extent room) const;

    Axis axis_;
    double spacing_;
    double margin_;
    std::vector<Part> parts_;
    std::optional<platform::Color> ground_;
};

std::shared_ptr<Stack> stackDown(double spacing = 8, double margin = 0);
std::shared_ptr<Stack> stackAcross(double spacing = 8, double margin = 0);

}  // namespace corvane::gallery
