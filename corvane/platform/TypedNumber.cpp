#include "corvane/platform/TypedNumber.h"

#include "corvane/platform/TypedText.h"

#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>

namespace corvane::platform {

namespace {

/// What a locale writes numbers with.
struct NumberSymbols {
    std::string locale;
    std::array<std::string, 10> digits{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
    std::string decimal = ".";
    std::string grouping;  ///< empty where it makes no groups
    std::string minus = "-";
    std::size_t lastGroup = 3;
    std::size_t otherGroups = 3;

    explicit NumberSymbols(const Locale& of);
    static const NumberSymbols& of(const Locale& locale);
};

std::string symbol(const icu::DecimalFormatSymbols& symbols,
                   icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
    std::string text;
    symbols.getSymbol(which).toUTF8String(text);
    return text;
}

NumberSymbols::NumberSymbols(const Locale& of) : locale(of.identifier()) {
    using Symbols = icu::DecimalFormatSymbols;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale(locale.c_str()), UNUM_DECIMAL, status));
    // A numbering system without digits, such as the Roman one, has no such format.
    const auto* written = dynamic_cast<const icu::DecimalFormat*>(format.get());
    if (U_FAILURE(status) || !written) return;
    const Symbols& symbols = *written->getDecimalFormatSymbols();
    for (int digit = 0; digit < 10; ++digit)
        digits[static_cast<std::size_t>(digit)] =
            symbol(symbols, digit == 0 ? Symbols::kZeroDigitSymbol
                                       : static_cast<Symbols::ENumberFormatSymbol>(
                                             Symbols::kOneDigitSymbol + digit - 1));
    decimal = symbol(symbols, Symbols::kDecimalSeparatorSymbol);
    minus = symbol(symbols, Symbols::kMinusSignSymbol);
    if (!written->isGroupingUsed() || written->getGroupingSize() <= 0) return;
    grouping = symbol(symbols, Symbols::kGroupingSeparatorSymbol);
    lastGroup = otherGroups = static_cast<std::size_t>(written->getGroupingSize());
    if (written->getSecondaryGroupingSize() > 0)
        otherGroups = static_cast<std::size_t>(written->getSecondaryGroupingSize());
}

const NumberSymbols& NumberSymbols::of(const Locale& locale) {
    thread_local std::optional<NumberSymbols> known;
    if (!known || known->locale != locale.identifier()) known.emplace(locale);
    return *known;
}

bool isDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// As typed texts are compared; what people type for an apostrophe is one.
std::string folded(std::string_view text) {
    constexpr std::string_view kApostrophe = "\u2019";
    std::string result(TypedText(text, LetterCase::Usual).text());
    for (auto at = result.find(kApostrophe); at != std::string::npos; at = result.find(kApostrophe))
        result.replace(at, kApostrophe.size(), "'");
    return result;
}

/// Reads what was typed, folded.
class NumberReader {
  public:
    explicit NumberReader(const NumberSymbols& symbols)
        : symbols_(symbols),
          decimal_(folded(symbols.decimal)),
          grouping_(folded(symbols.grouping)) {}

    std::optional<std::string> read(std::string_view text) const {
        const std::string sign = takeSign(text) ? "-" : "";
        const auto mantissaEnd = std::min(text.find('e'), text.size());
        auto number = readMantissa(text.substr(0, mantissaEnd));
        if (!number || mantissaEnd == text.size()) return number ? sign + *number : number;
        std::string_view exponent = text.substr(mantissaEnd + 1);
        const bool isSmall = takeSign(exponent);
        if (!isSmall && exponent.starts_with('+')) exponent.remove_prefix(1);
        if (exponent.empty() || !isDigits(exponent)) return std::nullopt;
        return sign + *number + (isSmall ? "e-" : "e") + std::string(exponent);
    }

  private:
    /// Whether it was a minus, the sign or the hyphen.
    static bool takeSign(std::string_view& text) {
        for (const std::string_view sign : {"-", "\u2212"})
            if (text.starts_with(sign)) {
                text.remove_prefix(sign.size());
                return true;
            }
        return false;
    }

    std::optional<std::string> readMantissa(std::string_view text) const {
        const auto [whole, fraction] = split(text, decimal_);
        const auto ungrouped = withoutGroups(whole);
        if (ungrouped)
            if (auto number = joined(*ungrouped, fraction)) return number;
        const auto [before, behind] = split(text, ".");
        return isDigits(before) ? joined(before, behind) : std::nullopt;
    }

    using Parts = std::pair<std::string_view, std::optional<std::string_view>>;
    static Parts split(std::string_view text, std::string_view separator) {
        const auto at = text.find(separator);
        if (at == std::string_view::npos) return {text, std::nullopt};
        return {text.substr(0, at), text.substr(at + separator.size())};
    }

    static std::optional<std::string> joined(std::string_view whole,
                                             std::optional<std::string_view> fraction) {
        const std::string_view behind = fraction.value_or("");
        if ((whole.empty() && behind.empty()) || !isDigits(behind)) return std::nullopt;
        std::string number(whole.empty() ? "0" : whole);
        if (fraction) number.append(".").append(behind);
        return number;
    }

    /// None where there is anything but digits in groups as the locale makes them.
    std::optional<std::string> withoutGroups(std::string_view text) const {
        const auto firstEnd = grouping_.empty() ? text.size() : text.find(grouping_);
        std::string number(text.substr(0, firstEnd));
        if (!isDigits(number)) return std::nullopt;
        if (number.size() == text.size()) return number;
        // Nobody groups a number that begins with 0: "0.125" is the same everywhere.
        if (number.empty() || number.size() > symbols_.otherGroups || number.front() == '0')
            return std::nullopt;
        for (auto rest = text.substr(number.size()); !rest.empty();) {
            rest.remove_prefix(grouping_.size());
            const auto group = rest.substr(0, rest.find(grouping_));
            rest.remove_prefix(group.size());
            const auto size = rest.empty() ? symbols_.lastGroup : symbols_.otherGroups;
            if (group.size() != size || !isDigits(group)) return std::nullopt;
            number += group;
        }
        return number;
    }

    const NumberSymbols& symbols_;
    std::string decimal_;
    std::string grouping_;
};

}  // namespace

std::string typedNumberText(std::string_view plain, const Locale& locale) {
    const auto& symbols = NumberSymbols::of(locale);
    std::string text;
    for (const char c : plain) {
        if (c >= '0' && c <= '9')
            text += symbols.digits[static_cast<std::size_t>(c - '0')];
        else if (c == '.')
            text += symbols.decimal;
        else if (c == '-')
            text += symbols.minus;
        else
            text += c;
    }
    return text;
}

std::string typedNumberText(std::int64_t number, const Locale& locale) {
    return typedNumberText(std::to_string(number), locale);
}

std::optional<std::string> plainNumber(std::string_view text, const Locale& locale) {
    const TypedText typed(text, LetterCase::Usual);
    return NumberReader(NumberSymbols::of(locale)).read(folded(typed.trimmedText()));
}

}  // namespace corvane::platform
