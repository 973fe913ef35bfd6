#include "corvane/platform/ProgramName.h"

#include <errno.h>

namespace corvane::platform {

std::string programName() {
    const char* name = ::program_invocation_short_name;
    return name && *name ? name : "program";
}

}  // namespace corvane::platform
