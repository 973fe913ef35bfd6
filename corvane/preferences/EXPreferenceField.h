// A field of a preferences object: a typed value that tells the object when it is assigned.
#pragma once

#include "corvane/preferences/EXPreferenceDescriptor.h"

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace corvane {

class EXPreferences;

using EXPreferenceDictionary = std::map<std::string, EXValue, std::less<>>;

/// A field by its name, whatever its type.
class EXPreferenceAnyField {
  public:
    EXPreferenceAnyField(const EXPreferenceAnyField&) = delete;
    EXPreferenceAnyField& operator=(const EXPreferenceAnyField&) = delete;

    const std::string& name() const { return name_; }

    virtual EXPreferenceValue boxedValue() const = 0;

    /// Assigns, and returns true; false for a value that the field's type cannot take. Fields of
    /// numbers take every number, as EXValue reads it; none is for those of other types alone.
    virtual bool setBoxedValue(const EXPreferenceValue& value) = 0;

  protected:
    EXPreferenceAnyField(EXPreferences& owner, std::string_view name);
    ~EXPreferenceAnyField() = default;

    void requireStorable(const EXPreferenceValue& value) const;
    void didChange();

  private:
    EXPreferences& owner_;
    const std::string name_;
};

namespace detail {

// The types of fields. A value that is of another kind unboxes to false and leaves the target.
EXPreferenceValue boxed(bool value);
EXPreferenceValue boxed(std::uint64_t value);
EXPreferenceValue boxed(std::int64_t value);
EXPreferenceValue boxed(const std::optional<std::string>& value);
EXPreferenceValue boxed(const std::optional<EXPreferenceDictionary>& value);
EXPreferenceValue boxed(const std::optional<EXPreferenceRect>& value);
EXPreferenceValue boxed(const std::optional<EXPreferenceKeyCombo>& value);
bool unbox(const EXPreferenceValue& value, bool& target);
bool unbox(const EXPreferenceValue& value, std::uint64_t& target);
bool unbox(const EXPreferenceValue& value, std::int64_t& target);
bool unbox(const EXPreferenceValue& value, std::optional<std::string>& target);
bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceDictionary>& target);
bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceRect>& target);
bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceKeyCombo>& target);

}  // namespace detail

/// T is bool, std::uint64_t, std::int64_t, or std::optional of std::string, EXPreferenceDictionary,
/// EXPreferenceRect or EXPreferenceKeyCombo. A member of the preferences object, read like a getter
/// and set like a variable:
///
///     if (!preferences.showInspector()) preferences.showInspector = true;
template <class T>
class EXPreferenceField final : public EXPreferenceAnyField {
  public:
    /// 0, false or none at first. Throws std::invalid_argument where the owner has a field of that
    /// name.
    EXPreferenceField(EXPreferences* owner, std::string_view name)
        : EXPreferenceAnyField(*owner, name) {}

    const T& operator()() const { return value_; }

    /// What is assigned is stored and announced if the field is a setting (EXPreferences.h). Throws
    /// std::invalid_argument, and keeps its value, for one that no settings file can hold.
    template <std::convertible_to<T> U = T>
    requires(!std::same_as<T, bool> ||
             std::same_as<std::remove_cvref_t<U>, bool>) EXPreferenceField&
    operator=(U&& value) {
        assign(std::forward<U>(value));
        return *this;
    }

    EXPreferenceValue boxedValue() const override { return detail::boxed(value_); }
    bool setBoxedValue(const EXPreferenceValue& value) override {
        T unboxed{};
        if (!detail::unbox(value, unboxed)) return false;
        assign(std::move(unboxed));
        return true;
    }

  private:
    void assign(T value) {
        requireStorable(detail::boxed(value));
        value_ = std::move(value);
        didChange();
    }

    T value_{};
};

}  // namespace corvane
