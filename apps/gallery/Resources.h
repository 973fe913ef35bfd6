// The reference program's images and colors, from the files beside it.
#pragma once

#include "corvane/platform/Palette.h"
#include "corvane/qt/QtImageService.h"
#include "corvane/vocabulary/PaletteTheme.h"

#include <string>

namespace corvane::gallery {

inline constexpr const char* kPaletteFile = "palette.table";
inline constexpr const char* kImagesFile = "images.table";

/// The content of a file of the program's: from its directory, else, for one in a "bin" directory,
/// from "share" beside it. Empty, with a warning on the console, where there is no such file.
std::string resourceText(const std::string& file);

/// In force for as long as it lives. What is missing or wrong in a file is a warning on the
/// console; the colors then have their fallbacks, and the images are drawn.
class Resources {
  public:
    /// From the program's files.
    Resources();
    /// From these texts.
    enum class Icons { FromSet, Drawn };
    Resources(const std::string& palette, const std::string& images, Icons icons);
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    const platform::Palette& palette() const { return palette_; }

  private:
    Resources(platform::Palette palette, qt::QtImageService images);

    platform::Palette palette_;
    qt::QtImageService images_;
    platform::ScopedColorResources colorScope_{palette_};
    platform::ScopedImageService imageScope_{images_};
    views::ScopedTheme themeScope_{themeOfPalette()};
};

}  // namespace corvane::gallery
