#include "corvane/platform/StringTable.h"

#include "corvane/platform/TextEncoding.h"

#include <algorithm>
#include <optional>

namespace corvane::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    auto first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<char> escapedCharacter(char letter) {
    switch (letter) {
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case 's':
            return ' ';
        case '\\':
            return '\\';
        default:
            return std::nullopt;
    }
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        if (++i == text.size()) return std::nullopt;
        auto character = escapedCharacter(text[i]);
        if (!character) return std::nullopt;
        result += *character;
    }
    return result;
}

/// Enters one line's entry. Returns what is wrong with the line, or an empty text.
std::string_view readLine(std::string_view line, StringTable::Entries& entries) {
    if (line.empty() || line.front() == '#') return {};
    if (!isUTF8(line)) return "not UTF-8";
    auto equals = line.find('=');
    if (equals == line.npos) return "no \"=\"";
    auto key = trimmed(line.substr(0, equals));
    if (key.empty()) return "no key";
    auto text = unescaped(trimmed(line.substr(equals + 1)));
    if (!text) return "unknown escape";
    if (text->empty()) return "no text";
    bool added = entries.emplace(key, std::move(*text)).second;
    return added ? std::string_view() : "a key used before";
}

}  // namespace

ParsedStringTable StringTable::parse(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    ParsedStringTable result;
    for (int number = 1; !text.empty(); ++number) {
        auto end = std::min(text.find('\n'), text.size());
        auto problem = readLine(trimmed(text.substr(0, end)), result.table.entries_);
        if (!problem.empty()) result.problems.push_back({number, std::string(problem)});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

const std::string* StringTable::find(std::string_view key) const {
    auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

void StringTable::add(const StringTable& other) {
    for (auto& [key, text] : other.entries_)
        entries_.insert_or_assign(key, text);
}

}  // namespace corvane::platform
