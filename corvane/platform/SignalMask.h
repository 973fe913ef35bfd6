// Threads that no signal interrupts.
#pragma once

#include <signal.h>

namespace corvane::platform {

/// Blocks all signals for the calling thread for as long as it lives. A thread that is started
/// meanwhile has them blocked for its whole life, so that signals stay with the threads of the
/// application, and a write to a closed pipe is an error and not the end of the process.
class SignalsBlocked {
  public:
    SignalsBlocked() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &previous_);
    }
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

  private:
    sigset_t previous_;
};

}  // namespace corvane::platform
