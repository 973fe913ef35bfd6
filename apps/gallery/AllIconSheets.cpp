#include "corvane/qt/Colors.h"
#include "corvane/qt/QtImage.h"
#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/IconSheet.h"
#include "apps/gallery/Texts.h"

#include <QPainter>
#include <functional>

namespace corvane::gallery {

using platform::Color;
using platform::ImagePtr;

namespace {

/// As a view draws it: a template takes the map's color, or where the map has none, the view's.
ImagePtr shownImage(const EXImageMap& map, std::int64_t index) {
    auto image = map.imageAtIndex(index);
    const bool isTemplate = map.imageNames()[static_cast<std::size_t>(index)].ends_with("-t") &&
                            !map.tintColorForImageAtIndex(index);
    if (!image || !isTemplate) return image;
    return platform::imageService().tintedImage(
        image, map.tintColor().value_or(NamedColors::mainDescriptiveColor()));
}

IconSheet::Group groupOf(const std::string& mapName) {
    IconSheet::Group group{mapName, {}};
    const auto map = EXImageMap::imageMapNamed(mapName);
    for (std::int64_t i = 0; i < map->imageCount(); ++i)
        group.icons.push_back({shownImage(*map, i), *map->nameForImageAtIndex(i)});
    return group;
}

/// A combined map, one group a color.
IconSheet badgeSheet(const std::string& mapName) {
    IconSheet sheet;
    const auto map = EXImageMap::imageMapNamed(mapName);
    const auto& indicators = HGIndicatorNameProvider::allCategoryIndicatorNames();
    std::int64_t index = 0;
    for (const auto& color : HGColorNameProvider::allColorNames()) {
        IconSheet::Group group{color, {}};
        for (const auto& indicator : indicators)
            group.icons.push_back({map->imageAtIndex(index++), indicator});
        sheet.groups.push_back(std::move(group));
    }
    return sheet;
}

IconSheet codeSheet() {
    IconSheet sheet;
    sheet.columns = 6;
    for (const char* map :
         {"TaskStatusImageMap", "TaskStatusSmallImageMap", "ActionStatusImageMap",
          "ActionStatusSmallImageMap", "ActionStatusUltraSmallImageMap", "ProjectStatusImageMap",
          "ProjectStatusSmallImageMap", "ProjectStatusTemplateImageMap",
          "ProjectStatusSmallTemplateImageMap", "PriorityImageMap", "AttachmentTypeImageMap",
          "AttachmentTypeSmallImageMap", "ContributorIndicatorImageMap",
          "ContributorIndicatorSmallImageMap", "ColorImageMap", "ColorSmallImageMap"})
        sheet.groups.push_back(groupOf(map));
    return sheet;
}

IconSheet::Group animationGroup(const std::string& title,
                                const HGCorvaneStyleCollection::Images& frames) {
    IconSheet::Group group{title, {}};
    for (const auto& frame : frames)
        group.icons.push_back({frame, std::to_string(group.icons.size())});
    return group;
}

IconSheet animationSheet() {
    using Collection = HGCorvaneStyleCollection;
    auto tinted = [](const ImagePtr& image) {
        return platform::imageService().tintedImage(image, NamedColors::mainTextColor());
    };
    IconSheet::Group touchBar{"Touch bar", {}};
    touchBar.icons = {
        {tinted(Collection::statusMultipleImageForTouchBar()), "status"},
        {tinted(Collection::priorityMultipleImageForTouchBar()), "priority"},
        {Collection::categoryMultipleImageForTouchBar(), "category"},
        {Collection::categoryAddImageForTouchBar(), "category-add"},
        {tinted(Collection::starredImageForTouchBar()), "starred"},
    };
    IconSheet sheet;
    sheet.groups.push_back(animationGroup("Syncing", Collection::syncingProgressAnimationIcons()));
    sheet.groups.push_back(
        animationGroup("Repository", Collection::repositoryProgressAnimationIcons()));
    sheet.groups.push_back(std::move(touchBar));
    return sheet;
}

void drawSampleText(QPainter& painter, platform::Appearance appearance) {
    QFont font;
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(qt::qColor(NamedColors::mainTextColor(), appearance));
    painter.drawText(QPointF(4, 12), QStringLiteral("Main text"));
    painter.setPen(qt::qColor(NamedColors::mainDescriptiveColor(), appearance));
    painter.drawText(QPointF(4, 24), QStringLiteral("Details"));
    painter.setPen(qt::qColor(NamedColors::tintColor(), appearance));
    painter.drawText(QPointF(62, 12), QStringLiteral("Tint"));
}

enum class Use { Ground, Mark };

ImagePtr swatch(const Color& color, Use use) {
    return qt::drawnImage({120, 30}, [=](QPainter& painter, platform::Appearance appearance) {
        painter.fillRect(QRectF(0, 0, 120, 30), qt::qColor(color, appearance));
        if (use == Use::Ground) drawSampleText(painter, appearance);
    });
}

IconSheet::Group swatches(const std::string& title,
                          const HGCorvaneStyleCollection::Colors& colors) {
    IconSheet::Group group{title, {}};
    for (const auto& color : colors)
        group.icons.push_back({swatch(color, Use::Ground), std::to_string(group.icons.size())});
    return group;
}

IconSheet paletteSheet() {
    IconSheet sheet;
    sheet.columns = 7;
    IconSheet::Group named{"Named colors", {}};
    for (auto name : NamedColors::allNames()) {
        const bool isGround = name.find("Background") != name.npos;
        named.icons.push_back(
            {swatch(NamedColors::colorNamed(name), isGround ? Use::Ground : Use::Mark),
             std::string(name)});
    }
    sheet.groups.push_back(std::move(named));
    sheet.groups.push_back(
        swatches("Rows by priority", HGCorvaneStyleCollection::priorityBackgroundColors()));
    sheet.groups.push_back(swatches("Other rows by priority",
                                    HGCorvaneStyleCollection::priorityAlternateBackgroundColors()));
    return sheet;
}

struct NamedSheet {
    const char* name;
    const char* title;
    std::function<IconSheet()> make;
};

const std::vector<NamedSheet>& namedSheets() {
    const auto badges = [](const char* map) { return [map] { return badgeSheet(map); }; };
    static const std::vector<NamedSheet> sheets{
        {"category-badges", "Categories", badges("CategoryIndicatorImageMap")},
        {"category-badges-small", "Categories, small", badges("CategoryIndicatorSmallImageMap")},
        {"project-badges", "Projects", badges("ProjectCategoryIndicatorImageMap")},
        {"project-badges-small", "Projects, small",
         badges("ProjectCategoryIndicatorSmallImageMap")},
        {"codes", "States and priorities", codeSheet},
        {"animations", "Animations", animationSheet},
        {"palette", "Colors", paletteSheet},
    };
    return sheets;
}

}  // namespace

std::vector<SheetTitle> iconSheetTitles() {
    std::vector<SheetTitle> titles;
    for (const auto& sheet : namedSheets())
        titles.push_back({sheet.name, localized(sheet.title)});
    return titles;
}

IconSheet iconSheetNamed(const std::string& name) {
    for (const auto& known : namedSheets()) {
        if (known.name != name) continue;
        IconSheet sheet = known.make();
        sheet.name = name;
        sheet.title = localized(known.title);
        return sheet;
    }
    return {};
}

std::vector<IconSheet> allIconSheets() {
    std::vector<IconSheet> sheets;
    for (const auto& sheet : namedSheets())
        sheets.push_back(iconSheetNamed(sheet.name));
    return sheets;
}

}  // namespace corvane::gallery
