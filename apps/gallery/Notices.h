// What happened on a page, the latest at the bottom. One thread, the window's.
#pragma once

#include "corvane/views/View.h"

#include <deque>
#include <string>

namespace corvane::gallery {

/// Keeps as many lines as anybody could see.
class Notices final : public views::View {
  public:
    Notices();

    void add(const std::string& line);

    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    views::Role accessibilityRole() const override { return views::Role::Text; }
    std::string accessibilityValue() const override;

  private:
    std::deque<std::string> lines_;
};

}  // namespace corvane::gallery
