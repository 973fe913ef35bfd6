#include "corvane/dates/DatePattern.h"

#include <algorithm>

namespace corvane {

namespace {

/// In a compiled literal: a blank that may be left out.
constexpr char kOptionalBlank = '\0';

constexpr std::size_t kNameLetters = 3;
constexpr std::size_t kNarrowLetters = 5;

bool isPatternLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool endsWithPunctuation(std::string_view text) {
    auto start = text.size();
    while (start > 0 && (static_cast<unsigned char>(text[start - 1]) & 0xC0) == 0x80)
        --start;
    return start > 0 && platform::startsWithPunctuation(text.substr(start - 1));
}

/// The literal with its blanks beside punctuation marked as optional.
std::string withOptionalBlanks(std::string_view literal) {
    std::string result(literal);
    for (std::size_t i = 0; i < literal.size(); ++i) {
        bool besidePunctuation = endsWithPunctuation(literal.substr(0, i)) ||
                                 platform::startsWithPunctuation(literal.substr(i + 1));
        if (literal[i] == ' ' && besidePunctuation) result[i] = kOptionalBlank;
    }
    return result;
}

}  // namespace

/// Splits a pattern into its parts.
class DatePatternCompiler {
  public:
    DatePatternCompiler(std::string_view pattern, platform::LetterCase letterCase)
        : rest_(pattern), letterCase_(letterCase) {}

    std::optional<DatePattern> compile() {
        while (!rest_.empty()) {
            if (!isPatternLetter(rest_.front()))
                takeLiteral();
            else if (!takeField())
                return std::nullopt;
        }
        finishLiteral();
        if (!has(Kind::Day) || !(has(Kind::MonthNumber) || has(Kind::MonthName)))
            return std::nullopt;
        const auto& last = result_.parts_.back();
        result_.tailIsOptional_ = last.kind == Kind::Literal && !last.literal.starts_with(')');
        return std::move(result_);
    }

  private:
    using Kind = DatePattern::Kind;

    /// One character, or all up to the closing quote; two quotes stand for one.
    void takeLiteral() {
        if (rest_.front() != '\'') {
            literal_ += rest_.front();
            return rest_.remove_prefix(1);
        }
        auto end = std::min(rest_.find('\'', 1), rest_.size());
        literal_ += end == 1 ? "'" : rest_.substr(1, end - 1);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
    }

    bool takeField() {
        const char letter = rest_.front();
        const auto count = std::min(rest_.find_first_not_of(letter), rest_.size());
        rest_.remove_prefix(count);
        finishLiteral();
        auto kind = kindOf(letter, count);
        if (!kind || has(*kind)) return false;
        result_.parts_.push_back({*kind});
        if (kind == Kind::MonthName && count == kNarrowLetters) result_.hasNarrowMonth_ = true;
        return true;
    }

    static std::optional<Kind> kindOf(char letter, std::size_t count) {
        switch (letter) {
            case 'y':
                return Kind::Year;
            case 'M':
            case 'L':
                return count < kNameLetters ? Kind::MonthNumber : Kind::MonthName;
            case 'd':
                return Kind::Day;
            case 'E':
            case 'c':
                return Kind::Weekday;
            default:
                return std::nullopt;
        }
    }

    void finishLiteral() {
        const platform::TypedText typed(literal_, letterCase_);
        literal_.clear();
        auto text = typed.text();
        if (result_.parts_.empty() && text.starts_with(' ')) text.remove_prefix(1);
        if (!text.empty()) result_.parts_.push_back({Kind::Literal, withOptionalBlanks(text)});
    }

    bool has(Kind kind) const {
        return std::any_of(result_.parts_.begin(), result_.parts_.end(),
                           [&](const auto& part) { return part.kind == kind; });
    }

    std::string_view rest_;
    platform::LetterCase letterCase_;
    std::string literal_;
    DatePattern result_;
};

/// One attempt to read a text. Where a name could end in several places, the longest name is tried
/// first.
class DatePatternMatcher {
  public:
    DatePatternMatcher(const DatePattern& pattern, const DateNameTables& names)
        : parts_(pattern.parts_), tailIsOptional_(pattern.tailIsOptional_), names_(names) {}

    std::optional<DateFields> match(std::string_view text) {
        return matchFrom(0, text) ? std::optional(fields_) : std::nullopt;
    }

  private:
    using Kind = DatePattern::Kind;

    bool matchFrom(std::size_t index, std::string_view text) {
        for (; index < parts_.size(); ++index) {
            const auto& part = parts_[index];
            if (part.kind == Kind::MonthName || part.kind == Kind::Weekday)
                return matchName(index, text);
            if (part.kind != Kind::Literal) {
                if (!readNumber(part.kind, text)) return false;
                continue;
            }
            bool isTail = index + 1 == parts_.size();
            if (isTail && tailIsOptional_) return isTailOrPart(part.literal, text);
            if (!readLiteral(part.literal, text)) return false;
        }
        return text.empty();
    }

    /// All of the tail, all but its full stop, or nothing.
    static bool isTailOrPart(std::string_view tail, std::string_view text) {
        auto rest = text;
        if (text.empty() || (readLiteral(tail, rest) && rest.empty())) return true;
        return tail.ends_with('.') && readLiteral(tail.substr(0, tail.size() - 1), text) &&
               text.empty();
    }

    bool matchName(std::size_t index, std::string_view text) {
        bool isMonth = parts_[index].kind == Kind::MonthName;
        const auto found = (isMonth ? names_.months : names_.weekdays).prefixesOf(text);
        const auto prefixes = found.items();
        return std::any_of(prefixes.rbegin(), prefixes.rend(), [&](const auto& prefix) {
            if (isMonth) fields_.month = prefix.value;
            return matchFrom(index + 1, text.substr(prefix.length));
        });
    }

    static bool readLiteral(std::string_view literal, std::string_view& text) {
        for (char c : literal) {
            bool found = text.starts_with(c == kOptionalBlank ? ' ' : c);
            if (!found && c != kOptionalBlank) return false;
            if (found) text.remove_prefix(1);
        }
        return true;
    }

    bool readNumber(Kind kind, std::string_view& text) {
        std::size_t count = 0;
        int number = 0;
        for (; count < text.size() && isDigit(text[count]); ++count) {
            if (count == 4) return false;
            number = 10 * number + (text[count] - '0');
        }
        text.remove_prefix(count);
        if (kind == Kind::Year) return setYear(count, number);
        const bool isMonth = kind == Kind::MonthNumber;
        if (count > 2 || number < 1 || number > (isMonth ? 12 : 31)) return false;
        (isMonth ? fields_.month : fields_.day) = number;
        return true;
    }

    bool setYear(std::size_t digits, int number) {
        if (digits != 2 && digits != 4) return false;
        fields_.year = digits == 4 ? number : number + (number < 50 ? 2000 : 1900);
        return true;
    }

    const std::vector<DatePattern::Part>& parts_;
    const bool tailIsOptional_;
    const DateNameTables& names_;
    DateFields fields_;
};

std::optional<DatePattern> DatePattern::compile(std::string_view pattern,
                                                platform::LetterCase letterCase) {
    return DatePatternCompiler(pattern, letterCase).compile();
}

std::optional<DateFields> DatePattern::match(std::string_view text,
                                             const DateNameTables& names) const {
    return DatePatternMatcher(*this, names).match(text);
}

}  // namespace corvane
