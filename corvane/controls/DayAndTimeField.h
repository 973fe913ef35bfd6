// A moment as a field for its day and one for its time of day, side by side. One thread, the
// window's.
#pragma once

#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/controls/CVMacTimeOnlyField.h"
#include "corvane/platform/Instant.h"
#include "corvane/views/CompoundView.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvane {

/// A day without a time of day begins at midnight; a time without a day is no moment yet. Seconds
/// are kept until another time is typed. Made by std::make_shared.
class DayAndTimeField final : public views::CompoundView {
  public:
    using Date = std::optional<platform::Instant>;
    using Action = std::function<void(DayAndTimeField& sender)>;

    explicit DayAndTimeField(const views::Rect& frame = {});

    const Date& dateValue() const { return dateValue_; }
    void setDateValue(Date date);
    /// Sent when the user has changed one of the two.
    void setAction(Action action) { action_ = std::move(action); }
    void setEnabled(bool enabled);
    /// Of the day.
    void setPlaceholderString(std::string text) { day_->setPlaceholderString(std::move(text)); }

    const std::shared_ptr<CVMacDateOnlyField>& dayField() const { return day_; }
    const std::shared_ptr<CVMacTimeOnlyField>& timeField() const { return time_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    views::Role accessibilityRole() const override { return views::Role::Group; }

  private:
    void commit();

    std::shared_ptr<CVMacDateOnlyField> day_;
    std::shared_ptr<CVMacTimeOnlyField> time_;
    Date dateValue_;
    Action action_;
};

}  // namespace corvane
