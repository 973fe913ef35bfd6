// Holds the controls of a row, beside its accessory.
#pragma once

#include "corvane/views/View.h"

namespace corvane {

class CVMacCellContentView : public views::View {
  public:
    using View::View;
};

}  // namespace corvane
