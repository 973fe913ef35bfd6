#include "corvane/platform/TerminationSignals.h"

#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/SignalMask.h"

#include <array>
#include <atomic>
#include <csignal>
#include <system_error>
#include <thread>

namespace corvane::platform {

namespace {

// What a handler may touch: its own process's number, since a fork shares the pipe, and the pipe.
std::atomic<pid_t> watchedProcess{0};
std::atomic<int> pipeEntry{-1};
std::atomic<bool> speaking{false};
static_assert(std::atomic<pid_t>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

std::atomic<void (*)()> wordsToSay{nullptr};

/// Async-signal-safe. The handler is gone by the time it runs (SA_RESETHAND), so that a raised
/// signal ends the process as soon as the handler returns.
void passOn(int number) {
    const int error = errno;
    const auto byte = static_cast<char>(number);
    const bool passed = watchedProcess.load() == ::getpid() && !speaking.exchange(true) &&
                        ::write(pipeEntry.load(), &byte, sizeof byte) == sizeof byte;
    if (!passed) ::raise(number);
    errno = error;
}

[[noreturn]] void endBy(int number) {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    ::sigaction(number, &standard, nullptr);
    sigset_t only;
    ::sigemptyset(&only);
    ::sigaddset(&only, number);
    ::pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    ::raise(number);
    ::_exit(128 + number);  // what shells make of it, should a tracer have swallowed the signal
}

void waitForSignal(const FileDescriptor& pipeExit) {
    char number = 0;
    if (retryOnInterrupt([&] { return ::read(pipeExit.get(), &number, 1); }) != 1) return;
    wordsToSay.load()();
    endBy(number);
}

bool startWatching() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return false;
    FileDescriptor pipeExit(ends[0]), entry(ends[1]);
    ::fcntl(pipeExit.get(), F_SETFL, 0);  // only the handler must not wait
    try {
        SignalsBlocked forTheThread;
        std::thread([pipeExit = std::move(pipeExit)] { waitForSignal(pipeExit); }).detach();
    } catch (const std::system_error&) {
        return false;
    }
    // A forked child leaves its parent's open, because the handler may be about to use it.
    pipeEntry = entry.release();
    speaking = false;
    watchedProcess = ::getpid();
    return true;
}

void takeOver(int number) {
    struct sigaction current {};
    if (::sigaction(number, nullptr, &current) != 0) return;
    const bool ends = !(current.sa_flags & SA_SIGINFO) &&
                      (current.sa_handler == SIG_DFL || current.sa_handler == passOn);
    if (!ends) return;
    struct sigaction ours {};
    ours.sa_handler = passOn;
    ours.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigemptyset(&ours.sa_mask);
    ::sigaction(number, &ours, nullptr);
}

}  // namespace

bool speakBeforeTermination(void (*lastWords)()) {
    wordsToSay = lastWords;
    if (::getpid() == 1) return true;
    if (watchedProcess.load() != ::getpid() && !startWatching()) return false;
    for (int number : {SIGTERM, SIGINT, SIGHUP})
        takeOver(number);
    return true;
}

}  // namespace corvane::platform
