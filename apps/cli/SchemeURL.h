// A URL of the application's scheme, as other programs open them.
#pragma once

#include "apps/cli/Commands.h"

#include <string>
#include <string_view>
#include <variant>

namespace corvane::cli {

/// Shows the tasks that are for some day; the other views are published ones.
struct ShowSomeday {};

/// What a URL asks for.
using SchemeRequest = std::variant<NewTask, View, ShowSomeday>;

/// Reads "corvane://showToday" or "corvane://addTask?title=Buy+milk&due=friday&starred". Where it
/// asks for nothing that there is, says why. Keys of the query that are not known are passed over.
std::variant<SchemeRequest, std::string> schemeRequestOf(std::string_view url);

}  // namespace corvane::cli
