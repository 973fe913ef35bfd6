// Makes choice lists of vocabularies, with titles in the languages in force at the call. Internal
// to the vocabulary and its tests; everyone else asks HGChoiceListFactory for the shared lists.
#pragma once

#include "corvane/vocabulary/EXChoiceList.h"

#include <memory>
#include <span>
#include <string_view>

namespace corvane {

/// One table of VocabularyKeys.h.
using VocabularyKeys = std::span<const std::string_view>;

enum class ItemIcons { None, Codes };

std::shared_ptr<EXChoiceList> choiceListInCodeOrder(VocabularyKeys keys, ItemIcons icons);
std::shared_ptr<EXChoiceList> choiceListInDescendingCodeOrder(VocabularyKeys keys, ItemIcons icons);

/// Sorted by the collation keys of the titles. Of several codes whose titles collate alike only
/// one gets an item.
std::shared_ptr<EXChoiceList> choiceListInTitleOrder(VocabularyKeys keys, ItemIcons icons);

}  // namespace corvane
