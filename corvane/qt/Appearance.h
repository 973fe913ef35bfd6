// Whether the desktop is light or dark. Functions without state.
#pragma once

#include "corvane/platform/Color.h"

#include <QPalette>

namespace corvane::qt {

/// By what windows look like: no desktop tells it in a way that all of them share.
inline platform::Appearance appearanceOf(const QPalette& palette) {
    return palette.color(QPalette::Window).lightnessF() < 0.5f ? platform::Appearance::Dark
                                                               : platform::Appearance::Light;
}

}  // namespace corvane::qt
