// The items of a choice list in a row, through all of its sections.
#pragma once

#include "corvane/platform/IndexPath.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

class EXChoiceList;
class EXChoiceListItem;

struct ChoiceItem {
    platform::IndexPath path;
    std::shared_ptr<EXChoiceListItem> item;

    std::string title() const;   ///< empty where there is none
    std::string detail() const;  ///< likewise
};

/// Section after section; none for a list that is null.
std::vector<ChoiceItem> choiceItemsOf(const EXChoiceList* list);

}  // namespace corvane
