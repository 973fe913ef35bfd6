// Standard error as people see it: whether it shows colours, and writing to it without a console's
// lines in between. Any thread.
#pragma once

#include <string_view>

namespace corvane::platform {

/// Whether standard error is a terminal that shows colours and its user wants them: not where the
/// variable NO_COLOR is set and not empty, nor where TERM is not set or "dumb".
bool standardErrorTakesColors();

/// Writes all of it in as few calls as the system allows, and waits where the reader is slow. False
/// where there is no reader any more.
bool writeToStandardError(std::string_view text);

}  // namespace corvane::platform
