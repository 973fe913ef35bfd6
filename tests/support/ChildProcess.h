// A part of a test in a process of its own: for limits, users and locks that are the process's.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace corvane::tests {

/// Starts `body` in a child, which ends with the number that it returns.
template <class Body>
pid_t startChild(Body body) {
    pid_t child = ::fork();
    if (child == 0) ::_exit(body());
    return child;
}

/// What a child returned; minus the number of the signal that killed it.
inline int waitForChild(pid_t child) {
    int status = 0;
    if (::waitpid(child, &status, 0) != child) return 255;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

template <class Body>
int runInChild(Body body) {
    return waitForChild(startChild(body));
}

}  // namespace corvane::tests
