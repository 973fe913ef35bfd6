#include "corvane/platform/Terminal.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/UserDirectories.h"

#include <poll.h>

namespace corvane::platform {

bool standardErrorTakesColors() {
    if (environmentVariable("NO_COLOR")) return false;
    return environmentVariable("TERM").value_or("dumb") != "dumb" && ::isatty(STDERR_FILENO) == 1;
}

bool writeToStandardError(std::string_view text) {
    while (!text.empty()) {
        const auto count = ::write(STDERR_FILENO, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {  // somebody made the terminal non-blocking
            pollfd reader{STDERR_FILENO, POLLOUT, 0};
            ::poll(&reader, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace corvane::platform
