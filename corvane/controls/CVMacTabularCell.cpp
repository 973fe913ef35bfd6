#include "corvane/controls/CVMacTabularCell.h"

#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

constexpr double kMargin = 6;  ///< beside that of the field itself

/// A field that tells what did not fit.
class TabularField final : public views::TextField {
  public:
    std::string toolTip() const override {
        std::string set = TextField::toolTip();
        if (!set.empty()) return set;
        const double wanted = views::textMeasurer().sizeOfText(stringValue(), font()).width;
        return wanted > textRect().width ? stringValue() : std::string();
    }
};

/// Of the row that the field is in by now.
void commit(views::Control& field) {
    for (views::View* view = field.superview(); view; view = view->superview()) {
        auto* cell = dynamic_cast<CVMacTabularCell*>(view);
        if (!cell) continue;
        if (const auto table = cell->delegate()) table->cellDidChangeValueForView(*cell, field);
        return;
    }
}

}  // namespace

CVMacTabularCell::CVMacTabularCell(const CVIndexPath& path, ColumnsPtr columns)
    : CVMacTableViewCell(path),
      columns_(columns ? std::move(columns) : std::make_shared<TabularColumns>()) {}

void CVMacTabularCell::prepareForReuse() {
    CVMacTableViewCell::prepareForReuse();
    for (const Entry& entry : entries_)
        if (entry.field) entry.field->setStringValue({});
}

CVMacTabularCell::Entry* CVMacTabularCell::entryOf(const std::string& identifier) {
    if (columns_->indexOf(identifier) == TabularColumns::kNone) return nullptr;
    for (Entry& entry : entries_)
        if (entry.identifier == identifier) return &entry;
    return &entries_.emplace_back(Entry{identifier, nullptr, nullptr, false});
}

const CVMacTabularCell::Entry* CVMacTabularCell::knownEntry(const std::string& identifier) const {
    for (const Entry& entry : entries_)
        if (entry.identifier == identifier) return &entry;
    return nullptr;
}

void CVMacTabularCell::setTextForColumn(const std::string& identifier, const std::string& text) {
    const Entry* known = knownEntry(identifier);
    if (text.empty() && (!known || !known->field)) return;
    if (const FieldPtr field = fieldForColumn(identifier)) field->setStringValue(text);
}

std::string CVMacTabularCell::textForColumn(const std::string& identifier) const {
    const Entry* entry = knownEntry(identifier);
    return entry && entry->field ? entry->field->stringValue() : std::string();
}

CVMacTabularCell::FieldPtr CVMacTabularCell::fieldForColumn(const std::string& identifier) {
    Entry* entry = entryOf(identifier);
    if (!entry || entry->field) return entry ? entry->field : nullptr;
    entry->field = std::make_shared<TabularField>();
    entry->field->setBordered(false);
    entry->field->setEditable(false);
    entry->field->setAlignment(columns_->columns()[columns_->indexOf(identifier)].alignment);
    entry->field->setAction(commit);
    contentView()->addSubview(entry->field);
    setNeedsApplyLayout();
    return entry->field;
}

void CVMacTabularCell::setColumnEditable(const std::string& identifier, bool editable) {
    const Entry* known = knownEntry(identifier);
    if (editable == (known && known->editable)) return;
    const FieldPtr field = fieldForColumn(identifier);
    if (!field) return;
    entryOf(identifier)->editable = editable;
    if (editable) {
        addActivatableField(field);
    } else {
        deactivateField(field);
        removeActivatableField(field);
    }
    connectFields();
}

void CVMacTabularCell::setViewForColumn(const std::string& identifier, const ViewPtr& view) {
    Entry* entry = entryOf(identifier);
    if (!entry || entry->view == view) return;
    // Whoever loses the focus may fill the row anew.
    const FieldPtr field = entry->field;
    const ViewPtr before = std::exchange(entry->view, view);
    if (before) before->removeFromSuperview();
    if (view) contentView()->addSubview(view);
    if (field) field->setHidden(view != nullptr);
    setNeedsApplyLayout();
}

void CVMacTabularCell::connectFields() {
    FieldPtr first;
    FieldPtr last;
    for (const Column& column : columns_->columns()) {
        const Entry* entry = knownEntry(column.identifier);
        if (!entry || !entry->editable || entry->field == last) continue;
        if (last) last->setNextKeyView(entry->field);
        if (!first) first = entry->field;
        last = entry->field;
    }
    if (last) last->setNextKeyView(nullptr);
    setFirstKeyView(first);
    setLastKeyView(last);
}

void CVMacTabularCell::columnsDidChange() {
    const auto keepAlive = shared_from_this();
    std::vector<Entry> gone;
    std::erase_if(entries_, [&](const Entry& entry) {
        const bool goes = columns_->indexOf(entry.identifier) == TabularColumns::kNone;
        if (goes) gone.push_back(entry);
        return goes;
    });
    for (const Entry& entry : entries_) {
        const Column& column = columns_->columns()[columns_->indexOf(entry.identifier)];
        if (entry.field) entry.field->setAlignment(column.alignment);
    }
    connectFields();
    setNeedsApplyLayout();
    // Whoever loses the focus may fill the row anew.
    for (const Entry& entry : gone) {
        if (entry.field) entry.field->removeFromSuperview();
        if (entry.view) entry.view->removeFromSuperview();
    }
}

void CVMacTabularCell::layoutContentView(views::View& contentView) {
    const double cellWidth = frame().width;
    const double width = contentView.frame().width;
    const double height = contentView.frame().height;
    // An accessory takes its room from the first column.
    const double offset = cellWidth - width;
    const auto frames = columns_->framesIn(cellWidth, height);
    for (const Entry& entry : entries_) {
        const std::size_t column = columns_->indexOf(entry.identifier);
        if (column >= frames.size()) continue;
        const double left = std::max(0.0, frames[column].x - offset + kMargin);
        const double right = std::max(left, frames[column].right() - offset - kMargin);
        const ViewPtr& view = entry.view ? entry.view : entry.field;
        if (!view) continue;
        const double wanted = view->preferredSizeThatFits({right - left, height}).height;
        const double used = std::min(height, wanted);
        view->setFrame(views::mirrored({left, (height - used) / 2, right - left, used}, width));
    }
}

std::string CVMacTabularCell::accessibilityName() const {
    std::string name = View::accessibilityName();
    if (!name.empty()) return name;
    for (const Column& column : columns_->columns()) {
        const Entry* entry = knownEntry(column.identifier);
        std::string text = !entry        ? ""
                           : entry->view ? entry->view->accessibilityName()
                                         : textForColumn(column.identifier);
        if (text.empty()) continue;
        if (!name.empty()) name += ", ";
        name += text;
    }
    return name;
}

}  // namespace corvane
