// Measures text as QtCanvas draws it. One thread: the one that lays out; an application must exist.
#pragma once

#include "corvane/views/TextMeasurer.h"

namespace corvane::qt {

class QtTextMeasurer final : public views::TextMeasurer {
  public:
    platform::Size sizeOfText(std::string_view text, const views::Font& font,
                              double width) override;
    double lineHeight(const views::Font& font) override;
};

}  // namespace corvane::qt
