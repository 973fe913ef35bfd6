// Publishes one task and reads it back, as a main application and its widget would.
#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGTaskProxyManager.h"

#include <iostream>

using namespace corvane;

int main() {
    auto task = std::make_shared<HGTaskProxy>(platform::URL("x-example://task/1"));
    task->setTitle("Water the plants");
    task->setDue(EXDateOnly(2024, 3, 5));

    auto list = std::make_shared<HGTaskProxyList>(HGTaskProxyList::TaskProxies{task}, "inbox");
    auto inbox = std::make_shared<HGTaskProxyModel>(HGTaskProxyModel::TaskProxyLists{list});
    HGSharedInfo info(HGTaskProxyModels{{std::string(HGSharedInfoTaskProxyModelInboxKey), inbox}},
                      HGBadgeValues{{std::string(HGSharedInfoBadgeValueInboxKey), 1}});
    if (!info.writeToSharedContainer()) return 1;

    HGTaskProxyManager manager;
    if (auto published = HGSharedInfo::readFromSharedContainer())
        manager.reloadDataFromSharedInfo(*published);
    auto first = manager.inboxModel()->taskProxyListForSection(0)->taskProxyAtIndex(0);
    std::cout << manager.inboxBadgeValueString().value_or("none")
              << " in the inbox: " << first->title().value_or("") << ", due "
              << first->due()->isoString() << '\n';
    return first->title() == "Water the plants" ? 0 : 1;
}
