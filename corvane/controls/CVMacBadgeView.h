// A number in a coloured pill: how many there are of something. One thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/View.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// Hidden while there is nothing to count.
class CVMacBadgeView final : public views::View {
  public:
    explicit CVMacBadgeView(const views::Rect& frame = {});

    std::int64_t count() const { return count_; }
    /// 0 and less hide it.
    void setCount(std::int64_t count);
    /// "999+" for more than 999, in the locale's digits; empty while it is hidden.
    std::string text() const;

    /// The palette's tint, unless another was set. The text is black or white, whichever reads
    /// better on it.
    platform::Color color() const;
    void setColor(const std::optional<platform::Color>& color);

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    views::Role accessibilityRole() const override { return views::Role::Text; }
    /// Unless one was set, the number, which otherwise is the value.
    std::string accessibilityName() const override;
    std::string accessibilityValue() const override;

  private:
    bool hasName() const { return !views::View::accessibilityName().empty(); }
    std::string exactText() const;  ///< empty while it is hidden

    std::int64_t count_ = 0;
    std::optional<platform::Color> color_;
};

}  // namespace corvane
