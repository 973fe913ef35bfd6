#include "corvane/platform/TypedText.h"

#include <unicode/bytestream.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <cstring>
#include <limits>

namespace corvane::platform {

namespace {

/// No character before this one composes with what precedes it.
constexpr UChar32 kFirstCombining = 0x0300;

constexpr UChar32 kDotlessI = 0x0131;

/// What stands for each ASCII character.
constexpr std::array<char, 0x80> kFoldedASCII = [] {
    std::array<char, 0x80> table{};
    for (std::size_t c = 0; c < table.size(); ++c) {
        bool isSpace = c == ' ' || (c >= '\t' && c <= '\r');
        bool isCapital = c >= 'A' && c <= 'Z';
        table[c] = static_cast<char>(isSpace ? ' ' : isCapital ? c + ('a' - 'A') : c);
    }
    return table;
}();

/// Folds as many characters at once as fit a Number. False, and nothing written, unless all are
/// ASCII behind the blank, each of which stays one character.
template <class Number>
bool foldCharacters(const char* from, char* to) {
    // A 1 for each character; what is added to or taken from one never reaches the next.
    constexpr std::uint64_t ones = std::numeric_limits<Number>::max() / 0xFF;
    Number characters;
    std::memcpy(&characters, from, sizeof characters);
    const std::uint64_t all = characters;
    if ((all | (all - ones * '!')) & ones * 0x80) return false;
    const auto isFromA = all + ones * (0x80 - 'A');
    const auto isBehindZ = all + ones * (0x80 - 'Z' - 1);
    characters = static_cast<Number>(all | (isFromA & ~isBehindZ & ones * 0x80) >> 2);
    std::memcpy(to, &characters, sizeof characters);
    return true;
}

/// The same for a text, the end of which is folded twice where it is of no even size.
template <class Number>
bool foldText(std::string_view text, char* to) {
    std::size_t at = 0;
    for (; at + sizeof(Number) < text.size(); at += sizeof(Number))
        if (!foldCharacters<Number>(text.data() + at, to + at)) return false;
    at = text.size() - sizeof(Number);
    return foldCharacters<Number>(text.data() + at, to + at);
}

/// False for what is not a single word in ASCII. Most texts are, and others can still be folded one
/// character after the other. REQUIRES: no empty text.
bool foldWord(std::string_view text, char* to) {
    if (text.size() >= sizeof(std::uint64_t)) return foldText<std::uint64_t>(text, to);
    if (text.size() >= sizeof(std::uint32_t)) return foldText<std::uint32_t>(text, to);
    if (text.size() >= sizeof(std::uint16_t)) return foldText<std::uint16_t>(text, to);
    return foldText<std::uint8_t>(text, to);
}

bool isDirectionMark(UChar32 c) {
    return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<int32_t>(text.size())};
}

const icu::Normalizer2* composition() {
    UErrorCode status = U_ZERO_ERROR;
    auto* normalizer = icu::Normalizer2::getNFCInstance(status);
    return U_FAILURE(status) ? nullptr : normalizer;
}

bool isComposed(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    auto* normalizer = composition();
    return !normalizer || normalizer->isNormalizedUTF8(piece(text), status) || U_FAILURE(status);
}

std::string composed(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    composition()->normalizeUTF8(0, piece(text), sink, nullptr, status);
    return U_FAILURE(status) ? std::string(text) : result;
}

}  // namespace

LetterCase letterCaseOfLocale(const Locale& locale) {
    bool turkic = locale.language() == "tr" || locale.language() == "az";
    return turkic ? LetterCase::Turkic : LetterCase::Usual;
}

TypedText::TypedText(std::string_view text, LetterCase letterCase) {
    if (text.empty() || text.size() > kLongest) return;
    if (letterCase == LetterCase::Usual && foldWord(text, buffer_.data()))
        size_ = text.size();
    else if (!fold(text, letterCase, Form::Unknown))
        size_ = 0;
}

std::string_view TypedText::trimmedText() const {
    auto result = text();
    if (result.starts_with(' ')) result.remove_prefix(1);
    if (result.ends_with(' ')) result.remove_suffix(1);
    return result;
}

bool TypedText::fold(std::string_view text, LetterCase letterCase, Form form) {
    const auto size = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < size;) {
        const auto byte = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if (U8_IS_SINGLE(byte) && !(byte == 'I' && letterCase == LetterCase::Turkic)) {
            if (!append(kFoldedASCII[byte])) return false;
            ++i;
            continue;
        }
        UChar32 c;
        U8_NEXT(text.data(), i, size, c);
        if (c < 0) return false;
        if (c >= kFirstCombining && form == Form::Unknown) {
            if (!isComposed(text)) return foldComposed(text, letterCase);
            form = Form::Composed;
        }
        if (!foldCodePoint(c, letterCase)) return false;
    }
    return true;
}

bool TypedText::foldComposed(std::string_view text, LetterCase letterCase) {
    // ICU would replace what is ill-formed.
    for (int32_t i = 0, size = static_cast<int32_t>(text.size()); i < size;) {
        UChar32 c;
        U8_NEXT(text.data(), i, size, c);
        if (c < 0) return false;
    }
    size_ = 0;
    return fold(composed(text), letterCase, Form::Composed);
}

bool TypedText::foldCodePoint(int c, LetterCase letterCase) {
    if (isDirectionMark(c)) return true;
    if (u_isUWhiteSpace(c)) return append(' ');
    if (int digit = u_charDigitValue(c); digit >= 0) return append('0' + digit);
    return append(c == 'I' && letterCase == LetterCase::Turkic ? kDotlessI : u_tolower(c));
}

bool TypedText::append(int c) {
    if (c == ' ' && size_ > 0 && buffer_[size_ - 1] == ' ') return true;
    if (buffer_.size() - size_ < U8_MAX_LENGTH) return false;
    if (c < 0x80) {
        buffer_[size_++] = static_cast<char>(c);
        return true;
    }
    auto* bytes = reinterpret_cast<std::uint8_t*>(buffer_.data());
    U8_APPEND_UNSAFE(bytes, size_, c);
    return true;
}

std::string upperCased(std::string_view text, const Locale& locale) {
    auto unicode = icu::UnicodeString::fromUTF8(piece(text));
    std::string result;
    unicode.toUpper(icu::Locale(locale.identifier().c_str())).toUTF8String(result);
    return result;
}

bool startsWithPunctuation(std::string_view text) {
    int32_t i = 0;
    UChar32 c = -1;
    if (!text.empty()) U8_NEXT(text.data(), i, static_cast<int32_t>(text.size()), c);
    return c >= 0 && u_ispunct(c);
}

}  // namespace corvane::platform
