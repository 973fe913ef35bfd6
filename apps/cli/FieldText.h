// The values of a record's fields as users type them.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include "apps/document/BackupLayout.h"

#include <string>

namespace corvane::cli {

/// What the text means in the field, which is no reference; null for the empty text. Throws a
/// Failure for a text that is no value of the field's type.
EXValue valueFromText(const backup::Part& field, const std::string& text);

}  // namespace corvane::cli
