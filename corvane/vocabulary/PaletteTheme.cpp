#include "corvane/vocabulary/PaletteTheme.h"

#include "corvane/vocabulary/NamedColors.h"

namespace corvane {

namespace {

using platform::Appearance;
using platform::Color;
using platform::RGBA;

RGBA between(const RGBA& a, const RGBA& b) {
    return {(a.red + b.red) / 2, (a.green + b.green) / 2, (a.blue + b.blue) / 2};
}

Color between(const Color& a, const Color& b) {
    return {between(a.in(Appearance::Light), b.in(Appearance::Light)),
            between(a.in(Appearance::Dark), b.in(Appearance::Dark))};
}

}  // namespace

views::Theme themeOfPalette() {
    views::Theme theme;
    theme.text = NamedColors::mainTextColor();
    theme.secondaryText = NamedColors::mainDescriptiveColor();
    theme.placeholderText = theme.secondaryText;
    theme.background = NamedColors::mainBackgroundColor();
    theme.textOnAccent = theme.background;
    theme.controlBackground = NamedColors::sectionHeaderBackgroundColor();
    theme.pressedBackground = NamedColors::sectionHeaderBorderColor();
    theme.selection = NamedColors::selectedBackgroundColor();
    theme.inactiveSelection = NamedColors::sectionHeaderBackgroundAlternativeColor();
    theme.accent = NamedColors::tintColor();
    theme.separator = NamedColors::rowSeparatorColor();
    // No line of the palette is strong enough to show where a field ends.
    theme.border = between(theme.secondaryText, theme.background);
    return theme;
}

}  // namespace corvane
