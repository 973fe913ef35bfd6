// What is declared about a setting: its name, its type, its default. Immutable, held by shared
// pointers.
#pragma once

#include "corvane/preferences/EXPreferenceKeyCombo.h"
#include "corvane/preferences/EXPreferenceRect.h"
#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace corvane {

enum EXPreferenceType : std::uint64_t {
    EXPreferenceTypeBool = 0,
    EXPreferenceTypeUInt = 1,
    EXPreferenceTypeInt = 2,
    EXPreferenceTypeString = 3,
    EXPreferenceTypeDictionary = 4,
    EXPreferenceTypeRect = 5,
    EXPreferenceTypeKeyCombo = 6,
};

/// The value of a setting of any type. None is the null EXValue, which is what a new one holds.
using EXPreferenceValue = std::variant<EXValue, EXPreferenceRect, EXPreferenceKeyCombo>;

inline bool isNone(const EXPreferenceValue& value) {
    return value == EXPreferenceValue();
}

class EXPreferenceDescriptor {
  public:
    EXPreferenceDescriptor(std::string key, EXPreferenceType type, EXPreferenceValue defaultValue)
        : key_(std::move(key)), type_(type), defaultValue_(std::move(defaultValue)) {}
    EXPreferenceDescriptor(const EXPreferenceDescriptor&) = delete;
    EXPreferenceDescriptor& operator=(const EXPreferenceDescriptor&) = delete;

    /// Also the name of the field that has the value.
    const std::string& key() const { return key_; }
    EXPreferenceType type() const { return type_; }
    const EXPreferenceValue& defaultValue() const { return defaultValue_; }

  private:
    const std::string key_;
    const EXPreferenceType type_;
    const EXPreferenceValue defaultValue_;
};

}  // namespace corvane
