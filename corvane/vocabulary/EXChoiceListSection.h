// A run of entries of a choice list, with a title or without one. Held by shared pointers; the
// user-interface thread builds and changes it.
#pragma once

#include "corvane/vocabulary/EXChoiceListItem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

class EXChoiceListSection {
  public:
    explicit EXChoiceListSection(std::optional<std::string> title = {});
    EXChoiceListSection(const EXChoiceListSection&) = delete;
    EXChoiceListSection& operator=(const EXChoiceListSection&) = delete;

    void addItemWithTitle(std::optional<std::string> title, EXValue value);
    void addItemWithTitle(std::optional<std::string> title, std::int64_t iconIndex, EXValue value);

    /// Adding null is ignored.
    void addItem(std::shared_ptr<EXChoiceListItem> item);

    /// Nothing where the index is not that of an item.
    std::shared_ptr<EXChoiceListItem> itemAtIndex(std::int64_t index) const;
    std::optional<std::string> titleForItemAtIndex(std::int64_t index) const;
    EXValue valueForItemAtIndex(std::int64_t index) const;

    /// The position of the item added last with this value, or -1. The null value finds the item
    /// that was added without one.
    std::int64_t indexForItemWithValue(const EXValue& value) const;

    /// The position of the first item with exactly this title, or -1. Absent text finds nothing.
    std::int64_t indexForItemWithTitle(std::optional<std::string_view> title) const;

    std::int64_t itemCount() const { return static_cast<std::int64_t>(items_.size()); }
    const std::optional<std::string>& title() const { return title_; }
    const std::vector<std::shared_ptr<EXChoiceListItem>>& items() const { return items_; }

  private:
    std::optional<std::string> title_;
    std::vector<std::shared_ptr<EXChoiceListItem>> items_;
    std::unordered_map<EXValue, std::int64_t> itemIndexesByValue_;
};

}  // namespace corvane
