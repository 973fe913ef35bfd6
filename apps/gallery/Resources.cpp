#include "apps/gallery/Resources.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/MainBundle.h"
#include "corvane/platform/ProgramName.h"
#include "corvane/qt/ImageCatalog.h"

#include "apps/gallery/Artwork.h"

#include <utility>
#include <vector>

namespace corvane::gallery {

std::string resourceText(const std::string& file) {
    const auto bundle = platform::mainBundleDirectory().value_or(".");
    for (const auto& directory : {bundle, bundle + "/../share/" + platform::programName()})
        if (auto text = platform::readTextFile(directory + "/" + file)) return *text;
    platform::currentConsole().writeLine("WARNING: Could not read " + file);
    return {};
}

namespace {

void warnAbout(const char* file, const std::vector<std::string>& problems) {
    for (const auto& problem : problems)
        platform::currentConsole().writeLine("WARNING: " + std::string(file) + ": " + problem);
}

platform::Palette readPalette(const std::string& text) {
    auto palette = platform::Palette::parse(text);
    warnAbout(kPaletteFile, palette.problems());
    return palette;
}

qt::ImageCatalog readCatalog(const std::string& text) {
    auto catalog = qt::ImageCatalog::parse(text);
    warnAbout(kImagesFile, catalog.problems());
    return catalog;
}

qt::QtImageService imagesOf(qt::ImageCatalog catalog, Resources::Icons icons) {
    if (icons == Resources::Icons::Drawn) catalog.setDirectories({});
    auto drawn = std::make_shared<Artwork>();
    return qt::QtImageService({std::make_shared<qt::ImageCatalog>(std::move(catalog)), drawn});
}

}  // namespace

Resources::Resources()
    : Resources(resourceText(kPaletteFile), resourceText(kImagesFile), Icons::FromSet) {}

Resources::Resources(const std::string& palette, const std::string& images, Icons icons)
    : Resources(readPalette(palette), imagesOf(readCatalog(images), icons)) {}

Resources::Resources(platform::Palette palette, qt::QtImageService images)
    : palette_(std::move(palette)), images_(std::move(images)) {}

}  // namespace corvane::gallery
