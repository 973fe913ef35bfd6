#include "corvane/vocabulary/EXRGBColor.h"

#include <cmath>

namespace corvane {

namespace {

std::int64_t byteOf(double fraction) {
    if (!(fraction > 0)) return 0;  // not a number neither
    if (fraction >= 1) return 255;
    return std::lround(fraction * 255);
}

}  // namespace

EXRGBColor::EXRGBColor(double red, double green, double blue)
    : intValue_((byteOf(red) << 16) + (byteOf(green) << 8) + byteOf(blue)) {}

double EXRGBColor::fractionFromBit(int bit) const {
    return static_cast<double>((intValue_ >> bit) & 0xFF) / 255.0;
}

}  // namespace corvane
