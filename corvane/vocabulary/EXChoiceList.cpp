#include "corvane/vocabulary/EXChoiceList.h"

#include <utility>

namespace corvane {

namespace {

using Sections = std::vector<std::shared_ptr<EXChoiceListSection>>;

template <class IndexInSection>
std::optional<platform::IndexPath> firstMatch(const Sections& sections, IndexInSection indexIn) {
    for (std::size_t i = 0; i < sections.size(); ++i) {
        std::int64_t item = indexIn(*sections[i]);
        if (item >= 0) return platform::IndexPath{static_cast<std::int64_t>(i), item};
    }
    return std::nullopt;
}

}  // namespace

std::shared_ptr<EXChoiceListSection> EXChoiceList::firstSection() const {
    if (sections_.empty()) sections_.push_back(std::make_shared<EXChoiceListSection>());
    return sections_.front();
}

void EXChoiceList::addItemWithTitle(std::optional<std::string> title, EXValue value) {
    firstSection()->addItemWithTitle(std::move(title), std::move(value));
}

void EXChoiceList::addItemWithTitle(std::optional<std::string> title, std::int64_t iconIndex,
                                    EXValue value) {
    firstSection()->addItemWithTitle(std::move(title), iconIndex, std::move(value));
}

void EXChoiceList::addItem(std::shared_ptr<EXChoiceListItem> item) {
    firstSection()->addItem(std::move(item));
}

std::shared_ptr<EXChoiceListItem> EXChoiceList::itemAtIndex(std::int64_t index) const {
    return firstSection()->itemAtIndex(index);
}

std::optional<std::string> EXChoiceList::titleForItemAtIndex(std::int64_t index) const {
    return firstSection()->titleForItemAtIndex(index);
}

EXValue EXChoiceList::valueForItemAtIndex(std::int64_t index) const {
    return firstSection()->valueForItemAtIndex(index);
}

std::int64_t EXChoiceList::indexForItemWithValue(const EXValue& value) const {
    return firstSection()->indexForItemWithValue(value);
}

std::int64_t EXChoiceList::indexForItemWithTitle(std::optional<std::string_view> title) const {
    return firstSection()->indexForItemWithTitle(title);
}

std::int64_t EXChoiceList::itemCount() const {
    return firstSection()->itemCount();
}

void EXChoiceList::addSectionWithTitle(std::optional<std::string> title) {
    addSection(std::make_shared<EXChoiceListSection>(std::move(title)));
}

void EXChoiceList::addSection(std::shared_ptr<EXChoiceListSection> section) {
    if (section) sections_.push_back(std::move(section));
}

std::shared_ptr<EXChoiceListSection> EXChoiceList::sectionAtIndex(std::int64_t index) const {
    if (index < 0 || index >= sectionCount()) return nullptr;
    return sections_[static_cast<std::size_t>(index)];
}

void EXChoiceList::setTitle(std::optional<std::string> title) {
    title_ = std::move(title);
}

std::shared_ptr<EXChoiceListItem> EXChoiceList::itemAtIndexPath(
    const std::optional<platform::IndexPath>& path) const {
    auto section = path ? sectionAtIndex(path->section) : nullptr;
    return section ? section->itemAtIndex(path->item) : nullptr;
}

std::optional<std::string> EXChoiceList::titleForItemAtIndexPath(
    const std::optional<platform::IndexPath>& path) const {
    auto item = itemAtIndexPath(path);
    return item ? item->title() : std::nullopt;
}

EXValue EXChoiceList::valueForItemAtIndexPath(
    const std::optional<platform::IndexPath>& path) const {
    auto item = itemAtIndexPath(path);
    return item ? item->value() : EXValue();
}

std::optional<platform::IndexPath> EXChoiceList::indexPathForItemWithValue(
    const EXValue& value) const {
    return firstMatch(sections_,
                      [&](auto& section) { return section.indexForItemWithValue(value); });
}

std::optional<platform::IndexPath> EXChoiceList::indexPathForItemWithTitle(
    std::optional<std::string_view> title) const {
    return firstMatch(sections_,
                      [&](auto& section) { return section.indexForItemWithTitle(title); });
}

}  // namespace corvane
