// The names of the elements of a backup document: collections with their records, and the two dates
// that every record may have.
#pragma once

#include <string_view>

namespace corvane {

// A file format: none of these texts ever changes.
inline constexpr std::string_view HGBackupElementUserCreated = "userCreated";
inline constexpr std::string_view HGBackupElementUserModified = "userModified";

inline constexpr std::string_view HGBackupElementContributors = "contributors";
inline constexpr std::string_view HGBackupElementContributor = "contributor";
inline constexpr std::string_view HGBackupElementCategories = "categories";
inline constexpr std::string_view HGBackupElementCategory = "category";
inline constexpr std::string_view HGBackupElementPortfolios = "portfolios";
inline constexpr std::string_view HGBackupElementPortfolio = "portfolio";
inline constexpr std::string_view HGBackupElementProjects = "projects";
inline constexpr std::string_view HGBackupElementProject = "project";
inline constexpr std::string_view HGBackupElementProjectContexts = "projectContexts";
inline constexpr std::string_view HGBackupElementProjectContext = "projectContext";
inline constexpr std::string_view HGBackupElementTasks = "tasks";
inline constexpr std::string_view HGBackupElementTask = "task";
inline constexpr std::string_view HGBackupElementTaskContexts = "taskContexts";
inline constexpr std::string_view HGBackupElementTaskContext = "taskContext";
inline constexpr std::string_view HGBackupElementActions = "actions";
inline constexpr std::string_view HGBackupElementAction = "action";
inline constexpr std::string_view HGBackupElementAttachments = "attachments";
inline constexpr std::string_view HGBackupElementAttachment = "attachment";
inline constexpr std::string_view HGBackupElementComments = "comments";
inline constexpr std::string_view HGBackupElementComment = "comment";

}  // namespace corvane
