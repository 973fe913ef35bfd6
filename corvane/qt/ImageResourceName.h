// What the name of an image resource says about the image. Functions without state; any thread.
#pragma once

#include <string_view>

namespace corvane::qt {

/// A name ends in "-t" where the image takes one color, with "-s" before that where it is small and
/// "-us" where it is ultra-small.
///
///     ImageResourceName::parse("email-s-t")      // {"email", 16}
///     ImageResourceName::parse("priority-high")  // {"priority-high", 24}
struct ImageResourceName {
    std::string_view base;  ///< in the text that was parsed
    double side = 0;        ///< of the square that the image takes up, in points

    static ImageResourceName parse(std::string_view name);
};

}  // namespace corvane::qt
