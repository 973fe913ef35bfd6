#include "corvane/platform/Locale.h"

#include <unicode/locid.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace corvane::platform {

namespace {

/// Modifiers of system locale names that stand for a script. The others (a currency, a dialect)
/// change nothing that this library uses.
std::string_view scriptOfModifier(std::string_view modifier) {
    if (modifier == "latin") return "Latn";
    if (modifier == "cyrillic") return "Cyrl";
    if (modifier == "devanagari") return "Deva";
    return {};
}

std::string withScript(std::string_view base, std::string_view script) {
    auto languageEnd = std::min(base.find('_'), base.size());
    std::string result(base.substr(0, languageEnd));
    result.append("_").append(script).append(base.substr(languageEnd));
    return result;
}

/// A system's locale name in the shape that ICU reads.
std::string withoutSystemParts(std::string_view name) {
    auto at = std::min(name.find('@'), name.size());
    auto base = name.substr(0, at);
    auto modifier = name.substr(std::min(at + 1, name.size()));
    base = base.substr(0, base.find('.'));
    if (modifier.find('=') != modifier.npos) return std::string(base) + '@' + std::string(modifier);
    auto script = scriptOfModifier(modifier);
    return script.empty() ? std::string(base) : withScript(base, script);
}

/// ICU also takes "C" and "POSIX" for languages, unknown ones with the world's conventions.
bool isLanguageCode(std::string_view code) {
    auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    return code.size() >= 2 && code.size() <= 3 && std::all_of(code.begin(), code.end(), isLower);
}

std::string environmentVariable(const char* name) {
    const char* content = std::getenv(name);
    return content ? content : "";
}

Locale firstLocaleSet(const EnvironmentReader& variable, std::initializer_list<const char*> names) {
    for (auto name : names) {
        auto content = variable(name);
        if (!content.empty()) return Locale(content);
    }
    return Locale();
}

void appendOnce(std::vector<std::string>& languages, const Locale& locale) {
    std::string name(locale.baseName());
    if (std::find(languages.begin(), languages.end(), name) == languages.end())
        languages.push_back(std::move(name));
}

const Locale*& localeInForce() {
    static const Locale ofEnvironment = localeOfEnvironment(environmentVariable);
    static const Locale* locale = &ofEnvironment;
    return locale;
}

const std::vector<std::string>*& languagesInForce() {
    static const std::vector<std::string> ofEnvironment =
        languagesOfEnvironment(environmentVariable);
    static const std::vector<std::string>* languages = &ofEnvironment;
    return languages;
}

}  // namespace

Locale::Locale(std::string_view name) {
    icu::Locale locale(withoutSystemParts(name).c_str());
    if (!locale.isBogus() && isLanguageCode(locale.getLanguage())) identifier_ = locale.getName();
}

std::string_view Locale::baseName() const {
    return std::string_view(identifier_).substr(0, identifier_.find('@'));
}

std::string_view Locale::language() const {
    return std::string_view(identifier_).substr(0, identifier_.find_first_of("_@"));
}

Locale localeOfEnvironment(const EnvironmentReader& variable) {
    return firstLocaleSet(variable, {"LC_ALL", "LC_TIME", "LANG"});
}

std::vector<std::string> languagesOfEnvironment(const EnvironmentReader& variable) {
    auto locale = firstLocaleSet(variable, {"LC_ALL", "LC_MESSAGES", "LANG"});
    std::vector<std::string> languages;
    auto list = locale == Locale() ? std::string() : variable("LANGUAGE");
    for (std::size_t start = 0; start < list.size();) {
        auto end = std::min(list.find(':', start), list.size());
        if (end > start) appendOnce(languages, Locale(list.substr(start, end - start)));
        start = end + 1;
    }
    appendOnce(languages, locale);
    return languages;
}

const Locale& currentLocale() {
    return *localeInForce();
}

const std::vector<std::string>& preferredLanguages() {
    return *languagesInForce();
}

ScopedLocale::ScopedLocale(Locale locale)
    : locale_(std::move(locale)), previous_(std::exchange(localeInForce(), &locale_)) {}

ScopedLocale::~ScopedLocale() {
    localeInForce() = previous_;
}

ScopedLanguages::ScopedLanguages(std::vector<std::string> languages)
    : languages_(std::move(languages)), previous_(std::exchange(languagesInForce(), &languages_)) {}

ScopedLanguages::~ScopedLanguages() {
    languagesInForce() = previous_;
}

}  // namespace corvane::platform
