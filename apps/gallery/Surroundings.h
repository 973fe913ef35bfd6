// What the gallery's window finds around it, whichever program shows it.
#pragma once

#include "apps/gallery/PublishedTasks.h"
#include "apps/gallery/Resources.h"

#include <optional>

namespace corvane::gallery {

/// Adds the texts, the names of days, the styles and the tools, in the user's language; images and
/// colors are in force for as long as it lives.
class Surroundings {
  public:
    /// The lists show the example tasks, or what a main application has published.
    explicit Surroundings(const std::optional<PublishedTasks>& published = {});

  private:
    Resources resources_;
};

}  // namespace corvane::gallery
