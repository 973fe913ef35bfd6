// The two pages with an overview of tasks: as a list and as a table with columns. One thread, the
// window's.
#pragma once

#include "apps/gallery/Tools.h"

#include <memory>
#include <optional>

namespace corvane::gallery {

/// Both keep their controller. Of the example tasks, or of what is published.
std::shared_ptr<views::View> makeTasksOverview(const std::optional<PublishedTasks>& published,
                                               const Notes& note);
std::shared_ptr<views::View> makeTasksTable(const std::optional<PublishedTasks>& published,
                                            const Notes& note);

}  // namespace corvane::gallery
