// When repeating tasks come again, and as what. Functions without state; any thread.
#pragma once

#include "apps/document/BackupDocument.h"

#include <optional>

namespace corvane::cli {

/// The first day of the task's rule after its due day that has not passed; where it repeats after
/// completion, the first one after today, counted from there. None for a task that does not repeat
/// or has no due day, and where its rule has no further day up to its last one.
///
/// A rule counts its weeks, months or years from the one of the due day. Without chosen days or
/// months it keeps the weekday, day or date; a month that lacks the date has its last day instead,
/// and one that lacks a chosen day has no such day.
backup::Day nextDueDay(const backup::Task& task);

/// The task as it comes again on that day: actionable, with a URI of its own, which is always the
/// same for the same task and day, and with start and reminders as far from the day as before.
/// Actions are open again; comments, and the source, stay with the task that was completed.
backup::Task taskAgain(const backup::Task& task, EXDateOnly due);

}  // namespace corvane::cli
