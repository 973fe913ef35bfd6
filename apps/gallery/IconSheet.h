// A page of pictures with captions.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"

#include <QImage>
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

    std::string name;
    std::vector<Group> groups;
    std::size_t columns = 15;  ///< at least 1

    /// On the main background. An application object must exist, for its fonts.
    QImage rendered(double scale, platform::Appearance appearance) const;
};

/// Every image map of the default style collection, the animations, the touch bar's images and the
/// palette.
std::vector<IconSheet> allIconSheets();

}  // namespace corvane::gallery
