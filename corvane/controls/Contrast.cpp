#include "corvane/controls/Contrast.h"

#include <algorithm>
#include <cmath>

namespace corvane {

using platform::Appearance;
using platform::RGBA;

namespace {

double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const RGBA& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

RGBA readableOn(const RGBA& ground) {
    constexpr RGBA kBlack{0, 0, 0};
    constexpr RGBA kWhite{1, 1, 1};
    return contrastBetween(kWhite, ground) >= contrastBetween(kBlack, ground) ? kWhite : kBlack;
}

}  // namespace

double contrastBetween(const RGBA& one, const RGBA& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

platform::Color readableTextOn(const platform::Color& ground) {
    return {readableOn(ground.in(Appearance::Light)), readableOn(ground.in(Appearance::Dark))};
}

}  // namespace corvane
