#include "corvane/controls/CellDateFields.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/controls/CellField.h"
#include "corvane/views/ImageView.h"

namespace corvane {

std::shared_ptr<CVMacDateField> createDateField(CVMacTableViewCell& cell) {
    return createFieldInCell<CVMacDateField>(cell);
}

IconDateOnlyField createIconDateOnlyField(CVMacTableViewCell& cell,
                                          const platform::ImagePtr& icon) {
    auto iconView = cell.createIconView();
    CVMacTableViewCell::setImageForIconView(icon, *iconView);
    return {std::move(iconView), createFieldInCell<CVMacDateOnlyField>(cell)};
}

}  // namespace corvane
