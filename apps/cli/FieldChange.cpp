#include "apps/cli/FieldChange.h"

#include "apps/cli/Conversion.h"
#include "apps/cli/Failure.h"
#include "apps/cli/FieldText.h"
#include "apps/cli/RecordObject.h"

#include <fmt/format.h>

namespace corvane::cli {

void setField(backup::BackupDocument& document, const backup::URL& uri, const std::string& field,
              const std::string& value) {
    RecordObject record(document, uri);
    if (!record.exists()) {
        throw Failure(fmt::format("there is no record '{}'", uri.absoluteString()));
    }
    const auto* part = record.fieldForKey(field);
    if (!part && !record.isName(field)) {
        throw Failure(fmt::format("a {} has no '{}'", record.kind(), field));
    }
    const EXValue meant = record.isName(field) ? EXValue(value) : valueFromText(*part, value);
    if (const auto complaint = record.complaintAbout(meant, field)) throw Failure(*complaint);
    record.setValueForKey(meant, field);
    fillCollations(document);
}

}  // namespace corvane::cli
