#include "corvane/vocabulary/EXChoiceListItem.h"

#include <utility>

namespace corvane {

EXChoiceListItem::EXChoiceListItem(std::optional<std::string> title, EXValue value)
    : EXChoiceListItem(std::move(title), kNoIcon, std::move(value)) {}

EXChoiceListItem::EXChoiceListItem(std::optional<std::string> title, std::int64_t iconIndex,
                                   EXValue value)
    : title_(std::move(title)), iconIndex_(iconIndex), value_(std::move(value)) {}

std::shared_ptr<EXChoiceListItem> EXChoiceListItem::itemWithTitle(std::optional<std::string> title,
                                                                  EXValue value) {
    return std::make_shared<EXChoiceListItem>(std::move(title), std::move(value));
}

std::shared_ptr<EXChoiceListItem> EXChoiceListItem::itemWithTitle(std::optional<std::string> title,
                                                                  std::int64_t iconIndex,
                                                                  EXValue value) {
    return std::make_shared<EXChoiceListItem>(std::move(title), iconIndex, std::move(value));
}

void EXChoiceListItem::setDetailText(std::optional<std::string> text) {
    detailText_ = std::move(text);
}

}  // namespace corvane
