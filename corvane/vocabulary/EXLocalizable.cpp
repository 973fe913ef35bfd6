#include "corvane/vocabulary/EXLocalizable.h"

#include "corvane/platform/Files.h"
#include "corvane/platform/TextFolding.h"
#include "corvane/vocabulary/ShippedStrings.h"

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <shared_mutex>

namespace corvane {

namespace {

constexpr std::string_view kReferenceStart = "${";
constexpr char kReferenceEnd = '}';
constexpr std::string_view kFallbackLanguage = "en";

/// "de_AT" gives "de", which gives nothing.
std::string_view parentLanguage(std::string_view language) {
    auto separator = language.rfind('_');
    return separator == language.npos ? std::string_view() : language.substr(0, separator);
}

/// The tables of all languages: those of the library with what the application added.
class StringTables {
  public:
    static StringTables& shared() {
        static StringTables tables;
        return tables;
    }

    void add(std::string_view language, const platform::StringTable& table) {
        std::string name(platform::Locale(language).baseName());
        std::unique_lock lock(mutex_);
        tables_[name].add(table);
        ++revision_;
    }

    std::uint64_t revision() const { return revision_; }

    std::optional<std::string> text(std::string_view key) const {
        std::shared_lock lock(mutex_);
        for (std::string_view language : platform::preferredLanguages())
            if (auto* text = find(language, key)) return *text;
        auto* text = find(kFallbackLanguage, key);
        return text ? std::optional(*text) : std::nullopt;
    }

  private:
    StringTables() {
        for (auto& [language, text] : shippedStrings())
            add(language, platform::StringTable::parse(text).table);
    }

    const std::string* find(std::string_view language, std::string_view key) const {
        for (; !language.empty(); language = parentLanguage(language)) {
            auto table = tables_.find(language);
            if (table == tables_.end()) continue;
            if (auto* text = table->second.find(key)) return text;
        }
        return nullptr;
    }

    mutable std::shared_mutex mutex_;
    std::map<std::string, platform::StringTable, std::less<>> tables_;
    std::atomic<std::uint64_t> revision_ = 0;
};

platform::Error errorOfProblems(const std::string& path,
                                const std::vector<platform::StringTableProblem>& problems) {
    auto& first = problems.front();
    auto message = path + ", line " + std::to_string(first.line) + ": " + first.message;
    if (problems.size() > 1)
        message += " (the first of " + std::to_string(problems.size()) + " bad lines)";
    return {"strings", first.line, std::move(message)};
}

}  // namespace

std::string EXLocalizable::localize(std::string_view key) {
    return localize(key, key);
}

std::string EXLocalizable::localize(std::string_view key, std::string_view defaultValue) {
    auto text = StringTables::shared().text(key);
    return text ? *std::move(text) : std::string(defaultValue.empty() ? key : defaultValue);
}

std::string EXLocalizable::localizableNameForKey(std::string_view key) {
    std::string name(kReferenceStart);
    return name.append(key) += kReferenceEnd;
}

std::optional<std::string> EXLocalizable::keyFromLocalizableName(std::string_view name) {
    constexpr auto kFrame = kReferenceStart.size() + 1;
    bool isReference =
        name.size() > kFrame && name.starts_with(kReferenceStart) && name.ends_with(kReferenceEnd);
    if (!isReference) return std::nullopt;
    return std::string(name.substr(kReferenceStart.size(), name.size() - kFrame));
}

std::string EXLocalizable::localizeName(std::string_view name) {
    auto key = keyFromLocalizableName(name);
    return key ? localize(std::string_view(*key)) : std::string(name);
}

std::string EXLocalizable::collationForString(std::string_view text) {
    return collationForString(text, platform::currentLocale());
}

std::string EXLocalizable::collationForString(std::string_view text,
                                              const platform::Locale& locale) {
    return platform::foldedForCollation(text, locale);
}

std::string EXLocalizable::collationByLocalizing(std::string_view key) {
    return collationForString(std::string_view(localize(key)));
}

std::vector<platform::StringTableProblem> EXLocalizable::addStringTable(std::string_view language,
                                                                        std::string_view text) {
    auto parsed = platform::StringTable::parse(text);
    StringTables::shared().add(language, parsed.table);
    return std::move(parsed.problems);
}

std::optional<platform::Error> EXLocalizable::addStringTableFromFile(std::string_view language,
                                                                     const std::string& path) {
    platform::Error error;
    auto text = platform::readTextFile(path, &error);
    if (!text) return error;
    auto problems = addStringTable(language, *text);
    return problems.empty() ? std::nullopt : std::optional(errorOfProblems(path, problems));
}

std::uint64_t EXLocalizable::stringTablesRevision() {
    return StringTables::shared().revision();
}

}  // namespace corvane
