#include "apps/cli/Recurrence.h"

#include "corvane/platform/Clock.h"
#include "corvane/platform/Locale.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

class Recurrence : public testing::Test {
  protected:
    /// Wednesday, in a region whose weeks begin on Monday.
    platform::FixedClock clock_{EXDateOnly(2024, 3, 6).date()};
    platform::ScopedClock inForce_{clock_};
    platform::ScopedLocale locale_{platform::Locale("de_DE")};
};

TEST_F(Recurrence, GivesTheNextDayOfTheRule) {
    constexpr std::int16_t kDaily = 0, kWeekly = 1, kMonthly = 2, kYearly = 3;
    const struct {
        const char* due;
        std::int16_t repeat;
        const char* next;
        std::int16_t frequency = 0;
        std::int64_t interval = 1, occurrences = 0;
        const char* until = "";
        bool afterCompletion = false;
    } cases[] = {
        {"2024-03-07", 0, ""},
        {"2024-03-07", 9, ""},
        {"2024-03-07", 1, "2024-03-08"},
        {"0001-01-01", 1, "2024-03-06"},
        {"2024-02-19", 3, "2024-03-18"},
        {"2024-01-31", 4, "2024-03-31"},
        {"2025-01-31", 4, "2025-02-28"},
        {"2025-02-31", 4, "2025-04-03"},  // counts as March 3
        {"2024-03-07", 6, "2024-06-07"},
        {"2024-02-29", 7, "2025-02-28"},
        {"2024-03-07", 2, "2024-03-14", 0, 1, 0, "2024-03-14"},
        {"2024-03-07", 2, "", 0, 1, 0, "2024-03-13"},
        {"2024-01-01", 2, "2024-03-13", 0, 1, 0, "", true},
        {"2024-03-04", 8, "2024-03-07", kDaily, 3},
        {"2024-03-07", 8, "2024-03-08", kDaily, -4},
        // Monday and Sunday of every second week, the last day of which is Sunday.
        {"2024-03-04", 8, "2024-03-10", kWeekly, 2, 0b11},
        {"2024-03-10", 8, "2024-03-18", kWeekly, 2, 0b11},
        {"2024-03-07", 8, "2024-03-14", kWeekly, 1, 1 << 7},
        {"2024-03-31", 8, "2024-05-31", kMonthly, 1, 1 << 30},
        {"2024-03-31", 8, "2024-04-30", kMonthly, 1, 1 << 30 | 1 << 29},
        {"2025-02-28", 8, "", kMonthly, 12, 1 << 30},
        {"2024-03-31", 8, "2026-02-28", kYearly, 2, 0b10},
        {"2024-03-07", 8, "", kYearly, INT64_MAX},
        {"2024-03-07", 8, "", 4},
    };
    for (const auto& c : cases) {
        backup::Task task;
        task.dueRaw = EXDateOnly::dateOnlyFromString(c.due);
        task.repeatRaw = c.repeat;
        task.customRepeatFrequencyRaw = c.frequency;
        task.customRepeatIntervalRaw = c.interval;
        task.customRepeatOccurrencesRaw = c.occurrences;
        task.repeatUntilRaw = EXDateOnly::dateOnlyFromString(c.until);
        task.repeatAfterCompletion = c.afterCompletion;
        const auto next = nextDueDay(task);
        EXPECT_EQ(next ? next->isoString() : "", c.next) << c.due << " " << c.repeat;
        task.dueRaw.reset();
        EXPECT_FALSE(nextDueDay(task));
    }
}

TEST_F(Recurrence, MovesStartAndRemindersAndOpensActions) {
    backup::Task task;
    task.uri = backup::URL("t:1");
    task.dueRaw = EXDateOnly(2024, 2, 28);
    task.startRaw = EXDateOnly(2024, 2, 27);
    task.actions.resize(1);
    task.actions[0].statusRaw = 2;
    task.comments.resize(1);
    const backup::Task again = taskAgain(task, EXDateOnly(2024, 3, 6));
    EXPECT_NE(again.uri, task.uri);
    EXPECT_EQ(again.uri, taskAgain(task, EXDateOnly(2024, 3, 6)).uri);
    EXPECT_EQ(again.startRaw, EXDateOnly(2024, 3, 5));
    EXPECT_FALSE(again.reminderDateRaw);
    EXPECT_EQ(again.actions[0].statusRaw, 0);
    EXPECT_TRUE(again.comments.empty());
}

}  // namespace
}  // namespace corvane::cli
