// An application's settings as typed fields of one object, over the settings that the platform
// keeps for the user. An application derives a class with its own fields. Used by one thread,
// normally the main one.
#pragma once

#include "corvane/preferences/EXPreferenceDescriptor.h"
#include "corvane/preferences/EXPreferenceField.h"

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Posted on the default notification centre with the preferences object as the sender; the user
/// info has the setting's key, without the prefix, under the other name.
inline constexpr std::string_view EXPreferencesDidChangeUserPreferenceNotification =
    "EXPreferencesDidChangeUserPreferenceNotification";
inline constexpr std::string_view EXPreferencesDidChangeUserPreferenceNotificationKey =
    "EXPreferencesDidChangeUserPreferenceNotificationKey";

/// A setting is a field and a descriptor of the same name. Every assignment to such a field is
/// stored at once, in platform::UserDefaults::standard(), and then announced; so are those that
/// load the fields, whence after a load every setting with a value, a default too, is stored as the
/// user's. What another process changes meanwhile is not overwritten by that. A field without a
/// descriptor is neither stored nor loaded. A load writes a line for every setting to the console,
/// for developers.
///
///     class ListPreferences : public EXPreferences {
///       public:
///         using EXPreferences::EXPreferences;
///         EXPreferenceField<bool> showDone{this, "showDone"};
///
///       protected:
///         void setupDescriptors() override { registerBoolPreferenceWithKey("showDone", true); }
///     };
///
///     auto& preferences = EXPreferences::sharedPreferences<ListPreferences>();
///     preferences.showDone()            // true
///     preferences.showDone = false;     // stored, and announced
class EXPreferences {
  public:
    /// What only the functions below have to give to a constructor: a new object is of no use
    /// before its settings are declared and loaded, which its class decides upon.
    class Creation {
        friend class EXPreferences;
        Creation() = default;
    };
    explicit EXPreferences(Creation) {}
    EXPreferences(const EXPreferences&) = delete;
    EXPreferences& operator=(const EXPreferences&) = delete;
    virtual ~EXPreferences() = default;

    /// The one object of the process. The first call makes it, of the class that it names, and
    /// loads it; any thread, but observers of the load may ask on this one, and see the fields as
    /// far as they are loaded. Throws std::invalid_argument where it is not of the class named.
    template <std::derived_from<EXPreferences> Preferences = EXPreferences>
    static Preferences& sharedPreferences() {
        auto& shared = sharedInstance([]() -> std::unique_ptr<EXPreferences> {
            return std::make_unique<Preferences>(Creation());
        });
        auto* preferences = dynamic_cast<Preferences*>(&shared);
        if (!preferences)
            throw std::invalid_argument("the shared preferences are of another class");
        return *preferences;
    }

    /// An object of one's own: declares the settings, registers their defaults and loads them.
    template <std::derived_from<EXPreferences> Preferences>
    static std::unique_ptr<Preferences> create() {
        auto preferences = std::make_unique<Preferences>(Creation());
        preferences->EXPreferences::init();
        return preferences;
    }

    using Descriptors = std::vector<std::shared_ptr<const EXPreferenceDescriptor>>;

    /// In the order in which they were declared.
    const Descriptors& descriptors() const { return descriptors_; }

    /// Null where the key is not that of a setting.
    std::shared_ptr<const EXPreferenceDescriptor> descriptorForKey(std::string_view key) const;

    // Fields by name, of settings and others.

    /// None also where there is no such field.
    EXPreferenceValue valueForKey(std::string_view key) const;

    /// Assigns as the field itself does; false where there is no such field, and for a value that
    /// it cannot take.
    bool setValue(std::string_view key, const EXPreferenceValue& value);

    std::string userDefaultKeyForPreferenceKey(std::string_view key) const;

    /// What is stored for a value: a dictionary for rectangles and key combinations, else the
    /// value.
    EXValue userDefaultValueForPreferenceValue(const EXPreferenceValue& value,
                                               const EXPreferenceDescriptor& descriptor) const;
    EXPreferenceValue preferenceValueForUserDefaultValue(
        const EXValue& value, const EXPreferenceDescriptor& descriptor) const;

    /// Reads anew what is stored, by other processes too, and loads it.
    void reloadUserPreferences();

    /// Assigns every setting what the user's settings have for it, else its default. So does what
    /// is stored under the key but cannot be a value of its type, which is reported.
    void loadUserPreferences();

  protected:
    /// Declares the settings.
    virtual void setupDescriptors() {}

    /// What stands in front of every key in the user's settings, with any separator.
    virtual std::optional<std::string> keyPrefixForUserDefaults() const { return std::nullopt; }

    using Text = std::optional<std::string>;
    void registerBoolPreferenceWithKey(std::string_view key, bool defaultValue);
    void registerIntPreferenceWithKey(std::string_view key, std::int64_t defaultValue);
    void registerUIntPreferenceWithKey(std::string_view key, std::uint64_t defaultValue);
    void registerStringPreferenceWithKey(std::string_view key, const Text& defaultValue);
    void registerDictionaryPreferenceWithKey(
        std::string_view key, const std::optional<EXPreferenceDictionary>& defaultValue);
    void registerRectPreferenceWithKey(std::string_view key,
                                       const std::optional<EXPreferenceRect>& defaultValue);
    void registerKeyComboPreferenceWithKey(std::string_view key,
                                           const std::optional<EXPreferenceKeyCombo>& defaultValue);

    /// A key that is taken is reported and the first declaration stays. Throws
    /// std::invalid_argument where there is no field of that name.
    void addDescriptor(std::shared_ptr<const EXPreferenceDescriptor> descriptor);

    /// Tells the user's settings what to answer for keys that the user never set.
    void registerDefaultValues() const;

  private:
    friend class EXPreferenceAnyField;

    static EXPreferences& sharedInstance(std::unique_ptr<EXPreferences> (*make)());
    void init();
    void addField(EXPreferenceAnyField& field);
    EXPreferenceAnyField* fieldNamed(std::string_view name) const;
    void requireStorable(const EXPreferenceAnyField& field, const EXPreferenceValue& value) const;
    void fieldDidChange(const EXPreferenceAnyField& field);
    void load(const EXPreferenceDescriptor& descriptor);

    Descriptors descriptors_;
    std::map<std::string, EXPreferenceAnyField*, std::less<>> fields_;
    bool assignsWhatWasRead_ = false;
};

}  // namespace corvane
