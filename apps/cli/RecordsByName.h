// Finds the records of a document by name, as lists and companions know them, and makes those that
// are missing.
#pragma once

#include "apps/document/BackupDocument.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace corvane::cli {

using backup::BackupDocument;

/// The document must outlive it, and nobody else may add records to it meanwhile. Of records with
/// one name the first counts. A record that is returned stays in place until another one is made.
class RecordsByName {
  public:
    explicit RecordsByName(BackupDocument& document);

    /// The record of that name, and whether it was made only now. The project "a/b" is made in the
    /// portfolio "a", and a category with the color and indicator that its name stands for. The
    /// general project is not among those that are found.
    std::pair<backup::Project&, bool> project(std::string_view name);
    std::pair<backup::Category&, bool> category(std::string_view name);
    std::pair<backup::Portfolio&, bool> portfolio(std::string_view name);
    std::pair<backup::Contributor&, bool> contributor(std::string_view name);

    /// Whether a record has the URI.
    bool knows(const backup::URL& uri) const { return uris_.contains(uri); }
    void add(const backup::Task& task);

  private:
    using ByName = std::unordered_map<std::string, std::size_t>;

    template <class T>
    void learn(const std::vector<T>& records, ByName& names);
    template <class T>
    std::pair<T&, bool> findOrMake(std::vector<T>& records, ByName& names, std::string_view kind,
                                   std::string_view name);

    BackupDocument& document_;
    ByName projects_;
    ByName categories_;
    ByName portfolios_;
    ByName contributors_;
    std::unordered_set<backup::URL> uris_;
};

/// A color that the name always has, and the indicator that has its name; 0 where none has.
std::int16_t colorOfCategory(std::string_view name);
std::int16_t indicatorOfCategory(std::string_view name);

/// The general project as it is in documents of this program.
backup::Project newGeneralProject();

}  // namespace corvane::cli
