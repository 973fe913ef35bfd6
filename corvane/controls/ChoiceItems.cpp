#include "corvane/controls/ChoiceItems.h"

#include "corvane/vocabulary/EXChoiceList.h"

#include <cstdint>

namespace corvane {

std::string ChoiceItem::title() const {
    return item->title().value_or("");
}

std::string ChoiceItem::detail() const {
    return item->detailText().value_or("");
}

std::vector<ChoiceItem> choiceItemsOf(const EXChoiceList* list) {
    std::vector<ChoiceItem> items;
    for (std::int64_t section = 0; list && section < list->sectionCount(); ++section) {
        const auto& run = *list->sectionAtIndex(section);
        for (std::int64_t i = 0; i < run.itemCount(); ++i)
            items.push_back({{section, i}, run.itemAtIndex(i)});
    }
    return items;
}

}  // namespace corvane
