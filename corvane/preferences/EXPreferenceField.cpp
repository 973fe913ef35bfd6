#include "corvane/preferences/EXPreferenceField.h"

#include "corvane/preferences/EXPreferences.h"

namespace corvane {

EXPreferenceAnyField::EXPreferenceAnyField(EXPreferences& owner, std::string_view name)
    : owner_(owner), name_(name) {
    owner_.addField(*this);
}

void EXPreferenceAnyField::requireStorable(const EXPreferenceValue& value) const {
    owner_.requireStorable(*this, value);
}

void EXPreferenceAnyField::didChange() {
    owner_.fieldDidChange(*this);
}

namespace detail {

namespace {

EXPreferenceValue boxedOrNone(const auto& value) {
    return value ? EXPreferenceValue(*value) : EXPreferenceValue();
}

const EXValue* number(const EXPreferenceValue& value) {
    const auto* plain = std::get_if<EXValue>(&value);
    return plain && plain->isNumber() ? plain : nullptr;
}

template <class Object>
bool unboxObject(const EXPreferenceValue& value, std::optional<Object>& target) {
    const auto* object = std::get_if<Object>(&value);
    if (!object && !isNone(value)) return false;
    target = object ? std::optional(*object) : std::nullopt;
    return true;
}

}  // namespace

EXPreferenceValue boxed(bool value) {
    return EXValue(value);
}

EXPreferenceValue boxed(std::uint64_t value) {
    return EXValue(value);
}

EXPreferenceValue boxed(std::int64_t value) {
    return EXValue(value);
}

EXPreferenceValue boxed(const std::optional<std::string>& value) {
    return EXValue(value);
}

EXPreferenceValue boxed(const std::optional<EXPreferenceDictionary>& value) {
    if (!value) return {};
    return EXValue(platform::ValueMap{{value->begin(), value->end()}});
}

EXPreferenceValue boxed(const std::optional<EXPreferenceRect>& value) {
    return boxedOrNone(value);
}

EXPreferenceValue boxed(const std::optional<EXPreferenceKeyCombo>& value) {
    return boxedOrNone(value);
}

bool unbox(const EXPreferenceValue& value, bool& target) {
    if (const auto* plain = number(value)) target = plain->booleanValue();
    return number(value);
}

bool unbox(const EXPreferenceValue& value, std::uint64_t& target) {
    if (const auto* plain = number(value)) target = plain->unsignedValue();
    return number(value);
}

bool unbox(const EXPreferenceValue& value, std::int64_t& target) {
    if (const auto* plain = number(value)) target = plain->integerValue();
    return number(value);
}

bool unbox(const EXPreferenceValue& value, std::optional<std::string>& target) {
    const auto* plain = std::get_if<EXValue>(&value);
    if (!plain || (!plain->text() && !plain->isNull())) return false;
    target = plain->text();
    return true;
}

bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceDictionary>& target) {
    const auto* plain = std::get_if<EXValue>(&value);
    if (!plain || (!plain->map() && !plain->isNull())) return false;
    target.reset();
    if (!plain->map()) return true;
    EXPreferenceDictionary entries;
    for (const auto& [key, item] : plain->map()->items) {
        if (!key.text()) return false;
        entries.emplace(*key.text(), item);
    }
    target = std::move(entries);
    return true;
}

bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceRect>& target) {
    return unboxObject(value, target);
}

bool unbox(const EXPreferenceValue& value, std::optional<EXPreferenceKeyCombo>& target) {
    return unboxObject(value, target);
}

}  // namespace detail

}  // namespace corvane
