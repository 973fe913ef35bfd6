#include "corvane/controls/CellDateFields.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/ImageView.h"

namespace corvane {

namespace {

template <class Field>
std::shared_ptr<Field> createField(CVMacTableViewCell& cell) {
    auto field = std::make_shared<Field>();
    field->setBordered(false);
    // The cell holds the field, so it is there whenever the field sends its action.
    field->setAction([&cell](views::Control& sender) {
        if (const auto table = cell.delegate()) table->cellDidChangeValueForView(cell, sender);
    });
    cell.contentView()->addSubview(field);
    cell.addActivatableField(field);
    return field;
}

}  // namespace

std::shared_ptr<CVMacDateField> createDateField(CVMacTableViewCell& cell) {
    return createField<CVMacDateField>(cell);
}

IconDateOnlyField createIconDateOnlyField(CVMacTableViewCell& cell,
                                          const platform::ImagePtr& icon) {
    auto iconView = cell.createIconView();
    CVMacTableViewCell::setImageForIconView(icon, *iconView);
    return {std::move(iconView), createField<CVMacDateOnlyField>(cell)};
}

}  // namespace corvane
