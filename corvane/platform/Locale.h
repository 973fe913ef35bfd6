// Which conventions (formats, sorting, letter case) and which languages the user has chosen.
#pragma once

#include <compare>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// Names one set of conventions, such as "de_DE". A regular value.
///   Locale("sr_RS.UTF-8@latin").identifier()  is "sr_Latn_RS"
///   Locale("C").identifier()                  is "en_US_POSIX"
class Locale {
  public:
    /// The invariant locale, en_US_POSIX.
    Locale() = default;

    /// Takes the system's names ("de_DE.UTF-8@euro"), language tags ("de-AT") and identifiers with
    /// keywords ("en_US@rg=gbzzzz"). Empty, "C", "POSIX" and unreadable names are the invariant
    /// locale.
    explicit Locale(std::string_view name);

    const std::string& identifier() const { return identifier_; }

    /// The identifier without its keywords.
    std::string_view baseName() const;

    /// The language's two- or three-letter code.
    std::string_view language() const;

    friend bool operator==(const Locale&, const Locale&) = default;
    friend std::strong_ordering operator<=>(const Locale&, const Locale&) = default;

  private:
    std::string identifier_ = "en_US_POSIX";
};

/// The locale of formats and sorting in force: the environment's as it was at the first call,
/// unless a ScopedLocale stands in for it.
const Locale& currentLocale();

/// The user's languages, the most wanted first, as base names of locales; never empty. The
/// environment's as it was at the first call, unless ScopedLanguages stand in for it.
const std::vector<std::string>& preferredLanguages();

/// Gives an environment variable's content; empty where it is not set.
using EnvironmentReader = std::function<std::string(const char* name)>;

/// LC_ALL, else LC_TIME, else LANG.
Locale localeOfEnvironment(const EnvironmentReader& variable);

/// The entries of LANGUAGE, then the locale of LC_ALL, else LC_MESSAGES, else LANG. LANGUAGE counts
/// only where that locale is a real one.
std::vector<std::string> languagesOfEnvironment(const EnvironmentReader& variable);

/// Puts a locale in force for as long as it lives; for tests, and for programs that answer in
/// another one than the user's. On one thread. Scopes nest.
class ScopedLocale {
  public:
    explicit ScopedLocale(Locale locale);
    ~ScopedLocale();
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

  private:
    Locale locale_;
    const Locale* previous_;
};

/// The same for a list of languages.
class ScopedLanguages {
  public:
    explicit ScopedLanguages(std::vector<std::string> languages);
    ~ScopedLanguages();
    ScopedLanguages(const ScopedLanguages&) = delete;
    ScopedLanguages& operator=(const ScopedLanguages&) = delete;

  private:
    std::vector<std::string> languages_;
    const std::vector<std::string>* previous_;
};

}  // namespace corvane::platform
