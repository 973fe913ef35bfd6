#include "apps/gallery/Surroundings.h"

#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/Texts.h"
#include "apps/gallery/Tools.h"

#include <memory>

namespace corvane::gallery {

Surroundings::Surroundings(const std::optional<PublishedTasks>& published) {
    addTexts();
    nameDays();
    EXStyleCollection::setDefaultCollection(std::make_shared<HGCorvaneStyleCollection>());
    registerTools(published);
}

}  // namespace corvane::gallery
