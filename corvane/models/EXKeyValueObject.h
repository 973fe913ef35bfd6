// What a form edits: an object that answers and takes values by key. The interface through which
// models reach records, wherever those are kept.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include <string_view>

namespace corvane {

/// Belongs to the thread of the model that edits it.
class EXKeyValueObject {
  public:
    virtual ~EXKeyValueObject() = default;

    /// Null for what the object does not have, and for keys that it does not know.
    virtual EXValue valueForKey(std::string_view key) const = 0;

    /// Null clears the value. What the object cannot hold, or knows no key for, changes nothing.
    virtual void setValueForKey(const EXValue& value, std::string_view key) = 0;
};

}  // namespace corvane
