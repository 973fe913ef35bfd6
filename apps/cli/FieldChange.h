// Setting a field of a record to what a user typed.
#pragma once

#include "apps/document/BackupDocument.h"

#include <string>

namespace corvane::cli {

/// Sets the field of the record with the URI: a contributor, category, portfolio, project or task.
/// The field goes by the name of its element, or by that without "Raw"; the "category" of a task or
/// project is its primary one. The empty value clears a field. Throws a Failure for what does not
/// exist, and for a value that is none of the field's.
void setField(backup::BackupDocument& document, const backup::URL& uri, const std::string& field,
              const std::string& value);

}  // namespace corvane::cli
