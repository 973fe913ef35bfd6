// The items of a choice list one below the other, for a text field to show beside it. One thread,
// the window's.
#pragma once

#include "corvane/controls/ChooserView.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/IndexPath.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace views {
class ScrollView;
}

/// Scrolls where there are many. Up and Down, Page Up and Page Down, Home and End move the
/// highlight; Return chooses.
class TextChoicesView final : public ChooserView {
  public:
    struct Item {
        platform::IndexPath path;
        std::string title;
        platform::ImagePtr icon;
        std::string detail = {};
    };

    explicit TextChoicesView(std::vector<Item> items);
    ~TextChoicesView() override;

    std::function<void(const platform::IndexPath&)> didChoose;

    /// Brings the item into view. Nothing is highlighted afterwards.
    void setSelection(const std::optional<platform::IndexPath>& path);

    bool moveByKey(const views::KeyEvent& event) override;
    bool hasHighlight() const override { return highlight_.has_value(); }
    bool chooseHighlighted() override;
    views::Size preferredSizeThatFits(views::Size available) override;
    void layoutIfNeeded() override;
    views::Role accessibilityRole() const override { return views::Role::List; }
    /// The title of what is highlighted.
    std::string accessibilityValue() const override;

  protected:
    void chooseCell(std::size_t index) override;
    std::string cellName(std::size_t index) const override;

  private:
    class Row;

    std::optional<std::size_t> movedByKey(const views::KeyEvent& event) const;
    void scrollTo(std::size_t index);

    std::vector<Item> items_;
    std::vector<std::shared_ptr<Row>> rows_;
    std::shared_ptr<views::View> document_;
    std::shared_ptr<views::ScrollView> scrollView_;
    std::optional<std::size_t> selection_;
    std::optional<std::size_t> highlight_;
};

}  // namespace corvane
