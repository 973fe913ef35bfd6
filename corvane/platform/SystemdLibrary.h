// The functions of libsystemd that this layer calls. The library is loaded when first asked for:
// linked, it would cost every companion half a millisecond at its start. Not for use outside the
// platform layer.
#pragma once

#include <systemd/sd-bus.h>

namespace corvane::platform {

struct SystemdLibrary {
    decltype(&::sd_bus_open_system) openSystem = nullptr;
    decltype(&::sd_bus_close_unref) closeUnref = nullptr;
    decltype(&::sd_bus_is_ready) isReady = nullptr;
    decltype(&::sd_bus_process) process = nullptr;
    decltype(&::sd_bus_wait) wait = nullptr;
    decltype(&::sd_bus_message_new_method_call) newMethodCall = nullptr;
    decltype(&::sd_bus_message_append) append = nullptr;
    decltype(&::sd_bus_message_read) read = nullptr;
    decltype(&::sd_bus_message_unref) messageUnref = nullptr;
    decltype(&::sd_bus_call) call = nullptr;

    /// Null where the system has no such library. It stays loaded until the process ends.
    static const SystemdLibrary* loaded();
};

}  // namespace corvane::platform
