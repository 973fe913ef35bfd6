#include "apps/cli/TodoLine.h"

#include "corvane/platform/TextEncoding.h"

#include "apps/cli/PercentText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

namespace corvane::cli {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kCompletedMark = "x ";
constexpr std::string_view kOnHoldWord = "@waiting";
constexpr std::string_view kStarWord = "star:1";
constexpr std::string_view kDueKey = "due:";
constexpr std::string_view kNotesKey = "note:";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kEscape = '\\';

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

/// What a word of a line stands for.
enum class Field { Title, Project, Category, OnHold, Due, Star, Notes };

Field fieldOf(std::string_view word) {
    if (word == kOnHoldWord) return Field::OnHold;
    if (word == kStarWord) return Field::Star;
    if (word.size() > 1 && word[0] == '+') return Field::Project;
    if (word.size() > 1 && word[0] == '@') return Field::Category;
    if (word.starts_with(kDueKey) && existingDay(word.substr(kDueKey.size()))) return Field::Due;
    if (word.starts_with(kNotesKey) && word.size() > kNotesKey.size() &&
        percentDecoded(word.substr(kNotesKey.size()))) {
        return Field::Notes;
    }
    return Field::Title;
}

/// Whether the word is a title's word that only its backslashes keep from being a field.
bool isEscaped(std::string_view word) {
    auto start = word.find_first_not_of(kEscape);
    return start != 0 && start != word.npos && fieldOf(word.substr(start)) != Field::Title;
}

bool has(const TodoLine& line, Field field) {
    switch (field) {
        case Field::Project:
            return line.project.has_value();
        case Field::Category:
            return line.category.has_value();
        case Field::OnHold:
            return line.onHold;
        case Field::Due:
            return line.due.has_value();
        case Field::Star:
            return line.starred;
        case Field::Notes:
            return line.notes.has_value();
        case Field::Title:
            return true;
    }
    return true;
}

void take(TodoLine& line, Field field, std::string_view word) {
    switch (field) {
        case Field::Project:
            line.project = word.substr(1);
            break;
        case Field::Category:
            line.category = word.substr(1);
            break;
        case Field::OnHold:
            line.onHold = true;
            break;
        case Field::Due:
            line.due = existingDay(word.substr(kDueKey.size()));
            break;
        case Field::Star:
            line.starred = true;
            break;
        case Field::Notes:
            line.notes = percentDecoded(word.substr(kNotesKey.size()));
            break;
        case Field::Title:
            break;
    }
}

/// "(A) " at the front, for A to Z; the letter is taken off the text.
std::optional<char> takePriorityLetter(std::string_view& text) {
    bool found = text.size() > 3 && text[0] == '(' && text[1] >= 'A' && text[1] <= 'Z' &&
                 text[2] == ')' && text[3] == ' ';
    if (!found) return std::nullopt;
    char letter = text[1];
    text.remove_prefix(4);
    return letter;
}

std::int16_t priorityOfLetter(char letter) {
    return static_cast<std::int16_t>(std::max(0, kHighestPriority - (letter - 'A')));
}

std::string priorityMark(std::int16_t priority) {
    return {'(', static_cast<char>('A' + kHighestPriority - priority), ')', ' '};
}

/// Calls `each(blanks, word)` for the words of the text with the blanks before them.
template <class Each>
void forEachWord(std::string_view text, Each each) {
    for (std::size_t at = 0; at < text.size();) {
        std::size_t word = std::min(text.find_first_not_of(kBlanks, at), text.size());
        std::size_t end = std::min(text.find_first_of(kBlanks, word), text.size());
        if (word < end) each(text.substr(at, word - at), text.substr(word, end - word));
        at = end;
    }
}

std::string fieldWords(const TodoLine& line) {
    std::string words;
    if (line.project) words += " +" + *line.project;
    if (line.category) words += " @" + *line.category;
    if (line.onHold) words.append(" ").append(kOnHoldWord);
    if (line.due) words.append(" ").append(kDueKey).append(line.due->isoString());
    if (line.starred) words.append(" ").append(kStarWord);
    if (line.notes) words.append(" ").append(kNotesKey).append(percentEncoded(*line.notes));
    return words;
}

}  // namespace

std::variant<TodoLine, std::string> TodoLine::parse(std::string_view line) {
    if (!platform::isUTF8(line)) return "not UTF-8";
    if (std::any_of(line.begin(), line.end(), [](char c) { return isControl(c) && c != '\t'; })) {
        return "control characters";
    }
    TodoLine result;
    if (line.starts_with(kCompletedMark)) {
        result.completed = true;
        line.remove_prefix(kCompletedMark.size());
    }
    if (auto letter = takePriorityLetter(line)) result.priority = priorityOfLetter(*letter);
    forEachWord(line, [&](std::string_view blanks, std::string_view word) {
        Field field = fieldOf(word);
        // Of each field the first word counts; the others are words like any.
        if (!has(result, field)) return take(result, field, word);
        if (!result.title.empty()) result.title += blanks;
        result.title += isEscaped(word) ? word.substr(1) : word;
    });
    if (result.title.empty()) return "no title";
    return result;
}

std::string TodoLine::text() const {
    bool fieldsFirst = false;
    std::string words;
    forEachWord(title, [&](std::string_view blanks, std::string_view word) {
        Field field = fieldOf(word);
        if (field != Field::Title && has(*this, field)) fieldsFirst = true;
        words += blanks;
        if (!has(*this, field) || isEscaped(word)) words += kEscape;
        words += word;
    });
    std::string body =
        fieldsFirst ? fieldWords(*this).substr(1) + " " + words : words + fieldWords(*this);
    std::string_view rest = body;
    // At the start of a file, a byte order mark is none of its first line.
    bool looksMarked = rest.starts_with(kCompletedMark) || rest.starts_with(kByteOrderMark) ||
                       takePriorityLetter(rest);
    bool needsPriority = priority != kMediumPriority || looksMarked;
    return (completed ? std::string(kCompletedMark) : "") +
           (needsPriority ? priorityMark(priority) : "") + body;
}

std::int16_t TodoLine::status() const {
    if (completed) return kCompletedStatus;
    if (onHold) return kOnHoldStatus;
    return project || due ? kActionableStatus : kInboxStatus;
}

std::string heldTitle(std::string_view title) {
    std::string held(title);
    std::replace_if(held.begin(), held.end(), isControl, ' ');
    held.erase(0, held.find_first_not_of(' '));
    held.erase(held.find_last_not_of(' ') + 1);
    return held;
}

std::string heldName(std::string_view name) {
    std::string held(name);
    std::replace_if(
        held.begin(), held.end(), [](char c) { return isControl(c) || c == ' '; }, '-');
    return held;
}

std::optional<EXDateOnly> existingDay(std::string_view text) {
    std::array<int, 3> parts{};
    constexpr std::array<std::pair<std::size_t, std::size_t>, 3> kPlaces{{{0, 4}, {5, 2}, {8, 2}}};
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        auto [start, length] = kPlaces[i];
        const char* end = text.data() + start + length;
        if (text[start] == '-') return std::nullopt;
        if (std::from_chars(text.data() + start, end, parts[i]).ptr != end) return std::nullopt;
    }
    std::chrono::year_month_day day{std::chrono::year(parts[0]),
                                    std::chrono::month(static_cast<unsigned>(parts[1])),
                                    std::chrono::day(static_cast<unsigned>(parts[2]))};
    if (!day.ok()) return std::nullopt;
    return EXDateOnly(parts[0], parts[1], parts[2]);
}

}  // namespace corvane::cli
