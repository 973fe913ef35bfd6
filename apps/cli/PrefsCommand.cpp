#include "corvane/platform/UserDefaults.h"
#include "corvane/preferences/HGCorvanePreferences.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/PreferenceText.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <algorithm>

namespace corvane::cli {

namespace {

using Descriptors = EXPreferences::Descriptors;

Descriptors chosen(const EXPreferences& preferences, const std::optional<std::string>& key) {
    if (!key) return preferences.descriptors();
    auto descriptor = preferences.descriptorForKey(*key);
    if (!descriptor) throw WrongUsage(fmt::format("there is no setting '{}'", *key));
    return {std::move(descriptor)};
}

void change(EXPreferences& preferences, const EXPreferenceDescriptor& descriptor,
            const PrefsQuestion& question) {
    std::optional value(descriptor.defaultValue());
    if (question.value) value = preferenceFromText(*question.value, descriptor.type());
    if (!value || !preferences.setValue(descriptor.key(), *value))
        throw WrongUsage(
            fmt::format("'{}' takes {}", descriptor.key(), preferenceSyntax(descriptor.type())));
}

std::string textOf(const EXPreferences& preferences, const Descriptors& descriptors) {
    std::size_t width = 0;
    for (const auto& descriptor : descriptors)
        width = std::max(width, descriptor->key().size());
    std::string text;
    for (const auto& descriptor : descriptors) {
        const auto value = preferenceText(preferences.valueForKey(descriptor->key()));
        text += value.empty() ? descriptor->key() + "\n"
                              : fmt::format("{:<{}}  {}\n", descriptor->key(), width, value);
    }
    return text;
}

}  // namespace

void runPrefs(const PrefsQuestion& question, Format format) {
    auto& defaults = platform::UserDefaults::standard();
    const platform::UserDefaults::Batch oneWrite(defaults);
    auto& preferences = HGCorvanePreferences::sharedPreferences();
    const auto descriptors = chosen(preferences, question.key);
    if (question.value || question.reset) {
        change(preferences, *descriptors[0], question);
        failOn(defaults.synchronize());
    }
    print(format == Format::JSON ? preferencesJson(preferences, descriptors)
          : question.key         ? preferenceText(preferences.valueForKey(*question.key)) + "\n"
                                 : textOf(preferences, descriptors));
}

}  // namespace corvane::cli
