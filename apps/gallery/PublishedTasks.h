// The tasks that a main application has published, for the gallery's tables.
#pragma once

#include "apps/gallery/ExampleTasks.h"

#include <optional>
#include <vector>

namespace corvane::gallery {

struct PublishedTasks {
    std::vector<ExampleSection> today;
    std::vector<ExampleSection> next;
};

/// What a companion would list from the shared container in force; none where nothing is published
/// there. Changes that are made to it in the window stay in the window.
std::optional<PublishedTasks> publishedTasks();

}  // namespace corvane::gallery
