#include "corvane/preferences/EXPreferenceRect.h"

#include <cmath>
#include <limits>

namespace corvane {

namespace {

/// The nearest float; infinite beyond the range of floats.
double singlePrecision(double number) {
    if (std::abs(number) > std::numeric_limits<float>::max())
        return std::copysign(HUGE_VAL, number);
    return static_cast<float>(number);
}

double numberIn(const EXValue& dictionary, std::string_view key) {
    const EXValue* entry = dictionary.find(key);
    return entry ? singlePrecision(entry->realValue()) : 0;
}

}  // namespace

EXValue EXPreferenceRect::toUserDefaultsDictionary(const std::optional<EXPreferenceRect>& rect) {
    if (!rect) return {};
    return platform::ValueMap{{{EXPreferenceRectXKey, singlePrecision(rect->x())},
                               {EXPreferenceRectYKey, singlePrecision(rect->y())},
                               {EXPreferenceRectWidthKey, singlePrecision(rect->width())},
                               {EXPreferenceRectHeightKey, singlePrecision(rect->height())}}};
}

std::optional<EXPreferenceRect> EXPreferenceRect::fromUserDefaultsDictionary(
    const EXValue& dictionary) {
    if (!dictionary.map()) return std::nullopt;
    return EXPreferenceRect(numberIn(dictionary, EXPreferenceRectXKey),
                            numberIn(dictionary, EXPreferenceRectYKey),
                            numberIn(dictionary, EXPreferenceRectWidthKey),
                            numberIn(dictionary, EXPreferenceRectHeightKey));
}

}  // namespace corvane
