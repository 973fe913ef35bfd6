// Reads a backup document from its bytes, which may be anybody's. Functions without state; any
// thread.
#pragma once

#include "apps/document/BackupDocument.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace corvane::backup {

/// Why a document is refused, and where.
struct Problem {
    std::size_t line = 1;    ///< from 1
    std::size_t column = 1;  ///< from 1, in characters
    std::string message;     ///< one line, without a final stop

    /// "12:34: not well-formed (invalid token)"
    std::string text() const;
};

/// What a document may have at the most: beyond any honest one. Without limits a small file could
/// ask for any amount of memory.
struct DocumentLimits {
    std::size_t bytes = std::size_t{256} << 20;
    std::size_t elements = 4'000'000;
    std::size_t records = 500'000;
};

/// The whole document or, where anything about it is not as it must be, none of it. What this
/// version does not know is no problem: it is kept.
///
/// Refused besides what is malformed: anything but UTF-8; document type declarations, and with them
/// entities of the document's own and files that it could name; nesting below the 64th element;
/// more than the limits.
std::variant<BackupDocument, Problem> readBackupDocument(std::string_view bytes,
                                                         const DocumentLimits& limits = {});

}  // namespace corvane::backup
