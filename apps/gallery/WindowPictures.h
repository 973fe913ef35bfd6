// Pictures of the gallery's window in states worth looking at. One thread: the one of the windows.
#pragma once

#include <QPixmap>
#include <string>
#include <vector>

namespace corvane::gallery {

struct WindowPicture {
    std::string name;  ///< of the file, without ending
    QPixmap pixels;
};

/// At the scale of the screen, in light and dark.
std::vector<WindowPicture> windowPictures();

}  // namespace corvane::gallery
