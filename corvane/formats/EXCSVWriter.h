// Exports records as a text file of columns. Without state; any thread. docs/formats/csv.md
// describes the format, whose separators and ends of line are of its own kind.
#pragma once

#include "corvane/formats/EXKeyValueRows.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

inline constexpr std::string_view EXCSVWriterSeparator = ";";

/// The file is exchanged whole: no reader sees half of it, and where writing fails the former one
/// stays. It is not synced to the disk, as what it holds is kept elsewhere.
///
/// A console that shows traces also gets the whole text, in one piece; the records are then asked
/// once more and the text is in memory for as long. Otherwise it is written as it is made.
class EXCSVWriter {
  public:
    EXCSVWriter() = delete;

    using ColumnKeys = std::optional<std::span<const std::string>>;

    /// One line of the keys and one for each record. False without rows, keys or path, and where
    /// the file cannot be written.
    static bool writeKeyValueRows(const EXKeyValueRows* rows, ColumnKeys columnKeys,
                                  const std::optional<std::string>& path);

    /// The same to platform::temporaryDirectory(), as "prefix-2024-03-05.csv" with today's date and
    /// without the prefix's colons. The file's path, or none where it cannot be written; nor can
    /// one whose prefix holds a slash, which would lead elsewhere.
    static std::optional<std::string> pathToTemporaryFileWritingKeyValueRows(
        const EXKeyValueRows* rows, ColumnKeys columnKeys, std::string_view fileNamePrefix);
};

}  // namespace corvane
