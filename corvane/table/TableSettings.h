// What can be set on a table: its measures, colours and switches.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/Theme.h"
#include "corvane/views/View.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

/// The part of CVMacTableView that only keeps values. Measures are in points.
class TableSettings {
  public:
    using OptionalColor = std::optional<platform::Color>;

    virtual ~TableSettings() = default;

    /// In the table's log lines; "(null)" for none.
    const std::optional<std::string>& debugName() const { return debugName_; }
    void setDebugName(std::optional<std::string> name) { debugName_ = std::move(name); }

    /// In the middle of a table without rows.
    const std::string& emptyText() const { return emptyText_; }
    void setEmptyText(std::string text) { set(emptyText_, text, Change::Looks); }

    double top() const { return top_; }
    void setTop(double value) { set(top_, value, Change::Positions); }
    double bottom() const { return bottom_; }
    void setBottom(double value) { set(bottom_, value, Change::Positions); }
    double left() const { return left_; }
    void setLeft(double value) { set(left_, value, Change::Heights); }
    double right() const { return right_; }
    void setRight(double value) { set(right_, value, Change::Heights); }
    std::int64_t rowHeight() const {
        return rowHeight_;
    }  ///< nominal; handed to every cell that measures itself
    void setRowHeight(std::int64_t value) { set(rowHeight_, value, Change::Heights); }
    std::int64_t sectionHeaderHeight() const {
        return sectionHeaderHeight_;
    }  ///< where the delegate gives none
    void setSectionHeaderHeight(std::int64_t value) {
        set(sectionHeaderHeight_, value, Change::Positions);
    }
    double rowSeparatorIndentation() const { return rowSeparatorIndentation_; }
    void setRowSeparatorIndentation(double value) {
        set(rowSeparatorIndentation_, value, Change::Looks);
    }
    double accessoryLineOffset() const { return accessoryLineOffset_; }  ///< -1 for no line
    void setAccessoryLineOffset(double value) { set(accessoryLineOffset_, value, Change::Looks); }

