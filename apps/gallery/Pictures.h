// Pictures of what the gallery shows, as files. One thread: the one of the windows.
#pragma once

#include <optional>
#include <string>

namespace corvane::gallery {

/// Writes every page of the registered tools, in states worth looking at, in light and dark, as
/// "lists-en-light.png" and so on; where the screen has two pixels to a point, with "@2x". With a
/// page, that one alone. Prints the paths. False, with a message, where a file cannot be written.
bool writePages(const std::string& directory, const std::optional<std::string>& page);

/// The same for every image and color, as sheets with captions, at both scales.
bool writeSheets(const std::string& directory);

}  // namespace corvane::gallery
