// The pages of the gallery, as tools of the main window. One thread, the window's.
#pragma once

#include "apps/gallery/PublishedTasks.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::views {
class View;
}

namespace corvane::gallery {

/// Where pages tell what happens on them, a line at a time.
using Notes = std::function<void(const std::string& line)>;

/// What the source list keeps with a tool: makes its page, when it is first shown.
struct PageMaker {
    std::function<std::shared_ptr<views::View>(const Notes& note)> make;
};

/// Registers all tools, in the user's language. The lists show the example tasks, or what a main
/// application has published.
void registerTools(const std::optional<PublishedTasks>& published = {});
/// In the order of the source list.
std::vector<std::string> toolIdentifiers();

}  // namespace corvane::gallery
