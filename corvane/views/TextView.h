// A field for text of several lines, which asks for more room as it grows.
#pragma once

#include "corvane/views/TextField.h"

namespace corvane::views {

class TextView : public TextField {
  public:
    using TextField::TextField;

    bool isMultiline() const override { return true; }
    /// For the text broken at the width.
    double preferredHeightForWidth(double width) const;
    Size preferredSizeThatFits(Size available) override;
};

}  // namespace corvane::views
