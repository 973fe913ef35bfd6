// A record of a document as forms and commands edit it: values by the names of their fields, and
// other records by their names.
#pragma once

#include "corvane/models/EXKeyValueObject.h"

#include "apps/document/BackupDocument.h"
#include "apps/document/BackupLayout.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane::cli {

/// A key is the name of a field, in full or without "Raw". Projects, portfolios and contributors go
/// by their names, and are made where they are missing; so does "category", the primary one of a
/// task or project.
///
/// Every change is noted with its time, and that of a status once more. The document, which must
/// outlive the object, and the records in it may change otherwise meanwhile.
class RecordObject : public EXKeyValueObject {
  public:
    /// Of the record with the URI.
    RecordObject(backup::BackupDocument& document, backup::URL uri)
        : document_(document), uri_(std::move(uri)) {}
    /// Of a record that is to become one of the document, and must outlive the object too.
    RecordObject(backup::BackupDocument& document, backup::Record& record,
                 const backup::RecordLayout& layout)
        : document_(document), own_(&record, &layout) {}

    bool exists() const { return located().first != nullptr; }
    /// The element of its kind of record; empty where it does not exist.
    std::string_view kind() const;

    /// Null for a key that is none, and for "category".
    const backup::Part* fieldForKey(std::string_view key) const;
    /// Whether the value is the name of another record.
    bool isName(std::string_view key) const;
    /// Why the record cannot do with the value; none where it can.
    std::optional<std::string> complaintAbout(const EXValue& value, std::string_view key) const;

    EXValue valueForKey(std::string_view key) const override;
    /// Ignores a value that is not of the field's kind.
    void setValueForKey(const EXValue& value, std::string_view key) override;

  private:
    using Located = std::pair<backup::Record*, const backup::RecordLayout*>;

    Located located() const;
    bool isCategory(std::string_view key) const;
    EXValue nameOfRecord(const backup::URL& uri) const;
    EXValue categoryName() const;
    void setCategory(const std::string& name);
    EXValue referenceTo(const backup::Part& field, const std::string& name);
    void setField(const backup::Part& field, const EXValue& value);

    backup::BackupDocument& document_;
    const backup::URL uri_;
    const Located own_{};
};

}  // namespace corvane::cli
