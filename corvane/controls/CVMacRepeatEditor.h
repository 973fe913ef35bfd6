// Edits a task's own rule of repeating: how often, every how many days, weeks, months or years, and
// on which of their days or months. One thread, the window's.
#pragma once

#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/HGCustomRepeat.h"
#include "corvane/dates/HGCustomRepeatFactory.h"
#include "corvane/views/CompoundView.h"
#include "corvane/views/TextField.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace corvane {

namespace views {
class Label;
}

class CVMacBitmaskChooser;
class CVMacSegmentedChoice;

/// What was chosen for one frequency is there again after a turn to another one and back. The days
/// of the week stand in the order of the user's calendar. Made by std::make_shared.
class CVMacRepeatEditor final : public views::CompoundView, public views::TextFieldDelegate {
  public:
    /// That can be typed; a rule with a longer one keeps it until another is.
    static constexpr std::int64_t kLongestInterval = 999;

    /// Shows a daily rule.
    explicit CVMacRepeatEditor(const views::Rect& frame = {});

    HGCustomRepeat repeat() const;
    /// Begins with the rule of a task; the other frequencies get the weekday, the day and the month
    /// of the task's reference day, or nothing without one. A frequency that is none becomes daily,
    /// an interval below 1 becomes 1; bits that stand for no day or month are kept.
    void setRepeatForDay(const HGCustomRepeat& repeat, std::optional<EXDateOnly> day);
    /// After each change by the user.
    std::function<void(const HGCustomRepeat& repeat)> didChangeRepeat;

    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);

    const std::shared_ptr<CVMacSegmentedChoice>& frequencyControl() const { return frequencies_; }
    const std::shared_ptr<views::TextField>& intervalField() const { return interval_; }
    /// Hidden for daily rules.
    const std::shared_ptr<CVMacBitmaskChooser>& occurrenceChooser() const { return occurrences_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    views::Role accessibilityRole() const override { return views::Role::Group; }
    std::string accessibilityName() const override;

    // What it makes nothing of goes on to whoever follows the fields around it, such as a form.
    void controlTextDidBeginEditing(views::TextField& field) override;
    void controlTextDidChange(views::TextField& field) override;
    void controlTextDidEndEditing(views::TextField& field) override;
    /// Up and Down count the interval.
    bool controlDoCommandBySelector(views::TextField& field, views::FieldEditor& editor,
                                    views::Command command) override;

  private:
    void addParts();
    void chooseFrequency();
    void chooseOccurrences();
    void commitInterval();
    void setInterval(std::int64_t interval);
    std::int64_t storedInterval() const;
    void store(std::int64_t interval, std::int64_t occurrences);
    void showFrequency();
    void showUnit(std::int64_t interval);
    void tellOfChange();
    std::shared_ptr<views::TextFieldDelegate> delegateAround() const;

    HGCustomRepeatFactory factory_;
    EXCalendar calendar_ = EXCalendar::currentCalendar();
    std::int16_t frequency_ = HGCustomRepeat::kDaily;
    std::shared_ptr<CVMacSegmentedChoice> frequencies_;
    std::shared_ptr<views::Label> every_;
    std::shared_ptr<views::TextField> interval_;
    std::shared_ptr<views::Label> unit_;
    std::shared_ptr<CVMacBitmaskChooser> occurrences_;
    bool enabled_ = true;
};

}  // namespace corvane
