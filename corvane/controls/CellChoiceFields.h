// The text-choice fields of a table's rows, made and measured as rows do it with their other
// controls. They stand here because a table knows nothing of choices. One thread: the window's.
#pragma once

#include "corvane/platform/Size.h"

#include <memory>

namespace corvane {

class CVMacTableViewCell;
class CVMacTextChoiceField;

/// A field without a border in the cell's content view. It opens when the row is edited, and the
/// table commits the row when its value changes. The row places it.
std::shared_ptr<CVMacTextChoiceField> createTextChoiceField(CVMacTableViewCell& cell);

/// For its present text, in one line.
platform::Size preferredSizeForTextChoiceField(CVMacTextChoiceField& field);
/// The same for any width: what does not fit is cut off.
double preferredHeightForWidthOfTextChoiceField(double width, CVMacTextChoiceField& field);
/// No larger than what is available.
platform::Size preferredSizeThatFitsForTextChoiceField(platform::Size available,
                                                       CVMacTextChoiceField& field);

}  // namespace corvane
