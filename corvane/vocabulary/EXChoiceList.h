// What a pop-up, a segmented choice or a picker offers, and what each choice stands for. Held by
// shared pointers; the user-interface thread builds and changes it.
#pragma once

#include "corvane/platform/IndexPath.h"
#include "corvane/vocabulary/EXChoiceListSection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Lists that are to stay as they are, such as those of HGChoiceListFactory, are handed out as
/// const, and any thread may read those.
class EXChoiceList {
  public:
    EXChoiceList() = default;
    EXChoiceList(const EXChoiceList&) = delete;
    EXChoiceList& operator=(const EXChoiceList&) = delete;

    // A list of one section is used through these, which mean its first section. They make an
    // untitled one where there is none yet, the reading ones included.
    std::shared_ptr<EXChoiceListSection> firstSection() const;
    void addItemWithTitle(std::optional<std::string> title, EXValue value);
    void addItemWithTitle(std::optional<std::string> title, std::int64_t iconIndex, EXValue value);
    void addItem(std::shared_ptr<EXChoiceListItem> item);
    std::shared_ptr<EXChoiceListItem> itemAtIndex(std::int64_t index) const;
    std::optional<std::string> titleForItemAtIndex(std::int64_t index) const;
    EXValue valueForItemAtIndex(std::int64_t index) const;
    std::int64_t indexForItemWithValue(const EXValue& value) const;
    std::int64_t indexForItemWithTitle(std::optional<std::string_view> title) const;
    std::int64_t itemCount() const;

    void addSectionWithTitle(std::optional<std::string> title);

    /// Adding null is ignored.
    void addSection(std::shared_ptr<EXChoiceListSection> section);

    /// Null where the index is not that of a section.
    std::shared_ptr<EXChoiceListSection> sectionAtIndex(std::int64_t index) const;
    std::int64_t sectionCount() const { return static_cast<std::int64_t>(sections_.size()); }
    const std::vector<std::shared_ptr<EXChoiceListSection>>& sections() const { return sections_; }

    const std::optional<std::string>& title() const { return title_; }
    void setTitle(std::optional<std::string> title);

    /// Nothing where the path is absent or is not that of an item.
    std::shared_ptr<EXChoiceListItem> itemAtIndexPath(
        const std::optional<platform::IndexPath>& path) const;
    std::optional<std::string> titleForItemAtIndexPath(
        const std::optional<platform::IndexPath>& path) const;
    EXValue valueForItemAtIndexPath(const std::optional<platform::IndexPath>& path) const;

    /// The match in the first section that has one, as that section finds it; none where no
    /// section has.
    std::optional<platform::IndexPath> indexPathForItemWithValue(const EXValue& value) const;
    std::optional<platform::IndexPath> indexPathForItemWithTitle(
        std::optional<std::string_view> title) const;

  private:
    std::optional<std::string> title_;
    // Mutable because also a question may bring the first section into being.
    mutable std::vector<std::shared_ptr<EXChoiceListSection>> sections_;
};

}  // namespace corvane
