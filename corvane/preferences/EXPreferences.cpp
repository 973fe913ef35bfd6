#include "corvane/preferences/EXPreferences.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/NotificationCenter.h"
#include "corvane/platform/UserDefaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <mutex>
#include <utility>

namespace corvane {

namespace {

using platform::UserDefaults;

std::string withoutControls(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
    return line;
}

/// As a line of the console tells it.
std::string description(const EXValue& value) {
    using Kind = EXValue::Kind;
    switch (value.kind()) {
        case Kind::Null:
            return "none";
        case Kind::Boolean:
            return value.booleanValue() ? "true" : "false";
        case Kind::Integer:
            if (value.largeInteger()) return std::to_string(*value.largeInteger());
            return std::to_string(value.integerValue());
        case Kind::Real:
            return fmt::format("{}", value.realValue());
        case Kind::Text:
            return withoutControls(*value.text());
        case Kind::Map:
            return fmt::format("{} entries", value.map()->items.size());
        default:
            return "a value of kind " + std::to_string(static_cast<int>(value.kind()));
    }
}

std::string description(const EXPreferenceValue& value) {
    if (const auto* rect = std::get_if<EXPreferenceRect>(&value)) {
        return fmt::format("({}, {}, {}, {})", rect->x(), rect->y(), rect->width(), rect->height());
    }
    if (const auto* combo = std::get_if<EXPreferenceKeyCombo>(&value))
        return fmt::format("key {} with modifiers {:#x}", combo->code(), combo->modifiers());
    return description(std::get<EXValue>(value));
}

}  // namespace

EXPreferences& EXPreferences::sharedInstance(std::unique_ptr<EXPreferences> (*make)()) {
    // Recursive, because the first load is announced, and observers ask for the object. Neither is
    // ever destroyed.
    static auto* const mutex = new std::recursive_mutex;
    static EXPreferences* shared = nullptr;
    std::lock_guard lock(*mutex);
    if (shared) return *shared;
    auto made = make();
    shared = made.get();
    try {
        made->init();
    } catch (...) {
        shared = nullptr;
        throw;
    }
    return *made.release();
}

void EXPreferences::init() {
    setupDescriptors();
    registerDefaultValues();
    reloadUserPreferences();
}

// Fields ------------------------------------------------------------------------------------------

void EXPreferences::addField(EXPreferenceAnyField& field) {
    const bool isNew = fields_.emplace(field.name(), &field).second;
    if (!isNew) throw std::invalid_argument("there is a field '" + field.name() + "' already");
}

EXPreferenceAnyField* EXPreferences::fieldNamed(std::string_view name) const {
    const auto entry = fields_.find(name);
    return entry == fields_.end() ? nullptr : entry->second;
}

EXPreferenceValue EXPreferences::valueForKey(std::string_view key) const {
    const auto* field = fieldNamed(key);
    return field ? field->boxedValue() : EXPreferenceValue();
}

bool EXPreferences::setValue(std::string_view key, const EXPreferenceValue& value) {
    const auto* plain = std::get_if<EXValue>(&value);
    if (plain && !UserDefaults::canStore(*plain)) return false;
    auto* field = fieldNamed(key);
    return field && field->setBoxedValue(value);
}

// Descriptors -------------------------------------------------------------------------------------

std::shared_ptr<const EXPreferenceDescriptor> EXPreferences::descriptorForKey(
    std::string_view key) const {
    const auto entry =
        std::find_if(descriptors_.begin(), descriptors_.end(),
                     [&](const auto& descriptor) { return descriptor->key() == key; });
    return entry == descriptors_.end() ? nullptr : *entry;
}

void EXPreferences::addDescriptor(std::shared_ptr<const EXPreferenceDescriptor> descriptor) {
    const std::string& key = descriptor->key();
    if (descriptorForKey(key)) {
        platform::currentConsole().writeLine("WARNING: Duplicate preferences key '" + key +
                                             "' -- ignoring redefinition");
        return;
    }
    if (!fieldNamed(key)) throw std::invalid_argument("there is no field '" + key + "'");
    descriptors_.push_back(std::move(descriptor));
}

namespace {

std::shared_ptr<const EXPreferenceDescriptor> descriptorOf(std::string_view key,
                                                           EXPreferenceType type,
                                                           const auto& defaultValue) {
    return std::make_shared<EXPreferenceDescriptor>(std::string(key), type,
                                                    detail::boxed(defaultValue));
}

}  // namespace

void EXPreferences::registerBoolPreferenceWithKey(std::string_view key, bool defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeBool, defaultValue));
}

void EXPreferences::registerIntPreferenceWithKey(std::string_view key, std::int64_t defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeInt, defaultValue));
}

void EXPreferences::registerUIntPreferenceWithKey(std::string_view key,
                                                  std::uint64_t defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeUInt, defaultValue));
}

void EXPreferences::registerStringPreferenceWithKey(std::string_view key,
                                                    const Text& defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeString, defaultValue));
}

