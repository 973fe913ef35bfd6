// The application's URL scheme: what widgets and other programs open to add a task or to show a
// view. Other programs know these words: they must not change, letter case included.
#pragma once

#include <string_view>

namespace corvane {

inline constexpr std::string_view HGURLSchemeName = "corvane";

inline constexpr std::string_view HGURLSchemeCommandAddTask = "addTask";  ///< Fields in the query.
inline constexpr std::string_view HGURLSchemeCommandShowInbox = "showInbox";
inline constexpr std::string_view HGURLSchemeCommandShowSomeday = "showSomeday";
inline constexpr std::string_view HGURLSchemeCommandShowToday = "showToday";
inline constexpr std::string_view HGURLSchemeCommandShowNext = "showNext";
inline constexpr std::string_view HGURLSchemeCommandShowWaitingFor = "showWaitingFor";

}  // namespace corvane
