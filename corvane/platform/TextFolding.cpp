#include "corvane/platform/TextFolding.h"

#include "corvane/platform/TextEncoding.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace corvane::platform {

namespace {

/// Where the scripts begin whose marks are more than accents (Armenian is the first).
constexpr UChar32 kEndOfAccentedScripts = 0x0510;

constexpr UChar32 kDotAbove = 0x0307;

bool hasDotlessI(const Locale& locale) {
    return locale.language() == "tr" || locale.language() == "az";
}

std::string lowerCasedASCII(std::string_view text) {
    std::string result(text);
    for (auto& c : result)
        if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
    return result;
}

bool isMark(UChar32 c) {
    return U_GET_GC_MASK(c) & U_GC_M_MASK;
}

/// Takes decomposed text.
icu::UnicodeString withoutAccents(const icu::UnicodeString& text) {
    icu::UnicodeString result(text.length(), 0, 0);
    UChar32 base = kEndOfAccentedScripts;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        UChar32 c = text.char32At(i);
        bool mark = isMark(c);
        if (!mark) base = c;
        if (mark && (base < kEndOfAccentedScripts || c < kEndOfAccentedScripts)) continue;
        result.append(c);
    }
    return result;
}

/// The dotted capital of Turkic languages is an i of its own, not an accented dotless one.
void keepDottedCapitals(icu::UnicodeString& decomposed) {
    static const icu::UnicodeString dottedCapital = icu::UnicodeString(u'I').append(kDotAbove);
    decomposed.findAndReplace(dottedCapital, icu::UnicodeString(u'i'));
}

icu::UnicodeString normalized(const icu::Normalizer2* (*form)(UErrorCode&),
                              const icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    auto* normalizer = form(status);
    if (U_FAILURE(status)) return text;
    auto result = normalizer->normalize(text, status);
    return U_FAILURE(status) ? text : result;
}

}  // namespace

std::string foldedForCollation(std::string_view text, const Locale& locale) {
    const bool turkic = hasDotlessI(locale);
    if (isASCII(text) && !(turkic && text.find('I') != text.npos)) return lowerCasedASCII(text);

    auto unicode = icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
    auto decomposed = normalized(icu::Normalizer2::getNFDInstance, unicode);
    if (turkic) keepDottedCapitals(decomposed);
    auto folded = normalized(icu::Normalizer2::getNFCInstance, withoutAccents(decomposed));
    std::string result;
    folded.toLower(icu::Locale(locale.identifier().c_str())).toUTF8String(result);
    return result;
}

}  // namespace corvane::platform
