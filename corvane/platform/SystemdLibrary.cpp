#include "corvane/platform/SystemdLibrary.h"

#include <dlfcn.h>

namespace corvane::platform {

namespace {

template <class Function>
bool find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(::dlsym(library, name));
    return function;
}

const SystemdLibrary* load() {
    void* library = ::dlopen("libsystemd.so.0", RTLD_LAZY | RTLD_LOCAL);
    static SystemdLibrary table;
    const bool complete = library && find(library, "sd_bus_open_system", table.openSystem) &&
                          find(library, "sd_bus_close_unref", table.closeUnref) &&
                          find(library, "sd_bus_is_ready", table.isReady) &&
                          find(library, "sd_bus_process", table.process) &&
                          find(library, "sd_bus_wait", table.wait) &&
                          find(library, "sd_bus_message_new_method_call", table.newMethodCall) &&
                          find(library, "sd_bus_message_append", table.append) &&
                          find(library, "sd_bus_message_read", table.read) &&
                          find(library, "sd_bus_message_unref", table.messageUnref) &&
                          find(library, "sd_bus_call", table.call);
    return complete ? &table : nullptr;
}

}  // namespace

const SystemdLibrary* SystemdLibrary::loaded() {
    static const SystemdLibrary* const library = load();
    return library;
}

}  // namespace corvane::platform
