// Typed text in the one form in which it is compared with a locale's names and patterns. Nothing is
// shown in that form.
#pragma once

#include "corvane/platform/Locale.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace corvane::platform {

/// What the capital of i is: I everywhere, but in Turkish and Azerbaijani İ, next to I for ı.
enum class LetterCase { Usual, Turkic };

LetterCase letterCaseOfLocale(const Locale& locale);

/// Lower-cased and canonically composed; every run of white space, of any kind, is one blank and
/// every decimal digit an ASCII one; the invisible marks of writing direction are gone. Of other
/// compatibility forms nothing is changed.
///     TypedText("Sun,\u00A0\tMAR ١٠", LetterCase::Usual).text()   // "sun, mar 10"
class TypedText {
  public:
    /// More bytes than a date takes in any locale; longer text is not looked at.
    static constexpr std::size_t kLongest = 256;

    TypedText(std::string_view text, LetterCase letterCase);

    // The text lies inside.
    TypedText(const TypedText&) = delete;
    TypedText& operator=(const TypedText&) = delete;

    /// Empty for text that is too long or not UTF-8.
    std::string_view text() const { return {buffer_.data(), size_}; }

    /// Without blanks at its ends.
    std::string_view trimmedText() const;

  private:
    enum class Form { Unknown, Composed };

    bool fold(std::string_view text, LetterCase letterCase, Form form);
    bool foldComposed(std::string_view text, LetterCase letterCase);
    bool foldCodePoint(int c, LetterCase letterCase);
    bool append(int c);

    std::size_t size_ = 0;
    std::array<char, 2 * kLongest> buffer_;  // deliberately not filled
};

/// By the locale's own rules: Greek capitals lose their accents, "ß" becomes "SS".
std::string upperCased(std::string_view text, const Locale& locale);

/// Whether the character that starts at the front of the text is punctuation.
bool startsWithPunctuation(std::string_view text);

}  // namespace corvane::platform
