// What the widgets that edit text take from a field alike. The main thread.
#pragma once

#include "corvane/qt/Colors.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Theme.h"

#include <QPalette>

namespace corvane::qt {

inline QPalette paletteOf(const views::TextField& field, QPalette palette,
                          platform::Appearance appearance) {
    const views::Theme& theme = views::theme();
    palette.setColor(QPalette::Base, qColor(theme.background, appearance));
    palette.setColor(QPalette::Text, qColor(field.textColor(), appearance));
    palette.setColor(QPalette::PlaceholderText, qColor(theme.placeholderText, appearance));
    palette.setColor(QPalette::Highlight, qColor(theme.selection, appearance));
    palette.setColor(QPalette::HighlightedText, qColor(theme.text, appearance));
    return palette;
}

}  // namespace corvane::qt
