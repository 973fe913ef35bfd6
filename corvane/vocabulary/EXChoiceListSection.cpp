#include "corvane/vocabulary/EXChoiceListSection.h"

#include <algorithm>
#include <utility>

namespace corvane {

EXChoiceListSection::EXChoiceListSection(std::optional<std::string> title)
    : title_(std::move(title)) {}

void EXChoiceListSection::addItemWithTitle(std::optional<std::string> title, EXValue value) {
    addItem(EXChoiceListItem::itemWithTitle(std::move(title), std::move(value)));
}

void EXChoiceListSection::addItemWithTitle(std::optional<std::string> title, std::int64_t iconIndex,
                                           EXValue value) {
    addItem(EXChoiceListItem::itemWithTitle(std::move(title), iconIndex, std::move(value)));
}

void EXChoiceListSection::addItem(std::shared_ptr<EXChoiceListItem> item) {
    if (!item) return;
    itemIndexesByValue_[item->value()] = itemCount();
    items_.push_back(std::move(item));
}

std::shared_ptr<EXChoiceListItem> EXChoiceListSection::itemAtIndex(std::int64_t index) const {
    if (index < 0 || index >= itemCount()) return nullptr;
    return items_[static_cast<std::size_t>(index)];
}

std::optional<std::string> EXChoiceListSection::titleForItemAtIndex(std::int64_t index) const {
    auto item = itemAtIndex(index);
    return item ? item->title() : std::nullopt;
}

EXValue EXChoiceListSection::valueForItemAtIndex(std::int64_t index) const {
    auto item = itemAtIndex(index);
    return item ? item->value() : EXValue();
}

std::int64_t EXChoiceListSection::indexForItemWithValue(const EXValue& value) const {
    auto found = itemIndexesByValue_.find(value);
    return found == itemIndexesByValue_.end() ? -1 : found->second;
}

std::int64_t EXChoiceListSection::indexForItemWithTitle(
    std::optional<std::string_view> title) const {
    if (!title) return -1;
    auto found = std::find_if(items_.begin(), items_.end(),
                              [&](auto& item) { return item->title() == *title; });
    return found == items_.end() ? -1 : found - items_.begin();
}

}  // namespace corvane
