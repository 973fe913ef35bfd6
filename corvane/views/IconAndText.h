// A picture with a line of text beside it, as buttons and their like show both, and perhaps with
// something more about it. One thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/Rect.h"
#include "corvane/views/Font.h"

#include <string_view>

namespace corvane::views {

class Canvas;

struct IconAndText {
    platform::ImagePtr icon;  ///< null for none
    std::string_view text;
    Font font = {};
    bool centred = true;           ///< or at the leading side
    std::string_view detail = {};  ///< behind the text, and less conspicuous; gives way to it
};

/// What all of it takes up side by side.
platform::Size sizeOf(const IconAndText& both);

/// Whether text or detail has to be cut off in a room of that width.
bool isTextCut(const IconAndText& both, double width);

/// The picture at the leading side of the text; made smaller where it is higher than the rectangle.
/// A dimmed picture has half of the ground's colour over it.
void drawIconAndText(Canvas& canvas, const IconAndText& both, const platform::Rect& rect,
                     const platform::Color& textColor, const platform::Color* dimmedBy = nullptr);

}  // namespace corvane::views
