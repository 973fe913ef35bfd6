// A day as users type it for this program.
#pragma once

#include "corvane/dates/EXDateOnly.h"

#include <optional>
#include <string_view>

namespace corvane::cli {

/// Gives today and tomorrow their names, in the user's language as it is at each use. To be called
/// once, before any day is read.
void nameDays();

/// "2024-03-05", or whatever the user's locale calls a day.
std::optional<EXDateOnly> typedDay(std::string_view text);

}  // namespace corvane::cli
