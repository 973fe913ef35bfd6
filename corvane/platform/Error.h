// A failure that is passed out of the platform layer, for a program to show or to log.
#pragma once

#include <string>

namespace corvane::platform {

struct Error {
    std::string domain;   ///< Who reports it: "posix" for a system call, "archive" for a format.
    int code = 0;         ///< The domain's own number; errno for "posix".
    std::string message;  ///< One line for a person, without a final stop.

    /// The error that `number` (an errno value) stands for, with `what` was being done in front.
    static Error fromErrno(const std::string& what, int number);
};

}  // namespace corvane::platform