    /// Where the delegate gives none. White, or what the theme said when the table was made; none
    /// for the theme's at any time.
    const OptionalColor& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const OptionalColor& color) {
        set(backgroundColor_, color, Change::Looks);
    }

    // None for the view's own.

    const OptionalColor& sectionHeaderBackgroundColor() const {
        return sectionHeaderBackgroundColor_;
    }
    void setSectionHeaderBackgroundColor(const OptionalColor& color) {
        set(sectionHeaderBackgroundColor_, color, Change::Looks);
    }
    const OptionalColor& sectionHeaderBackgroundAlternativeColor() const {
        return sectionHeaderBackgroundAlternativeColor_;
    }
    void setSectionHeaderBackgroundAlternativeColor(const OptionalColor& color) {
        set(sectionHeaderBackgroundAlternativeColor_, color, Change::Looks);
    }
    const OptionalColor& sectionHeaderTextColor() const { return sectionHeaderTextColor_; }
    void setSectionHeaderTextColor(const OptionalColor& color) {
        set(sectionHeaderTextColor_, color, Change::Looks);
    }
    const OptionalColor& sectionHeaderBorderColor() const { return sectionHeaderBorderColor_; }
    void setSectionHeaderBorderColor(const OptionalColor& color) {
        set(sectionHeaderBorderColor_, color, Change::Looks);
    }
    const OptionalColor& sectionHeaderBorderAlternativeColor() const {
        return sectionHeaderBorderAlternativeColor_;
    }
    void setSectionHeaderBorderAlternativeColor(const OptionalColor& color) {
        set(sectionHeaderBorderAlternativeColor_, color, Change::Looks);
    }
    const OptionalColor& rowSeparatorColor() const { return rowSeparatorColor_; }
    void setRowSeparatorColor(const OptionalColor& color) {
        set(rowSeparatorColor_, color, Change::Looks);
    }
    const OptionalColor& accessoryLineColor() const { return accessoryLineColor_; }
    void setAccessoryLineColor(const OptionalColor& color) {
        set(accessoryLineColor_, color, Change::Looks);
    }

    bool allowsMultipleSelections() const { return allowsMultipleSelections_; }
    void setAllowsMultipleSelections(bool value) { allowsMultipleSelections_ = value; }
    void setSupportsLeftRightCursorMovement(bool value) {
        supportsLeftRightCursorMovement_ = value;
    }
    bool supportsRowMovementViaCursorKeys() const { return supportsRowMovementViaCursorKeys_; }
    void setSupportsRowMovementViaCursorKeys(bool value) {
        supportsRowMovementViaCursorKeys_ = value;
    }
    bool autoReuseCells() const {
        return autoReuseCells_;
    }  ///< a reload fills the cells of the last one again
    void setAutoReuseCells(bool value) { autoReuseCells_ = value; }
    bool reverseInsertionDirection() const {
        return reverseInsertionDirection_;
    }  ///< new rows go before their neighbour
    void setReverseInsertionDirection(bool value) { reverseInsertionDirection_ = value; }
    bool clearSelectionOnBackgroundClick() const { return clearSelectionOnBackgroundClick_; }
    void setClearSelectionOnBackgroundClick(bool value) {
        clearSelectionOnBackgroundClick_ = value;
    }
    bool informDelegateWhenAutoSelecting() const {
        return informDelegateWhenAutoSelecting_;
    }  ///< of a row that a menu or a drag selects
    void setInformDelegateWhenAutoSelecting(bool value) {
        informDelegateWhenAutoSelecting_ = value;
    }
    bool editing() const { return editing_; }
    void setEditing(bool value) { editing_ = value; }
    bool printing() const { return printing_; }  ///< handed to every cell that measures itself
    void setPrinting(bool value) { printing_ = value; }
    /// Where rows are inserted; -1 for the first or the last section, by the direction.
    std::int64_t defaultInsertionSection() const { return defaultInsertionSection_; }
    void setDefaultInsertionSection(std::int64_t section) { defaultInsertionSection_ = section; }
    void setEditableAllowsVibrancy(bool allows) { editableAllowsVibrancy_ = allows; }

  protected:
    /// What a setting decides; heights decide positions, and those the looks.
    enum class Change { Looks, Positions, Heights };
    virtual void settingDidChange(Change change) = 0;

    std::string_view nameInLines() const {
        return debugName_ ? std::string_view(*debugName_) : kNoName;
    }
    bool keepsLeftRightMovement() const { return supportsLeftRightCursorMovement_; }
    bool editableAllowsVibrancy() const { return editableAllowsVibrancy_; }

  private:
    static constexpr std::string_view kNoName = "(null)";

    template <class Value>
    void set(Value& member, const Value& value, Change change) {
        if (member == value) return;
        member = value;
        settingDidChange(change);
    }

    std::optional<std::string> debugName_;
    std::string emptyText_;
    double top_ = 0;
    double bottom_ = 0;
    double left_ = 0;
    double right_ = 0;
    std::int64_t rowHeight_ = 44;
    std::int64_t sectionHeaderHeight_ = 25;
    double rowSeparatorIndentation_ = 0;
    double accessoryLineOffset_ = -1;
    OptionalColor backgroundColor_ = views::theme().background;
    OptionalColor sectionHeaderBackgroundColor_;
    OptionalColor sectionHeaderBackgroundAlternativeColor_;
    OptionalColor sectionHeaderTextColor_;
    OptionalColor sectionHeaderBorderColor_;
    OptionalColor sectionHeaderBorderAlternativeColor_;
    OptionalColor rowSeparatorColor_;
    OptionalColor accessoryLineColor_;
    bool allowsMultipleSelections_ = false;
    bool supportsLeftRightCursorMovement_ = false;
    bool supportsRowMovementViaCursorKeys_ = true;
    bool autoReuseCells_ = true;
    bool reverseInsertionDirection_ = false;
    bool clearSelectionOnBackgroundClick_ = true;
    bool informDelegateWhenAutoSelecting_ = false;
    bool editing_ = false;
    bool printing_ = false;
    bool editableAllowsVibrancy_ = false;
    std::int64_t defaultInsertionSection_ = -1;
};

}  // namespace corvane
