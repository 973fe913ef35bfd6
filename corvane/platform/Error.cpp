#include "corvane/platform/Error.h"

#include <system_error>

namespace corvane::platform {

Error Error::fromErrno(const std::string& what, int number) {
    return {"posix", number, what + ": " + std::generic_category().message(number)};
}

}  // namespace corvane::platform
