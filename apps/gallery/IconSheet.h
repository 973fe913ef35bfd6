// A page of pictures with captions.
#pragma once

#include "corvane/platform/Image.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvane::gallery {

struct IconSheet {
    struct Icon {
        platform::ImagePtr image;  ///< null is shown as a gap with a cross
        std::string caption;
    };
    struct Group {
        std::string title;
        std::vector<Icon> icons;
    };

    std::string name;   ///< of files
    std::string title;  ///< for the user
    std::vector<Group> groups;
    std::size_t columns = 15;  ///< at least 1
};

struct SheetTitle {
    std::string name;
    std::string title;
};

/// Of the sheets below, in their order.
std::vector<SheetTitle> iconSheetTitles();
/// Without groups where there is no sheet of that name.
IconSheet iconSheetNamed(const std::string& name);

/// Every image map of the default style collection, the animations, the touch bar's images and the
/// palette.
std::vector<IconSheet> allIconSheets();

}  // namespace corvane::gallery
