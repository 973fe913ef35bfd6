// Finds the text of every word that a user sees, and the key by which such texts are sorted. A
// class of static operations for any thread; nobody makes an object of it.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/StringTable.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A key is looked up in the tables of the user's languages in turn ("de_AT", then "de"), then in
/// English. Tables for English and German come with the library; an application adds its own.
class EXLocalizable {
  public:
    EXLocalizable() = delete;

    /// The key's text; the key itself where no table has it.
    static std::string localize(std::string_view key);

    /// The key's text; the default where no table has it. An empty default stands for the key.
    static std::string localize(std::string_view key, std::string_view defaultValue);

    /// The way a stored setting refers to a translation: "Inbox" gives "${Inbox}".
    static std::string localizableNameForKey(std::string_view key);

    /// "${Inbox}" gives "Inbox"; none for a name that is no reference, "${}" included.
    static std::optional<std::string> keyFromLocalizableName(std::string_view name);

    /// The translation that the name refers to, or the name itself where it is no reference.
    static std::string localizeName(std::string_view name);

    /// The key by which the text is sorted and searched: without accents, in lower case.
    static std::string collationForString(std::string_view text);
    static std::string collationForString(std::string_view text, const platform::Locale& locale);
    static std::string collationByLocalizing(std::string_view key);

    // The same for a text that may be absent: absent text gives absent text.
    template <std::same_as<std::optional<std::string>> Text>
    static Text localize(const Text& key) {
        return key ? Text(localize(*key)) : Text();
    }
    template <std::same_as<std::optional<std::string>> Text>
    static Text localizeName(const Text& name) {
        return name ? Text(localizeName(*name)) : Text();
    }
    template <std::same_as<std::optional<std::string>> Text>
    static Text collationForString(const Text& text) {
        return text ? Text(collationForString(*text)) : Text();
    }

    /// Adds the entries of a table (docs/formats/string-tables.md) to a language, such as "fr" or
    /// "de_AT", in place of entries of the same keys. Returns the lines that were passed over.
    /// Choice lists keep the titles they were built with, so add tables before their first use.
    static std::vector<platform::StringTableProblem> addStringTable(std::string_view language,
                                                                    std::string_view text);

    /// The same for a file. The error says why the file cannot be read, or names the first line
    /// that was passed over; the other lines count nevertheless.
    static std::optional<platform::Error> addStringTableFromFile(std::string_view language,
                                                                 const std::string& path);

    /// Another number after each table added: for whoever keeps texts that it has looked up.
    static std::uint64_t stringTablesRevision();
};

}  // namespace corvane
