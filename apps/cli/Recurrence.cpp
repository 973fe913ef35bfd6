#include "apps/cli/Recurrence.h"

#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/HGCustomRepeat.h"

#include "apps/cli/DocumentChange.h"
#include "apps/cli/TaskCodes.h"
#include "apps/cli/TextHash.h"
#include "apps/document/BackupLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

namespace corvane::cli {

namespace {

using Rule = HGCustomRepeat;

constexpr std::int16_t kCustomRepeat = 8;

/// By code; that of 0 is none.
constexpr std::array kFixedRules{
    Rule(),
    Rule(Rule::kDaily, 1, 0),
    Rule(Rule::kWeekly, 1, 0),
    Rule(Rule::kWeekly, 2, 0),
    Rule(Rule::kMonthly, 1, 0),
    Rule(Rule::kMonthly, 2, 0),
    Rule(Rule::kMonthly, 3, 0),
    Rule(Rule::kYearly, 1, 0),
};

// By frequency: how many occurrences can be chosen, and how many days a unit has at the most.
constexpr std::array kOccurrences{0, 7, 31, 12};
constexpr std::array kLongestUnits{1, 7, 31, 366};

constexpr EXDateOnly kLastDay(9999, 12, 31);
constexpr std::int64_t kLongestInterval = 10000 * 366;

std::optional<Rule> ruleOf(const backup::Task& task) {
    const auto code = static_cast<std::size_t>(task.repeatRaw.value_or(0));
    if (code > 0 && code < kFixedRules.size()) return kFixedRules[code];
    const std::int16_t frequency = task.customRepeatFrequencyRaw.value_or(Rule::kDaily);
    if (code != kCustomRepeat || frequency < 0 || frequency > Rule::kYearly) return std::nullopt;
    const int occurrences = kOccurrences[static_cast<std::size_t>(frequency)];
    const std::int64_t chosen =
        task.customRepeatOccurrencesRaw.value_or(0) & ((std::int64_t{1} << occurrences) - 1);
    const std::int64_t interval = task.customRepeatIntervalRaw.value_or(1);
    return Rule(frequency, std::clamp<std::int64_t>(interval, 1, kLongestInterval), chosen);
}

/// The days of a rule, counted from the one with which it begins.
class Days {
  public:
    Days(const Rule& rule, EXDateOnly start, const EXCalendar& calendar)
        : rule_(rule), start_(start), calendar_(calendar) {}

    std::optional<EXDateOnly> first(EXDateOnly earliest, EXDateOnly last) const {
        const std::int64_t step = rule_.interval();
        const auto longest = step * kLongestUnits[static_cast<std::size_t>(rule_.frequency())];
        const auto skipped = calendar_.daysFromDateOnly(start_, earliest) / longest;
        for (std::int64_t units = std::max<std::int64_t>(0, skipped) * step;; units += step) {
            for (EXDateOnly day : daysAfter(units))
                if (day >= earliest) return day <= last ? std::optional(day) : std::nullopt;
            if (after(units) > last) return std::nullopt;
        }
    }

  private:
    EXDateOnly after(std::int64_t units) const {
        switch (rule_.frequency()) {
            case Rule::kWeekly:
                return *calendar_.dateOnlyByAddingWeeks(units, start_);
            case Rule::kMonthly:
                return *calendar_.dateOnlyByAddingMonths(units, start_);
            case Rule::kYearly:
                return *calendar_.dateOnlyByAddingYears(units, start_);
            default:
                return *calendar_.dateOnlyByAddingDays(units, start_);
        }
    }

    bool isChosen(int occurrence) const { return rule_.occurrences() >> (occurrence - 1) & 1; }

    /// Those of the week, month or year that lies so many after the first one, in order.
    std::vector<EXDateOnly> daysAfter(std::int64_t units) const {
        const EXDateOnly reached = after(units);
        if (rule_.occurrences() == 0) return {reached};
        std::vector<EXDateOnly> days;
        if (rule_.frequency() == Rule::kWeekly) {
            const int within = EXCalendar::weekdaysFromWeekday(
                calendar_.firstWeekday(), calendar_.weekdayForDateOnly(reached));
            for (int i = -within; i < 7 - within; ++i) {
                const EXDateOnly day = *calendar_.dateOnlyByAddingDays(i, reached);
                if (isChosen(calendar_.weekdayForDateOnly(day))) days.push_back(day);
            }
        } else if (rule_.frequency() == Rule::kMonthly) {
            const int length = calendar_.numberOfDaysInMonthForDateOnly(reached);
            for (int day = 1; day <= length; ++day)
                if (isChosen(day)) days.emplace_back(reached.year(), reached.month(), day);
        } else {
            for (int month = 1; month <= 12; ++month) {
                const int length =
                    calendar_.numberOfDaysInMonthForDateOnly(EXDateOnly(reached.year(), month, 1));
                if (isChosen(month))
                    days.emplace_back(reached.year(), month, std::min(start_.day(), length));
            }
        }
        return days;
    }

    const Rule rule_;
    const EXDateOnly start_;
    const EXCalendar& calendar_;
};

}  // namespace

backup::Day nextDueDay(const backup::Task& task) {
    const auto rule = ruleOf(task);
    if (!rule || !task.dueRaw) return std::nullopt;
    const EXCalendar calendar = EXCalendar::currentCalendar();
    const EXDateOnly today = calendar.dateOnlyForToday();
    // The due day need not exist.
    const EXDateOnly start = task.repeatAfterCompletion.value_or(false)
                                 ? today
                                 : *calendar.dateOnlyByAddingDays(0, task.dueRaw);
    const EXDateOnly following = *calendar.dateOnlyByAddingDays(1, start);
    return Days(*rule, start, calendar)
        .first(std::max(today, following),
               std::min(kLastDay, task.repeatUntilRaw.value_or(kLastDay)));
}

backup::Task taskAgain(const backup::Task& task, EXDateOnly due) {
    const EXCalendar calendar = EXCalendar::currentCalendar();
    const std::int64_t days = calendar.daysFromDateOnly(task.dueRaw, due);
    backup::Task again = task;
    again.uri = backup::URL(
        fmt::format("x-corvane-todo://task/{:016x}",
                    stableHash(fmt::format("{}\n{}", task.uri.absoluteString(), due.isoString()))));
    again.dueRaw = due;
    for (backup::Day* day :
         {&again.startRaw, &again.reminderDateRaw, &again.secondReminderDateRaw}) {
        *day = calendar.dateOnlyByAddingDays(days, *day);
        // Thousands of years before the due day, it may be a day that no document can hold.
        if (!backup::comesBack(EXValue(*day))) day->reset();
    }
    again.statusRaw = kActionableStatus;
    again.statusChanged.reset();
    again.userCreated = again.userModified = nowInSeconds();
    again.sourceRaw.reset();
    again.sourceIdentifier.reset();
    again.comments.clear();
    for (backup::Attachment& attachment : again.attachments)
        attachment.uri = backup::URL();
    for (backup::Action& action : again.actions) {
        action.uri = backup::URL();
        action.statusRaw = 0;
        action.statusChanged.reset();
    }
    return again;
}

}  // namespace corvane::cli
