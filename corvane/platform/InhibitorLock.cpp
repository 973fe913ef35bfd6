#include "corvane/platform/InhibitorLock.h"

#include "corvane/platform/SystemdLibrary.h"
#include "corvane/platform/TextEncoding.h"

#include <algorithm>
#include <errno.h>  // program_invocation_short_name
#include <memory>

namespace corvane::platform {

namespace {

using Outcome = Inhibition::Outcome;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr const char* kService = "org.freedesktop.login1";
constexpr const char* kObject = "/org/freedesktop/login1";
constexpr const char* kInterface = "org.freedesktop.login1.Manager";
constexpr const char* kWhat = "sleep:shutdown";

/// A bus ends the connection over text that is not UTF-8.
const char* sendable(const char* text) {
    return isUTF8(text) ? text : "";
}

/// One connection to the system bus, for one thread.
class SystemBus {
  public:
    SystemBus(const SystemdLibrary& library, SteadyTime deadline)
        : library_(library), deadline_(deadline) {
        if (library_.openSystem(&bus_) < 0) bus_ = nullptr;
    }
    ~SystemBus() {
        if (bus_) library_.closeUnref(bus_);
    }
    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;

    /// 0 or a negative error number. The library's own calls would wait for a silent bus for more
    /// than a minute.
    int connect() {
        if (!bus_) return -ENOTCONN;
        while (true) {
            const int ready = library_.isReady(bus_);
            if (ready != 0) return std::min(ready, 0);
            if (timeLeft() == 0) return -ETIMEDOUT;
            const int processed = library_.process(bus_, nullptr);
            if (processed < 0) return processed;
            if (processed > 0) continue;
            const int waited = library_.wait(bus_, timeLeft());
            if (waited < 0 && waited != -EINTR) return waited;
        }
    }

    /// 0 or a negative error number. REQUIRES: a connection.
    int inhibit(const char* reason, const char* mode, FileDescriptor& lock) {
        Message call(*this);
        int result =
            library_.newMethodCall(bus_, &call.message, kService, kObject, kInterface, "Inhibit");
        if (result < 0) return result;
        result = library_.append(call.message, "ssss", kWhat,
                                 sendable(program_invocation_short_name), reason, mode);
        if (result < 0) return result;
        if (timeLeft() == 0) return -ETIMEDOUT;  // 0 would be the library's own timeout
        Message reply(*this);
        result = library_.call(bus_, call.message, timeLeft(), nullptr, &reply.message);
        if (result < 0) return result;
        int descriptor = -1;  // the reply's
        result = library_.read(reply.message, "h", &descriptor);
        if (result < 0) return result;
        lock = FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
        return lock ? 0 : -errno;
    }

  private:
    struct Message {
        explicit Message(const SystemBus& bus) : library(bus.library_) {}
        ~Message() { library.messageUnref(message); }
        Message(const Message&) = delete;
        Message& operator=(const Message&) = delete;

        const SystemdLibrary& library;
        sd_bus_message* message = nullptr;
    };

    /// In microseconds.
    std::uint64_t timeLeft() const {
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            deadline_ - std::chrono::steady_clock::now());
        return static_cast<std::uint64_t>(std::max<std::int64_t>(left.count(), 0));
    }

    const SystemdLibrary& library_;
    const SteadyTime deadline_;
    sd_bus* bus_ = nullptr;
};

bool isRefusal(int result) {
    return result == -EACCES || result == -EPERM;
}

}  // namespace

Inhibition takeInhibitorLock(const std::string& reason, std::chrono::microseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    Inhibition inhibition;
    const SystemdLibrary* library = SystemdLibrary::loaded();
    if (!library) return inhibition;
    SystemBus bus(*library, deadline);
    int result = bus.connect();
    if (result == 0) {
        const char* why = sendable(reason.c_str());
        result = bus.inhibit(why, "block", inhibition.lock);
        if (isRefusal(result)) result = bus.inhibit(why, "delay", inhibition.lock);
    }
    if (result == 0) inhibition.outcome = Outcome::Held;
    if (result == -ETIMEDOUT) inhibition.outcome = Outcome::NoAnswer;
    return inhibition;
}

}  // namespace corvane::platform
