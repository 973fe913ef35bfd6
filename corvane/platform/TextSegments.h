// Text by the characters that readers see, each of which may be several code points.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The first `count` characters; the whole text where it has no more. Any thread.
///   firstCharacters("März", 2)    is "Mä", also where the ä is an a with a mark
///   firstCharacters("शनिवार", 1)     is "श"
std::string firstCharacters(std::string_view text, std::size_t count);

}  // namespace corvane::platform
