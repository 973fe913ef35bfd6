// The lines of a todo.txt file: which are tasks, which cannot be used, and how lines are added.
#pragma once

#include "apps/cli/TodoLine.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

/// A value made of a file's content. Lines end with LF or CRLF, the last one may go without; blank
/// lines count but are nothing.
class TodoFile {
  public:
    struct Task {
        std::size_t lineNumber;  ///< from 1
        std::string text;        ///< the bytes of the line, without its end
        TodoLine line;
    };

    /// A line that is kept in the file, but is no task.
    struct Problem {
        std::size_t lineNumber;
        std::string reason;
    };

    explicit TodoFile(std::string_view content);

    const std::vector<Task>& tasks() const { return tasks_; }
    const std::vector<Problem>& problems() const { return problems_; }

  private:
    void add(std::size_t lineNumber, std::string_view text);

    std::vector<Task> tasks_;
    std::vector<Problem> problems_;
};

/// The content with the lines after it, ended as the content ends its lines. What was there stays
/// as it is, byte for byte; a last line without end gets one.
std::string contentWithLines(std::string content, std::span<const std::string> lines);

}  // namespace corvane::cli
