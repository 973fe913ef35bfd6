#include "corvane/controls/ChoiceControl.h"

#include "corvane/controls/MapImage.h"

#include <algorithm>
#include <utility>

namespace corvane {

void ChoiceControl::setChoiceList(std::shared_ptr<const EXChoiceList> choiceList) {
    const EXValue value = this->value();
    const bool wasChosen = selection_.has_value();
    choiceList_ = std::move(choiceList);
    choices_.clear();
    for (ChoiceItem& item : choiceItemsOf(choiceList_.get()))
        choices_.push_back({std::move(item)});
    selection_.reset();
    choicesDidChange();
    if (wasChosen) setValue(value);
    if (wasChosen && !selection_) accessibilityDidChange(views::AccessibilityChange::Value);
}

void ChoiceControl::setIconMap(std::shared_ptr<const EXImageMap> iconMap) {
    if (iconMap == iconMap_) return;
    iconMap_ = std::move(iconMap);
    for (const Choice& choice : choices_)
        choice.icon.reset();
    choicesDidChange();
    selectionDidChange();
}

// What is chosen.

EXValue ChoiceControl::value() const {
    const Choice* choice = selectedChoice();
    return choice ? choice->item->value() : EXValue();
}

void ChoiceControl::setValue(const EXValue& value) {
    select(choiceList_ ? choiceList_->indexPathForItemWithValue(value) : std::nullopt);
}

void ChoiceControl::setSelectedIndexPath(const ChoicePath& path) {
    select(path);
}

void ChoiceControl::select(const ChoicePath& path) {
    const auto isThere = [&](const Choice& choice) { return choice.path == path; };
    const ChoicePath wanted = path && std::ranges::any_of(choices_, isThere) ? path : ChoicePath();
    if (wanted == selection_) return;
    selection_ = wanted;
    setNeedsDisplay();
    selectionDidChange();
    accessibilityDidChange(views::AccessibilityChange::Value);
}

std::int64_t ChoiceControl::selectedPosition() const {
    const auto found =
        std::ranges::find(choices_, selection_, [](const Choice& choice) { return choice.path; });
    return found == choices_.end() ? -1 : found - choices_.begin();
}

const ChoiceControl::Choice* ChoiceControl::selectedChoice() const {
    const auto position = selectedPosition();
    return position < 0 ? nullptr : &choices_[static_cast<std::size_t>(position)];
}

std::string ChoiceControl::selectedTitle() const {
    const Choice* choice = selectedChoice();
    return choice ? choice->title() : std::string();
}

platform::ImagePtr ChoiceControl::iconOf(const Choice& choice) const {
    if (!choice.icon) choice.icon = mapImage(iconMap_.get(), choice.item->iconIndex());
    return *choice.icon;
}

// By the user.

void ChoiceControl::choose(const platform::IndexPath& path) {
    if (!isEnabled() || selection_ == path) return;
    const auto keepAlive = weak_from_this().lock();
    select(path);
    if (selection_ == path) sendAction();
}

void ChoiceControl::choosePosition(std::int64_t position) {
    if (position < 0 || position >= static_cast<std::int64_t>(choices_.size())) return;
    const auto path = choices_[static_cast<std::size_t>(position)].path;
    choose(path);
}

}  // namespace corvane
