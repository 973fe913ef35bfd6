// The names of the stored entities and of their attributes, as backups and sort orders use them.
#pragma once

#include <string_view>

namespace corvane {

// A file format: none of these texts ever changes. Keys that end in "Raw" are stored attributes;
// the same without it are what is presented of them.

inline constexpr std::string_view HGTaskEntityName = "HGTask";
inline constexpr std::string_view HGTaskTitleRawKey = "titleRaw";
inline constexpr std::string_view HGTaskTitleCollationKey = "titleCollation";
inline constexpr std::string_view HGTaskNotesKey = "notes";
inline constexpr std::string_view HGTaskPositionKey = "position";
inline constexpr std::string_view HGTaskStarredRawKey = "starredRaw";
inline constexpr std::string_view HGTaskStarredPositionKey = "starredPosition";
inline constexpr std::string_view HGTaskPriorityRawKey = "priorityRaw";
inline constexpr std::string_view HGTaskStatusRawKey = "statusRaw";
inline constexpr std::string_view HGTaskStatusChangedKey = "statusChanged";
inline constexpr std::string_view HGTaskProjectRawKey = "projectRaw";
inline constexpr std::string_view HGTaskContextsKey = "contexts";
inline constexpr std::string_view HGTaskDueRawKey = "dueRaw";
inline constexpr std::string_view HGTaskStartRawKey = "startRaw";
inline constexpr std::string_view HGTaskRepeatRawKey = "repeatRaw";
inline constexpr std::string_view HGTaskRepeatAfterCompletionKey = "repeatAfterCompletion";
inline constexpr std::string_view HGTaskRepeatUntilRawKey = "repeatUntilRaw";
inline constexpr std::string_view HGTaskCustomRepeatFrequencyRawKey = "customRepeatFrequencyRaw";
inline constexpr std::string_view HGTaskCustomRepeatIntervalRawKey = "customRepeatIntervalRaw";
inline constexpr std::string_view HGTaskCustomRepeatOccurrencesRawKey =
    "customRepeatOccurrencesRaw";
inline constexpr std::string_view HGTaskReminderDateRawKey = "reminderDateRaw";
inline constexpr std::string_view HGTaskReminderTimeRawKey = "reminderTimeRaw";
inline constexpr std::string_view HGTaskSecondReminderDateRawKey = "secondReminderDateRaw";
inline constexpr std::string_view HGTaskSecondReminderTimeRawKey = "secondReminderTimeRaw";
inline constexpr std::string_view HGTaskContributorKey = "contributor";
inline constexpr std::string_view HGTaskSourceRawKey = "sourceRaw";
inline constexpr std::string_view HGTaskSourceIdentifierKey = "sourceIdentifier";
inline constexpr std::string_view HGTaskNextInProjectKey = "nextInProject";
inline constexpr std::string_view HGTaskActionsKey = "actions";
// Derived, not stored.
inline constexpr std::string_view HGTaskTitleKey = "title";
inline constexpr std::string_view HGTaskStatusKey = "status";
inline constexpr std::string_view HGTaskStarredKey = "starred";
inline constexpr std::string_view HGTaskEnergyKey = "energy";
inline constexpr std::string_view HGTaskPriorityKey = "priority";
inline constexpr std::string_view HGTaskStartKey = "start";
inline constexpr std::string_view HGTaskDueKey = "due";
inline constexpr std::string_view HGTaskRepeatKey = "repeat";
inline constexpr std::string_view HGTaskCustomRepeatKey = "customRepeat";
inline constexpr std::string_view HGTaskReminderKey = "reminder";
inline constexpr std::string_view HGTaskSecondReminderKey = "secondReminder";
inline constexpr std::string_view HGTaskCategoryURIRepresentationsKey =
    "categoryURIRepresentations";
inline constexpr std::string_view HGTaskCategoryURIRepresentationKey = "categoryURIRepresentation";
inline constexpr std::string_view HGTaskProjectURIRepresentationKey = "projectURIRepresentation";
inline constexpr std::string_view HGTaskContributorURIRepresentationKey =
    "contributorURIRepresentation";
inline constexpr std::string_view HGTaskActionsCountStringKey = "actionsCountString";
inline constexpr std::string_view HGTaskAttachmentsCountStringKey = "attachmentsCountString";

inline constexpr std::string_view HGProjectEntityName = "HGProject";
inline constexpr std::string_view HGProjectNameRawKey = "nameRaw";
inline constexpr std::string_view HGProjectNameCollationKey = "nameCollation";
inline constexpr std::string_view HGProjectNameKey = "name";
inline constexpr std::string_view HGProjectNotesKey = "notes";
inline constexpr std::string_view HGProjectChecklistKey = "checklist";
inline constexpr std::string_view HGProjectContextsKey = "contexts";
inline constexpr std::string_view HGProjectCategoryKey = "category";
inline constexpr std::string_view HGProjectPriorityRawKey = "priorityRaw";
inline constexpr std::string_view HGProjectPriorityKey = "priority";
inline constexpr std::string_view HGProjectPortfolioKey = "portfolio";
inline constexpr std::string_view HGProjectShortNameKey = "shortName";
inline constexpr std::string_view HGProjectStatusRawKey = "statusRaw";
inline constexpr std::string_view HGProjectStatusChangedKey = "statusChanged";
inline constexpr std::string_view HGProjectStatusKey = "status";
inline constexpr std::string_view HGProjectStartRawKey = "startRaw";
inline constexpr std::string_view HGProjectStartKey = "start";
inline constexpr std::string_view HGProjectDueRawKey = "dueRaw";
inline constexpr std::string_view HGProjectDueKey = "due";
inline constexpr std::string_view HGProjectTasksKey = "tasks";
inline constexpr std::string_view HGProjectNextTasksKey = "nextTasks";
inline constexpr std::string_view HGProjectGeneralKey = "general";
inline constexpr std::string_view HGProjectCategoryURIRepresentationKey =
    "categoryURIRepresentation";
inline constexpr std::string_view HGProjectCategoryURIRepresentationsKey =
    "categoryURIRepresentations";
inline constexpr std::string_view HGProjectPortfolioURIRepresentationKey =
    "portfolioURIRepresentation";
// The name of the project that is "general"; a title to be looked up, as "${" tells.
inline constexpr std::string_view HGProjectNameGeneral = "${ProjectNone}";

inline constexpr std::string_view HGCategoryEntityName = "HGCategory";
inline constexpr std::string_view HGCategoryNameRawKey = "nameRaw";
inline constexpr std::string_view HGCategoryNameCollationKey = "nameCollation";
inline constexpr std::string_view HGCategoryColorRawKey = "colorRaw";
inline constexpr std::string_view HGCategoryIndicatorRawKey = "indicatorRaw";
inline constexpr std::string_view HGCategoryNameKey = "name";
inline constexpr std::string_view HGCategoryColorKey = "color";
inline constexpr std::string_view HGCategoryIndicatorKey = "indicator";
inline constexpr std::string_view HGCategoryNotesKey = "notes";

inline constexpr std::string_view HGContributorEntityName = "HGContributor";
inline constexpr std::string_view HGContributorNameRawKey = "nameRaw";
inline constexpr std::string_view HGContributorNameCollationKey = "nameCollation";
inline constexpr std::string_view HGContributorFirstNameRawKey = "firstNameRaw";
inline constexpr std::string_view HGContributorFirstNameKey = "firstName";
inline constexpr std::string_view HGContributorLastNameKey = "lastName";
inline constexpr std::string_view HGContributorOrganizationKey = "organization";
inline constexpr std::string_view HGContributorNameKey = "name";
inline constexpr std::string_view HGContributorTasksKey = "tasks";

// A task's membership in a category.
inline constexpr std::string_view HGTaskContextEntityName = "HGTaskContext";
inline constexpr std::string_view HGTaskContextPrimaryKey = "primary";
inline constexpr std::string_view HGTaskContextCategoryKey = "category";
inline constexpr std::string_view HGTaskContextTaskKey = "task";

// A project's membership in a category.
inline constexpr std::string_view HGProjectContextEntityName = "HGProjectContext";
inline constexpr std::string_view HGProjectContextPrimaryKey = "primary";
inline constexpr std::string_view HGProjectContextCategoryKey = "category";
inline constexpr std::string_view HGProjectContextProjectKey = "project";

}  // namespace corvane
