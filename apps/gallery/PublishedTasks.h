// The tasks that a main application has published, for the gallery's tables.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"

#include "apps/gallery/ExampleTasks.h"

#include <optional>
#include <vector>

namespace corvane {
class HGTaskProxy;
}

namespace corvane::gallery {

struct PublishedTasks {
    std::vector<ExampleSection> today;
    std::vector<ExampleSection> next;
    HGTaskProxyModels models;  ///< of all views
};

/// What a companion would list from the shared container in force; none where nothing is published
/// there. Changes that are made to it in the window stay in the window.
std::optional<PublishedTasks> publishedTasks();

/// As the gallery's rows show it.
ExampleTask shownTask(const HGTaskProxy& task);

}  // namespace corvane::gallery
