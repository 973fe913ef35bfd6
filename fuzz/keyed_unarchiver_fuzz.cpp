// Whatever the bytes, the unarchiver gives an object or nothing. Both with the classes of the
// shared container and with records of any class; what was read must also be writable and readable
// again.
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <cstdint>
#include <cstdlib>
#include <span>

using namespace corvane::platform;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    for (const ArchiveClasses* classes :
         {&corvane::sharedArchiveClasses(), &ArchivedRecord::anyClass()}) {
        const Value root = KeyedUnarchiver::unarchiveData(bytes, *classes);
        if (root.isNull()) continue;
        const auto again = KeyedArchiver::archivedData(root);
        if (!again || KeyedUnarchiver::unarchiveData(*again, *classes).isNull()) std::abort();
    }
    return 0;
}
