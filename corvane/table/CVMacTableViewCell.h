// A row of a table: holds the row's controls, and turns what is done to it into requests to the
// table.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/models/CVIndexPath.h"
#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/URL.h"
#include "corvane/table/CVMacCellContentView.h"
#include "corvane/table/CVMacLayoutableView.h"
#include "corvane/table/CVMacTableViewCellDelegate.h"
#include "corvane/views/TextField.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

namespace views {
class ImageView;
class TextView;
}  // namespace views

/// Application rows derive from it and override what measures and lays out. Held by
/// std::shared_ptr; kept light, since a table has one for each of its rows. Text fields within it
/// have it as their delegate where they have no other.
class CVMacTableViewCell : public CVMacLayoutableView, public views::TextFieldDelegate {
  public:
    using ViewPtr = std::shared_ptr<views::View>;
    using FieldPtr = std::shared_ptr<views::TextField>;

    explicit CVMacTableViewCell(const CVIndexPath& path) : indexPath_(path.toNSIndexPath()) {}
    ~CVMacTableViewCell() override;

    /// Before it stands for another row: not selected, not filtered, no placeholder, nothing
    /// clicked.
    virtual void prepareForReuse();

    CVIndexPath indexPath() const { return indexPath_; }
    void setIndexPath(const CVIndexPath& path) { indexPath_ = path.toNSIndexPath(); }
    std::shared_ptr<CVMacTableViewCellDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::weak_ptr<CVMacTableViewCellDelegate>& table) { delegate_ = table; }

    bool selected() const { return selected_; }
    virtual void setSelected(bool selected);
    bool filtered() const { return filtered_; }
    void setFiltered(bool filtered) { filtered_ = filtered; }
    bool placeholderCell() const { return placeholderCell_; }
    void setPlaceholderCell(bool placeholder) { placeholderCell_ = placeholder; }
    bool activeDragSource() const { return activeDragSource_; }
    bool didEndDraggingOperation() const { return didEndDraggingOperation_; }

    views::Point mouseDownLocation() const { return mouseDownLocation_; }
    views::Point clickLocation() const { return clickLocation_; }
    std::uint64_t clickModifierFlags() const { return clickModifierFlags_; }

    /// None where the table shows through.
    std::optional<platform::Color> backgroundColor() const;
    void setBackgroundColor(const std::optional<platform::Color>& color);
    platform::Color selectedBackgroundColor() const;
    void setSelectedBackgroundColor(const platform::Color& color);

    // Parts; null for none, but for the content view, which is made when it is asked for.

    const ViewPtr& backgroundView() const { return backgroundView_; }
    void setBackgroundView(const ViewPtr& view);
    const ViewPtr& accessoryView() const { return accessoryView_; }
    void setAccessoryView(const ViewPtr& view);
    const std::shared_ptr<CVMacCellContentView>& contentView();
    ViewPtr firstKeyView() const { return firstKeyView_.lock(); }
    void setFirstKeyView(const ViewPtr& view) { firstKeyView_ = view; }
    ViewPtr lastKeyView() const { return lastKeyView_.lock(); }
    void setLastKeyView(const ViewPtr& view) { lastKeyView_ = view; }

    // Fields that can be edited only while they are active, so that a click selects the row.

    void addActivatableField(const FieldPtr& field);
    void removeActivatableField(const FieldPtr& field);
    /// Selects the row alone and opens the field. Nothing for a field that is open, or not added.
    void activateField(const FieldPtr& field);
    void deactivateField(const FieldPtr& field);

    // Measuring. Places are those in a language written from the left; applyLayout mirrors them
    // where it is not (corvane/views/Mirroring.h). Whoever lays out the content does so himself.

    /// The row's own height; -1 for the table's.
    virtual double rowHeightForContentWidth(double /*width*/) { return -1; }
    virtual views::Rect rectForAccessoryViewWithCellWidth(double /*width*/) { return {}; }
    /// Also tells how far the content is from the leading side, behind the accessory.
    virtual double contentWidthForCellWidth(double cellWidth, double& contentOffset);
    virtual double contentHeightForWidth(double width, double rowHeight, bool printing);
    virtual views::Rect rectForContentView();
    views::Size sizeForCellWidth(double cellWidth, double rowHeight, bool printing);
    /// Places what the content view holds.
    virtual void layoutContentView(views::View& /*contentView*/) {}
    void applyLayout() override;

    // The usual controls, added to the content view.

    std::shared_ptr<views::TextView> createLabelView();
    std::shared_ptr<views::ImageView> createIconView();
    static void setTextForLabelView(const std::optional<std::string>& text,
                                    views::TextView& labelView);
    static void setImageForIconView(const platform::ImagePtr& image, views::ImageView& iconView);
    static views::Size preferredSizeForLabelView(views::TextView& labelView);
    static double preferredHeightForWidthOfLabelView(double width,
                                                     const views::TextView& labelView);
    static views::Size preferredSizeThatFitsForLabelView(views::Size available,
                                                         views::TextView& labelView);
    static views::Size preferredSizeForIconView(views::ImageView& iconView);

    // For whoever commits values: whether an edit changed none. None equals none.

    static bool stringValueIsEqualTo(const std::optional<std::string>& value,
                                     const std::optional<std::string>& other) {
        return value == other;
    }
    static bool dateValueIsEqualTo(const std::optional<platform::Instant>& value,
                                   const std::optional<platform::Instant>& other) {
        return value == other;
    }
    static bool dateOnlyValueIsEqualTo(const std::optional<EXDateOnly>& value,
                                       const std::optional<EXDateOnly>& other) {
        return value == other;
    }
    static bool urlValueIsEqualTo(const std::optional<platform::URL>& value,
                                  const std::optional<platform::URL>& other) {
        return value == other;
    }

    // Focus.

    void handFirstResponderToFirstKeyView();
    void handFirstResponderToLastKeyView();
    void handFirstResponderToNextKeyViewForView(const views::View& view);
    void handFirstResponderToPreviousKeyViewForView(const views::View& view);

    /// Selects the row as the click's modifiers say.
    void delegateSelectionEventWithModifierFlags(std::uint64_t flags);
    /// A single click that no second one followed.
    virtual void mouseClickedAtLocation(views::Point location, std::uint64_t modifierFlags);
    virtual void mouseDoubleClickedAtLocation(views::Point location, std::uint64_t modifierFlags);
    /// Whether the row knows a shortcut.
    virtual bool interpretCommandKey(const views::KeyEvent&) { return false; }

    // As a view.

    bool mouseDown(const views::MouseEvent& event) override;
    bool mouseDragged(const views::MouseEvent& event) override;
    bool mouseUp(const views::MouseEvent& event) override;
    std::shared_ptr<views::Menu> menuForEvent(const views::MouseEvent& event) override;
    bool keyDown(const views::KeyEvent& event) override;
    bool doCommand(views::Command command) override;
    bool insertText(std::string_view text) override;
    bool acceptsFirstResponder() const override { return true; }
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void drawAboveSubviews(views::Canvas& canvas, const views::Rect& dirty) override;
    void draggingSessionEnded(views::DragOperation operation) override;
    views::Role accessibilityRole() const override { return views::Role::Row; }
    /// Unless one was set, what the texts of the row say.
    std::string accessibilityName() const override;
    bool accessibilitySelected() const override { return selected_; }

    // As the delegate of its fields.

    void controlTextDidChange(views::TextField& control) override;
    void controlTextDidEndEditing(views::TextField& control) override;
    bool controlDoCommandBySelector(views::TextField& control, views::FieldEditor& textView,
                                    views::Command command) override;

  protected:
    bool laysOutOnlyWhenSeen() const override { return true; }

  private:
    friend class RowCache;
    friend class RowSelection;
    struct Colors {
        std::optional<platform::Color> background;
        std::optional<platform::Color> selectedBackground;
    };
    static constexpr std::uint32_t kNotListed = 0xFFFFFFFF;

    bool accessoryContains(views::Point point) const;
    bool isActivatable(const views::View& view) const;
    void takeFocus();
    void focus(const ViewPtr& view);
    void walkKeyViews(ViewPtr start, bool forward);
    void scheduleClick();
    void withdrawClick();
    bool allowsStartDrag() const;
    void startDrag();
    bool insertRowAfterEditing();

    platform::IndexPath indexPath_;
    std::weak_ptr<CVMacTableViewCellDelegate> delegate_;
    ViewPtr backgroundView_;
    ViewPtr accessoryView_;
    std::shared_ptr<CVMacCellContentView> contentView_;
    std::weak_ptr<views::View> firstKeyView_;
    std::weak_ptr<views::View> lastKeyView_;
    std::vector<std::weak_ptr<views::TextField>> activatableFields_;
    std::unique_ptr<Colors> colors_;
    views::Point mouseDownLocation_;
    views::Point clickLocation_;
    std::uint64_t clickModifierFlags_ = 0;
    std::uint32_t listPosition_ = kNotListed;  ///< among the selected rows; RowSelection's
    bool selected_ = false;
    bool filtered_ = false;
    bool placeholderCell_ = false;
    bool activeDragSource_ = false;
    bool didEndDraggingOperation_ = false;
    bool clickPending_ = false;
    bool printing_ = false;  ///< since it was last measured
};

}  // namespace corvane
