#include "corvane/qt/Fonts.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace corvane::qt {

namespace {

/// A screen full of views has a handful; more than this would be a view that animates its size.
constexpr std::size_t kKeptFaces = 64;

FontFace made(const views::Font& font, const QFont& family) {
    QFont qFont = family;
    qFont.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size))));
    qFont.setBold(font.bold);
    qFont.setItalic(font.italic);
    const QFontMetricsF metrics(qFont);
    return {font, qFont, metrics, std::ceil(metrics.ascent() + metrics.descent())};
}

}  // namespace

const FontFace& fontFace(const views::Font& font) {
    static std::vector<FontFace> faces;
    static std::optional<QFont> family;
    // Fonts must not outlive the application, which ends before these do.
    static const bool isRegistered = [] {
        qAddPostRoutine([] {
            faces.clear();
            family.reset();
        });
        return true;
    }();
    static_cast<void>(isRegistered);
    const QFont current = QGuiApplication::font();
    if (family != current || faces.size() == kKeptFaces) {
        faces.clear();
        family = current;
    }
    for (const FontFace& face : faces)
        if (face.font == font) return face;
    return faces.emplace_back(made(font, *family));
}

}  // namespace corvane::qt
