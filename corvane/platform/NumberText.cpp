#include "corvane/platform/NumberText.h"

#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/unistr.h>

#include <memory>

namespace corvane::platform {

namespace {

/// Making one costs as much as many texts, and most come in one locale.
struct KnownFormat {
    std::string locale;
    std::unique_ptr<icu::NumberFormat> format;

    const icu::NumberFormat* in(const Locale& wanted, UNumberFormatStyle style) {
        if (format && locale == wanted.identifier()) return format.get();
        UErrorCode status = U_ZERO_ERROR;
        format.reset(icu::NumberFormat::createInstance(icu::Locale(wanted.identifier().c_str()),
                                                       style, status));
        if (U_FAILURE(status)) format.reset();
        locale = wanted.identifier();
        return format.get();
    }
};

template <class Number>
std::string textOf(Number number, const icu::NumberFormat& format) {
    icu::UnicodeString text;
    format.format(number, text);
    std::string result;
    text.toUTF8String(result);
    return result;
}

}  // namespace

std::string numberText(std::int64_t number, const Locale& locale) {
    thread_local KnownFormat known;
    const auto* format = known.in(locale, UNUM_DECIMAL);
    return format ? textOf(number, *format) : std::to_string(number);
}

std::string percentText(int percent, const Locale& locale) {
    thread_local KnownFormat known;
    const auto* format = known.in(locale, UNUM_PERCENT);
    return format ? textOf(percent / 100.0, *format) : std::to_string(percent) + "%";
}

}  // namespace corvane::platform
