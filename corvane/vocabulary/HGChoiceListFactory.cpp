#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "corvane/vocabulary/ChoiceListBuilding.h"
#include "corvane/vocabulary/VocabularyKeys.h"

namespace corvane {

namespace {

using SharedList = std::shared_ptr<const EXChoiceList>;

/// Items 0 to count - 1, told apart by their icons alone.
SharedList untitledChoiceList(std::size_t count) {
    auto list = std::make_shared<EXChoiceList>();
    for (std::int64_t i = 0; i < static_cast<std::int64_t>(count); ++i)
        list->addItemWithTitle(std::nullopt, i, i);
    return list;
}

}  // namespace

SharedList HGChoiceListFactory::priorityChoiceList() {
    static const SharedList list = choiceListInDescendingCodeOrder(kPriorityKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::priorityChoiceListInNaturalOrder() {
    static const SharedList list = choiceListInCodeOrder(kPriorityKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::taskStatusChoiceList() {
    static const SharedList list = choiceListInCodeOrder(kTaskStatusKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::actionStatusChoiceList() {
    static const SharedList list = choiceListInCodeOrder(kActionStatusKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::projectStatusChoiceList() {
    static const SharedList list = choiceListInCodeOrder(kProjectStatusKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::taskRepeatChoiceList() {
    static const SharedList list = choiceListInCodeOrder(kTaskRepeatKeys, ItemIcons::None);
    return list;
}

SharedList HGChoiceListFactory::colorChoiceList() {
    static const SharedList list = choiceListInCodeOrder(kColorKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::indicatorChoiceList() {
    static const SharedList list = choiceListInTitleOrder(kIndicatorKeys, ItemIcons::Codes);
    return list;
}

SharedList HGChoiceListFactory::categoryIconIndexChoiceList() {
    static const SharedList list = untitledChoiceList(kColorKeys.size() * kIndicatorKeys.size());
    return list;
}

SharedList HGChoiceListFactory::attachmentTypeChoiceList() {
    static const SharedList list = untitledChoiceList(1);
    return list;
}

}  // namespace corvane
