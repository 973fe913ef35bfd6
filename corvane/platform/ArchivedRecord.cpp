#include "corvane/platform/ArchivedRecord.h"

#include "corvane/platform/KeyedArchiver.h"

#include <memory>

namespace corvane::platform {

ArchivedRecord::ArchivedRecord(KeyedUnarchiver& coder)
    : className_(coder.className()), fields_(coder.decodeFields()) {}

void ArchivedRecord::encodeWithCoder(KeyedArchiver& coder) const {
    for (const Field& field : fields_)
        coder.encodeField(field.key.view(), field.value, field.isInline);
}

const ArchiveClasses& ArchivedRecord::anyClass() {
    static const ArchiveClasses classes = ArchiveClasses().addFallback(
        [](KeyedUnarchiver& coder) { return Value(std::make_shared<ArchivedRecord>(coder)); });
    return classes;
}

}  // namespace corvane::platform
