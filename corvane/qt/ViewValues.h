// The value of a view in the forms that assistive technology asks for: a text to walk through, or a
// number. The main thread.
#pragma once

#include "corvane/views/View.h"

#include <QAccessible>
#include <memory>
#include <optional>

namespace corvane::qt {

/// The text of a field. Who edits it is the live editor, which tells of cursor and selection.
class ViewText final : public QAccessibleTextInterface {
  public:
    explicit ViewText(std::weak_ptr<views::View> view) : view_(std::move(view)) {}

    QString whole() const;
    /// The text when this was last called, which is then the present one; empty at first.
    QString takeTold();

    void selection(int selectionIndex, int* start, int* end) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int* start, int* end) const override;

  private:
    std::weak_ptr<views::View> view_;
    QString told_;
};

/// How far something is, in percent; of a divider, where it is, in points.
class ViewNumber final : public QAccessibleValueInterface {
  public:
    explicit ViewNumber(std::weak_ptr<views::View> view) : view_(std::move(view)) {}

    /// None for views that cannot be measured, and while nobody knows how long something takes.
    std::optional<double> number() const;

    QVariant currentValue() const override { return number().value_or(0); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override;
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return 1.0; }

  private:
    std::weak_ptr<views::View> view_;
};

}  // namespace corvane::qt
