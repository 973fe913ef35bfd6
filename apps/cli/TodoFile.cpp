#include "apps/cli/TodoFile.h"

#include <algorithm>
#include <variant>

namespace corvane::cli {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The first end of line decides for the file.
std::string_view lineEndOf(std::string_view content) {
    auto feed = content.find('\n');
    bool crlf = feed != content.npos && feed > 0 && content[feed - 1] == '\r';
    return crlf ? "\r\n" : "\n";
}

}  // namespace

TodoFile::TodoFile(std::string_view content) {
    if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
    for (std::size_t number = 1; !content.empty(); ++number) {
        std::size_t length = std::min(content.find('\n'), content.size());
        std::string_view text = content.substr(0, length);
        content.remove_prefix(std::min(length + 1, content.size()));
        if (text.ends_with('\r')) text.remove_suffix(1);
        add(number, text);
    }
}

void TodoFile::add(std::size_t lineNumber, std::string_view text) {
    if (text.find_first_not_of(" \t") == text.npos) return;
    auto parsed = TodoLine::parse(text);
    if (auto* line = std::get_if<TodoLine>(&parsed)) {
        tasks_.push_back({lineNumber, std::string(text), std::move(*line)});
    } else {
        problems_.push_back({lineNumber, std::get<std::string>(parsed)});
    }
}

std::string contentWithLines(std::string content, std::span<const std::string> lines) {
    if (lines.empty()) return content;
    const std::string end(lineEndOf(content));
    if (!content.empty() && content != kByteOrderMark && !content.ends_with('\n')) content += end;
    for (const std::string& line : lines)
        content += line + end;
    return content;
}

}  // namespace corvane::cli
