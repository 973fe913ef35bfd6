// Makes the views that are published, with their badges, from the tasks of a list.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/dates/EXDateOnly.h"

#include "apps/cli/RepositoryBuilder.h"

namespace corvane::cli {

/// Identifiers of the published lists. They must not change: scripts know them.
inline constexpr const char* kInboxListIdentifier = "inbox";
inline constexpr const char* kStarredListIdentifier = "today.starred";
inline constexpr const char* kDueTodayListIdentifier = "today.due";
inline constexpr const char* kNextListIdentifier = "next.actions";
inline constexpr const char* kDueTomorrowListIdentifier = "next.due-tomorrow";
inline constexpr const char* kWaitingForListIdentifier = "waiting-for";

/// The four views as they are on the day `today`. Each badge counts the tasks of its view, none of
/// them twice. Tasks that are completed, cancelled or in the trash are in no view, nor are those
/// for some day or the scratchpad.
HGSharedInfo sharedInfoOf(const TaskProxies& tasks, EXDateOnly today);

/// The present day of the current clock in the current time zone.
EXDateOnly today();

EXDateOnly dayAfter(EXDateOnly day);

}  // namespace corvane::cli
