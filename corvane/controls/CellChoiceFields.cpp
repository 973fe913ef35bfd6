#include "corvane/controls/CellChoiceFields.h"

#include "corvane/controls/CVMacTextChoiceField.h"
#include "corvane/controls/CellField.h"

#include <algorithm>
#include <cmath>

namespace corvane {

std::shared_ptr<CVMacTextChoiceField> createTextChoiceField(CVMacTableViewCell& cell) {
    return createFieldInCell<CVMacTextChoiceField>(cell);
}

platform::Size preferredSizeForTextChoiceField(CVMacTextChoiceField& field) {
    return preferredSizeThatFitsForTextChoiceField({HUGE_VAL, HUGE_VAL}, field);
}

double preferredHeightForWidthOfTextChoiceField(double, CVMacTextChoiceField& field) {
    return preferredSizeForTextChoiceField(field).height;
}

platform::Size preferredSizeThatFitsForTextChoiceField(platform::Size available,
                                                       CVMacTextChoiceField& field) {
    // The field's own answer has room for every choice.
    const auto size = field.views::TextField::preferredSizeThatFits(available);
    return {size.width, std::min(size.height, available.height)};
}

}  // namespace corvane
