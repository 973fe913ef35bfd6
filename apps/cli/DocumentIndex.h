// Finds the records of a document by the URIs with which others refer to them.
#pragma once

#include "apps/document/BackupDocument.h"

#include <string_view>
#include <unordered_map>

namespace corvane::cli {

using backup::BackupDocument;

/// For as long as the document stays as it is. Nothing is found for references that lead nowhere.
class DocumentIndex {
  public:
    explicit DocumentIndex(const BackupDocument& document);

    const backup::Contributor* contributor(const backup::Reference& uri) const;
    const backup::Category* category(const backup::Reference& uri) const;
    const backup::Portfolio* portfolio(const backup::Reference& uri) const;

    /// Null for the general project too, which is the same as none.
    const backup::Project* project(const backup::Reference& uri) const;

    /// That of the primary context or, where none is, of the first one.
    const backup::Category* category(const std::vector<backup::Context>& contexts) const;

  private:
    template <class T>
    using ByURI = std::unordered_map<std::string_view, const T*>;

    ByURI<backup::Contributor> contributors_;
    ByURI<backup::Category> categories_;
    ByURI<backup::Portfolio> portfolios_;
    ByURI<backup::Project> projects_;
};

/// Of several, the first one that is marked so; null where none is.
const backup::Project* generalProject(const BackupDocument& document);

/// What the record is called; the empty text where it has no name.
std::string nameOf(const backup::Contributor& contributor);

}  // namespace corvane::cli
