// How a table's row comes by a field of which the table knows nothing. One thread: the window's.
#pragma once

#include "corvane/table/CVMacTableViewCell.h"

#include <memory>

namespace corvane {

/// A field without a border in the cell's content view. It opens when the row is edited, and the
/// table commits the row when its value changes. The row places it.
template <class Field>
std::shared_ptr<Field> createFieldInCell(CVMacTableViewCell& cell) {
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

}  // namespace corvane
