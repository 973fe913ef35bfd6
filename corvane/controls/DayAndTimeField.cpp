#include "corvane/controls/DayAndTimeField.h"

#include "corvane/dates/EXCalendar.h"
#include "corvane/views/Mirroring.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr double kGap = 6;
constexpr double kShareOfDay = 0.6;

}  // namespace

DayAndTimeField::DayAndTimeField(const views::Rect& frame)
    : CompoundView(frame),
      day_(std::make_shared<CVMacDateOnlyField>()),
      time_(std::make_shared<CVMacTimeOnlyField>()) {
    day_->setAction([this](auto&) { commit(); });
    time_->setAction([this](auto&) { commit(); });
    addSubview(day_);
    addSubview(time_);
    setKeyViewParts({day_, time_});
}

void DayAndTimeField::setDateValue(Date date) {
    dateValue_ = date;
    const auto calendar = EXCalendar::currentCalendar();
    day_->setDateOnlyValue(calendar.dateOnlyForDate(date));
    time_->setTimeOnlyValue(calendar.timeOnlyForDate(date));
}

void DayAndTimeField::commit() {
    const auto keepAlive = weak_from_this().lock();
    dateValue_ = EXCalendar::currentCalendar().dateForDateOnly(day_->dateOnlyValue(),
                                                               time_->timeOnlyValue());
    const Action action = action_;
    if (action) action(*this);
}

void DayAndTimeField::setEnabled(bool enabled) {
    day_->setEnabled(enabled);
    time_->setEnabled(enabled);
}

views::Size DayAndTimeField::preferredSizeThatFits(views::Size available) {
    return {available.width, std::max(day_->preferredSizeThatFits(available).height,
                                      time_->preferredSizeThatFits(available).height)};
}

void DayAndTimeField::applyLayout() {
    // Another name than the group's only says more of the same.
    day_->setAccessibilityName(accessibilityName());
    time_->setAccessibilityName(accessibilityName());
    const double width = bounds().width;
    const double day = std::max(0.0, (width - kGap) * kShareOfDay);
    const double time = std::max(0.0, width - kGap - day);
    const auto place = [&](views::View& view, const views::Rect& frame) {
        view.setFrame(views::mirrored(frame, width));
    };
    place(*day_, {0, 0, day, bounds().height});
    place(*time_, {day + kGap, 0, time, bounds().height});
}

}  // namespace corvane
