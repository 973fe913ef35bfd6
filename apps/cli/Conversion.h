// Documents as todo.txt lists, and what of them such a list cannot hold.
#pragma once

#include "apps/document/BackupDocument.h"

#include <string>
#include <vector>

namespace corvane::cli {

struct ConvertedList {
    std::string content;

    /// One line for each record that is not wholly in the list, saying what is missing.
    std::vector<std::string> losses;
};

/// The tasks in the order of the document, one line each.
ConvertedList listOf(const backup::BackupDocument& document);

/// Gives every record with a title or name the key by which it is sorted.
void fillCollations(backup::BackupDocument& document);

}  // namespace corvane::cli
