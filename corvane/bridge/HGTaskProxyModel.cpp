#include "corvane/bridge/HGTaskProxyModel.h"

#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <stdexcept>

namespace corvane {

namespace {

// Archives hold this name: it must not change.
constexpr std::string_view kTaskProxyListsKey = "HGTaskProxyModelTaskProxyLists";

}  // namespace

HGTaskProxyModel::HGTaskProxyModel(std::optional<TaskProxyLists> taskProxyLists)
    : taskProxyLists_(std::move(taskProxyLists).value_or(TaskProxyLists())) {}

HGTaskProxyModel::HGTaskProxyModel(platform::KeyedUnarchiver& coder)
    : taskProxyLists_(coder.decodeList<HGTaskProxyList>(kTaskProxyListsKey)) {}

void HGTaskProxyModel::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeList(kTaskProxyListsKey, taskProxyLists_);
}

const std::shared_ptr<HGTaskProxyList>& HGTaskProxyModel::taskProxyListForSection(
    std::size_t section) const {
    if (section >= numberOfSections()) throw std::out_of_range("HGTaskProxyModel: no such section");
    return (*taskProxyLists_)[section];
}

}  // namespace corvane
