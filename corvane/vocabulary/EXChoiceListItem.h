// One entry of a choice list. Records of identity, held by shared pointers; the user-interface
// thread builds and changes them.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

class EXChoiceListItem {
  public:
    static constexpr std::int64_t kNoIcon = -1;

    /// An item without icon; by default also without title and value.
    explicit EXChoiceListItem(std::optional<std::string> title = {}, EXValue value = {});
    EXChoiceListItem(std::optional<std::string> title, std::int64_t iconIndex, EXValue value);
    EXChoiceListItem(const EXChoiceListItem&) = delete;
    EXChoiceListItem& operator=(const EXChoiceListItem&) = delete;

    static std::shared_ptr<EXChoiceListItem> itemWithTitle(std::optional<std::string> title,
                                                           EXValue value);
    static std::shared_ptr<EXChoiceListItem> itemWithTitle(std::optional<std::string> title,
                                                           std::int64_t iconIndex, EXValue value);

    const std::optional<std::string>& title() const { return title_; }
    std::int64_t iconIndex() const { return iconIndex_; }

    /// The null value where there is none.
    const EXValue& value() const { return value_; }

    /// A second line beside the title.
    const std::optional<std::string>& detailText() const { return detailText_; }
    void setDetailText(std::optional<std::string> text);

  private:
    std::optional<std::string> title_;
    std::int64_t iconIndex_ = kNoIcon;
    EXValue value_;
    std::optional<std::string> detailText_;
};

}  // namespace corvane
