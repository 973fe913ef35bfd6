// What the running program is called.
#pragma once

#include <string>

namespace corvane::platform {

/// The last part of the name under which the program was started, which may be a link's; "program"
/// where it was started without one.
std::string programName();

}  // namespace corvane::platform
