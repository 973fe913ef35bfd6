#include "corvane/views/Theme.h"

namespace corvane::views {

namespace {

Theme& themeInForce() {
    static Theme theme;
    return theme;
}

}  // namespace

const Theme& theme() {
    return themeInForce();
}

void setTheme(const Theme& theme) {
    themeInForce() = theme;
}

}  // namespace corvane::views
