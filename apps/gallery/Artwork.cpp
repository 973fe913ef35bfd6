#include "apps/gallery/Artwork.h"

#include "corvane/qt/ImageResourceName.h"
#include "corvane/qt/QtImage.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"

#include "apps/gallery/Shapes.h"

#include <QPainter>
#include <algorithm>

namespace corvane::gallery {

using platform::Appearance;

namespace {

/// The number that ends the name after the prefix; -1 where it is not a frame's.
int frameOf(std::string_view name, std::string_view prefix) {
    constexpr int kFrames = 12;
    if (!name.starts_with(prefix) || name.size() != prefix.size() + 2) return -1;
    const int tens = name[prefix.size()] - '0';
    const int ones = name[prefix.size() + 1] - '0';
    const bool digits = tens >= 0 && tens <= 1 && ones >= 0 && ones <= 9;
    const int frame = tens * 10 + ones;
    return digits && frame < kFrames ? frame : -1;
}

bool isIndicator(std::string_view name) {
    const auto& names = HGIndicatorNameProvider::allCategoryIndicatorNames();
    return std::find(names.begin(), names.end(), name) != names.end();
}

qt::Painting paintingFor(std::string_view base) {
    for (const auto* shapes : {&badgeShapes(), &stateShapes(), &contactShapes()})
        if (auto found = shapes->find(base); found != shapes->end()) return found->second;
    if (int frame = frameOf(base, "sync"); frame >= 0)
        return [frame](QPainter& painter, Appearance appearance) {
            drawSyncing(painter, appearance, frame);
        };
    if (int frame = frameOf(base, "repository"); frame >= 0)
        return [frame](QPainter& painter, Appearance appearance) {
            drawRepository(painter, appearance, frame);
        };
    if (isIndicator(base))
        return
            [letter = base.front()](QPainter& painter, Appearance) { drawLetter(painter, letter); };
    return nullptr;
}

}  // namespace

platform::ImagePtr Artwork::imageNamed(std::string_view name) {
    const auto parts = qt::ImageResourceName::parse(name);
    const auto painting = paintingFor(parts.base);
    if (!painting) return nullptr;
    return qt::drawnImage({parts.side, parts.side}, [painting, unit = parts.side / kShapeSide](
                                                        QPainter& painter, Appearance appearance) {
        painter.scale(unit, unit);
        painting(painter, appearance);
    });
}

}  // namespace corvane::gallery
