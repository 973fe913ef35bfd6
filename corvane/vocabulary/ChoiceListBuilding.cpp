#include "corvane/vocabulary/ChoiceListBuilding.h"

#include "corvane/vocabulary/HGLocalizable.h"

#include <cstdint>
#include <map>
#include <string>

namespace corvane {

namespace {

std::shared_ptr<EXChoiceListItem> localizedItem(VocabularyKeys keys, std::size_t position,
                                                ItemIcons icons) {
    auto code = static_cast<std::int64_t>(position);
    auto icon = icons == ItemIcons::Codes ? code : EXChoiceListItem::kNoIcon;
    return EXChoiceListItem::itemWithTitle(HGLocalizable::localize(keys[position]), icon, code);
}

}  // namespace

std::shared_ptr<EXChoiceList> choiceListInCodeOrder(VocabularyKeys keys, ItemIcons icons) {
    auto list = std::make_shared<EXChoiceList>();
    for (std::size_t code = 0; code < keys.size(); ++code)
        list->addItem(localizedItem(keys, code, icons));
    return list;
}

std::shared_ptr<EXChoiceList> choiceListInDescendingCodeOrder(VocabularyKeys keys,
                                                              ItemIcons icons) {
    auto list = std::make_shared<EXChoiceList>();
    for (auto code = keys.size(); code-- > 0;)
        list->addItem(localizedItem(keys, code, icons));
    return list;
}

std::shared_ptr<EXChoiceList> choiceListInTitleOrder(VocabularyKeys keys, ItemIcons icons) {
    std::map<std::string, std::shared_ptr<EXChoiceListItem>> itemsByCollation;
    for (std::size_t code = 0; code < keys.size(); ++code) {
        auto item = localizedItem(keys, code, icons);
        itemsByCollation[HGLocalizable::collationForString(*item->title())] = item;
    }
    auto list = std::make_shared<EXChoiceList>();
    for (auto& [collation, item] : itemsByCollation)
        list->addItem(item);
    return list;
}

}  // namespace corvane
