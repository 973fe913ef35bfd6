// The texts of one language, each under its key. The format is described in
// docs/formats/string-tables.md.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// A line of a table's text that was passed over.
struct StringTableProblem {
    int line = 0;  ///< Counted from 1.
    std::string message;

    friend bool operator==(const StringTableProblem&, const StringTableProblem&) = default;
};

struct ParsedStringTable;

/// A regular value.
class StringTable {
  public:
    using Entries = std::map<std::string, std::string, std::less<>>;

    /// Reads a table's text. Lines that cannot be read are passed over and reported; every other
    /// line counts.
    static ParsedStringTable parse(std::string_view text);

    /// The text under the key, or null.
    const std::string* find(std::string_view key) const;

    /// Takes over all entries of `other`, also in place of entries already here.
    void add(const StringTable& other);

    const Entries& entries() const { return entries_; }

  private:
    Entries entries_;
};

struct ParsedStringTable {
    StringTable table;
    std::vector<StringTableProblem> problems;  ///< In the order of the lines.
};

}  // namespace corvane::platform
