// Settings as people type and read them, and as JSON. docs/cli.md tells both forms.
#pragma once

#include "corvane/preferences/EXPreferences.h"

#include <optional>
#include <span>
#include <string>

namespace corvane::cli {

/// On one line; empty for none.
std::string preferenceText(const EXPreferenceValue& value);

/// The value of this type that the text means; none where it means none. Reads what preferenceText
/// gives, but for texts with control characters and dictionaries with dates or data.
std::optional<EXPreferenceValue> preferenceFromText(const std::string& text, EXPreferenceType type);

/// What may be typed for a value of this type.
std::string preferenceSyntax(EXPreferenceType type);

/// One object with the settings' present values by their keys.
std::string preferencesJson(const EXPreferences& preferences,
                            const EXPreferences::Descriptors& descriptors);

}  // namespace corvane::cli
