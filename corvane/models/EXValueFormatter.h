// How the values of a form's field are written, and read from what a user typed. An interface: who
// describes a field brings the formatter for it.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Formatters do not change once a form uses them.
class EXValueFormatter {
  public:
    virtual ~EXValueFormatter() = default;

    /// None for a value of a kind that it does not format.
    virtual std::optional<std::string> stringForValue(const EXValue& value) const = 0;

    /// None for a text that is no such value.
    virtual std::optional<EXValue> valueFromString(std::string_view text) const = 0;
};

}  // namespace corvane
