// The gallery's own texts in the user's language. One thread, the window's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::gallery {

/// Texts are keyed by how they are written in English.
std::string localized(std::string_view english);

/// Adds the tables of the user's languages, as far as the gallery has them. What is wrong in a file
/// is a warning on the console.
void addTexts();
/// What today and tomorrow are called where days are typed and shown.
void nameDays();
/// Those there are, by their file names.
const std::vector<std::string>& languagesWithTexts();

}  // namespace corvane::gallery
