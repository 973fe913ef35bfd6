// A form as people and scripts read it, and its values as users type them. docs/cli.md tells both
// forms.
#pragma once

#include "apps/cli/TaskDetailModel.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane::cli {

/// A line for each field: the name by which it is set, its label, and its value or what stands in
/// for it in brackets. What cannot be set says so.
std::string formText(const TaskDetailModel& form);
std::string formJson(const TaskDetailModel& form);

/// The field of the sections with the key, in full or without "Raw"; none for no such field.
std::optional<platform::IndexPath> fieldNamed(const TaskDetailModel& form, std::string_view name);

/// Whether the form shows such a field below its sections, where nothing is set.
bool isFooterField(const TaskDetailModel& form, std::string_view name);

/// What the text means in the field; null for the empty text. Choices go by their titles or by
/// their names in documents. Throws a Failure for what is no value of the field.
EXValue valueFromText(const TaskDetailModel& form, const platform::IndexPath& field,
                      const std::string& text);

}  // namespace corvane::cli