void EXPreferences::registerDictionaryPreferenceWithKey(
    std::string_view key, const std::optional<EXPreferenceDictionary>& defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeDictionary, defaultValue));
}

void EXPreferences::registerRectPreferenceWithKey(
    std::string_view key, const std::optional<EXPreferenceRect>& defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeRect, defaultValue));
}

void EXPreferences::registerKeyComboPreferenceWithKey(
    std::string_view key, const std::optional<EXPreferenceKeyCombo>& defaultValue) {
    addDescriptor(descriptorOf(key, EXPreferenceTypeKeyCombo, defaultValue));
}

// The user's settings -----------------------------------------------------------------------------

std::string EXPreferences::userDefaultKeyForPreferenceKey(std::string_view key) const {
    return keyPrefixForUserDefaults().value_or("").append(key);
}

EXValue EXPreferences::userDefaultValueForPreferenceValue(
    const EXPreferenceValue& value, const EXPreferenceDescriptor& descriptor) const {
    if (descriptor.type() == EXPreferenceTypeRect) {
        const auto* rect = std::get_if<EXPreferenceRect>(&value);
        return rect ? EXPreferenceRect::toUserDefaultsDictionary(*rect) : EXValue();
    }
    if (descriptor.type() == EXPreferenceTypeKeyCombo) {
        const auto* combo = std::get_if<EXPreferenceKeyCombo>(&value);
        return combo ? EXPreferenceKeyCombo::toUserDefaultsDictionary(*combo) : EXValue();
    }
    const auto* plain = std::get_if<EXValue>(&value);
    return plain ? *plain : EXValue();
}

EXPreferenceValue EXPreferences::preferenceValueForUserDefaultValue(
    const EXValue& value, const EXPreferenceDescriptor& descriptor) const {
    if (descriptor.type() == EXPreferenceTypeRect) {
        const auto rect = EXPreferenceRect::fromUserDefaultsDictionary(value);
        return rect ? EXPreferenceValue(*rect) : value;
    }
    if (descriptor.type() == EXPreferenceTypeKeyCombo) {
        const auto combo = EXPreferenceKeyCombo::fromUserDefaultsDictionary(value);
        return combo ? EXPreferenceValue(*combo) : value;
    }
    return value;
}

void EXPreferences::registerDefaultValues() const {
    std::map<std::string, EXValue, std::less<>> fallbacks;
    for (const auto& descriptor : descriptors_) {
        if (isNone(descriptor->defaultValue())) continue;
        fallbacks[userDefaultKeyForPreferenceKey(descriptor->key())] =
            userDefaultValueForPreferenceValue(descriptor->defaultValue(), *descriptor);
    }
    UserDefaults::standard().registerFallbacks(fallbacks);
}

void EXPreferences::reloadUserPreferences() {
    UserDefaults::standard().reload();
    loadUserPreferences();
}

void EXPreferences::loadUserPreferences() {
    const UserDefaults::Batch batch(UserDefaults::standard());
    // By index, because observers may declare more.
    for (std::size_t i = 0; i < descriptors_.size(); ++i)
        load(*std::shared_ptr(descriptors_[i]));
}

void EXPreferences::load(const EXPreferenceDescriptor& descriptor) {
    auto& console = platform::currentConsole();
    const std::string& key = descriptor.key();
    const EXValue stored = UserDefaults::standard().value(userDefaultKeyForPreferenceKey(key));
    const auto value = preferenceValueForUserDefaultValue(stored, descriptor);
    console.writeLine("### Loading user preference " + key + " = " + description(value));
    assignsWhatWasRead_ = true;
    if (!setValue(key, value)) {
        console.writeLine("WARNING: the stored user preference '" + key +
                          "' is not of its type; its default applies");
        setValue(key, descriptor.defaultValue());
    }
    assignsWhatWasRead_ = false;
}

// The change observer -----------------------------------------------------------------------------

void EXPreferences::requireStorable(const EXPreferenceAnyField& field,
                                    const EXPreferenceValue& value) const {
    const auto* plain = std::get_if<EXValue>(&value);
    if (!plain || UserDefaults::canStore(*plain)) return;
    throw std::invalid_argument("the value for '" + field.name() + "' cannot be a setting");
}

void EXPreferences::fieldDidChange(const EXPreferenceAnyField& field) {
    // Only the assignment of the load itself: observers' assignments are the user's.
    const bool assignsWhatWasRead = std::exchange(assignsWhatWasRead_, false);
    const auto descriptor = descriptorForKey(field.name());
    if (!descriptor) return;
    const auto value = userDefaultValueForPreferenceValue(field.boxedValue(), *descriptor);
    const auto key = userDefaultKeyForPreferenceKey(field.name());
    auto& defaults = UserDefaults::standard();
    assignsWhatWasRead ? defaults.writeBack(key, value) : defaults.setValue(key, value);
    platform::defaultNotificationCenter().post(
        EXPreferencesDidChangeUserPreferenceNotification, this,
        {{std::string(EXPreferencesDidChangeUserPreferenceNotificationKey), field.name()}});
}

}  // namespace corvane
