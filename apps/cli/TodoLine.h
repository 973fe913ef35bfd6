// One task as a line of a todo.txt file: reading it and writing it. docs/cli.md tells the format.
#pragma once

#include "corvane/dates/EXDateOnly.h"

#include "apps/cli/TaskCodes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace corvane::cli {

/// A regular value.
///
///     parse("(A) Call Bob +house @phone due:2024-03-05")
///         // title "Call Bob", project "house", category "phone", priority 4
///     parse("x 2024-03-01 Paint the door")   // completed, title "2024-03-01 Paint the door"
///     parse("Weigh \\+1 against \\+2")       // title "Weigh +1 against +2", no project
///     parse("@phone due:tomorrow")           // title "due:tomorrow": not a day
///     parse("(B) +house")                    // "no title"
struct TodoLine {
    std::string title;
    std::optional<std::string> project = std::nullopt;
    std::optional<std::string> category = std::nullopt;
    std::optional<std::string> notes = std::nullopt;
    std::optional<EXDateOnly> due = std::nullopt;
    std::int16_t priority = kMediumPriority;
    bool starred = false;
    bool onHold = false;
    bool completed = false;

    /// Takes a line without its line break. Where it is no task, says why.
    static std::variant<TodoLine, std::string> parse(std::string_view line);

    /// The line that reads back as this task. REQUIRES: title and names are as heldTitle and
    /// heldName return them, the notes are not empty, the day exists.
    std::string text() const;

    /// The status code that a line with these fields stands for.
    std::int16_t status() const;

    friend bool operator==(const TodoLine&, const TodoLine&) = default;
};

/// The nearest title that a line can hold: control characters become spaces, and there are none at
/// the ends. May be empty.
std::string heldTitle(std::string_view title);

/// The nearest name of a project or category: white space and control characters become "-".
std::string heldName(std::string_view name);

/// Reads exactly "2024-03-05"; none for anything else, and for a day that does not exist.
std::optional<EXDateOnly> existingDay(std::string_view text);

}  // namespace corvane::cli
