// Which elements a record has, in the order of writing: the one table that reader and writer share.
#pragma once

#include "corvane/formats/EXXMLType.h"
#include "corvane/toolkit/EXValue.h"

#include "apps/document/BackupDocument.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace corvane::backup {

// Names of this layout besides those of the vocabulary. A file format: none of them ever changes.
inline constexpr std::string_view kRootElement = "backup";
inline constexpr std::string_view kVersionAttribute = "version";
inline constexpr std::string_view kVersion = "1";
inline constexpr std::string_view kURIAttribute = "uri";
inline constexpr std::string_view kEscapeAttribute = "escape";  ///< how text is escaped
inline constexpr std::string_view kBackslashEscape = "backslash";
inline constexpr std::string_view kCodeAttribute = "code";  ///< of a code without a name

/// Deeper nesting is nobody's honest document.
inline constexpr std::size_t kDeepestNesting = 64;

struct RecordLayout;

/// A field or a collection of a kind of record.
struct Part {
    std::string_view name;

    // Of a field. Absent values are null; `set` takes null and values of the field's own kind.
    EXXMLType type = EXXMLTypeUndefined;
    const EXXMLMapping& (*mapping)() = nullptr;
    EXValue (*get)(const Record& owner) = nullptr;
    void (*set)(Record& owner, const EXValue& value) = nullptr;

    // Of a collection.
    const RecordLayout* records = nullptr;
    Record& (*add)(Record& owner) = nullptr;
    std::size_t (*count)(const Record& owner) = nullptr;
    const Record& (*at)(const Record& owner, std::size_t index) = nullptr;

    bool isCollection() const { return records != nullptr; }
};

enum class Identity { None, Optional, Required };

struct RecordLayout {
    std::string_view element;
    Identity identity;
    std::span<const Part> parts;
};

/// That of BackupDocument, which leads to all others.
const RecordLayout& documentLayout();

/// The contributor, category, portfolio, project or task with the URI; null where there is none.
std::pair<Record*, const RecordLayout*> findRecord(BackupDocument& document, const URL& uri);

/// Gives a field a value, also in place of a name that this version does not know.
void setField(Record& record, const RecordLayout& layout, std::size_t part, const EXValue& value);

/// What is unknown at a part of the record; null for nothing.
const Unknown* unknownOfPart(const Record& record, std::size_t part);

/// Whether the part has an element in the document.
bool isWritten(const Record& record, const RecordLayout& layout, std::size_t part);

/// Whether the value comes back from the text that is written for it. Days before the year 0 do
/// not: of those only the year can be told.
bool comesBack(const EXValue& value);

}  // namespace corvane::backup
