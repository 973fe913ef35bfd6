// The date fields of a table's rows, made as rows make their other controls. They stand here
// because a table knows nothing of dates. One thread: the window's.
#pragma once

#include "corvane/platform/Image.h"

#include <memory>

namespace corvane {

class CVMacDateField;
class CVMacDateOnlyField;
class CVMacTableViewCell;

namespace views {
class ImageView;
}

/// A field without a border in the cell's content view. It opens when the row is edited, and the
/// table commits the row when its value changes. The row places it.
std::shared_ptr<CVMacDateField> createDateField(CVMacTableViewCell& cell);

struct IconDateOnlyField {
    std::shared_ptr<views::ImageView> icon;
    std::shared_ptr<CVMacDateOnlyField> field;
};

/// The same for a day, with an icon to stand in front of it, such as that of a due day.
IconDateOnlyField createIconDateOnlyField(CVMacTableViewCell& cell, const platform::ImagePtr& icon);

}  // namespace corvane
