#include "corvane/bridge/HGTaskProxyList.h"

#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kTaskProxiesKey = "HGTaskProxyListTaskProxies";
constexpr std::string_view kIdentifierKey = "HGTaskProxyListIdentifier";
constexpr std::string_view kTitleKey = "HGTaskProxyListTitle";

}  // namespace

HGTaskProxyList::HGTaskProxyList(std::optional<TaskProxies> taskProxies,
                                 std::optional<std::string_view> identifier,
                                 std::optional<std::string_view> title)
    : taskProxies_(std::move(taskProxies).value_or(TaskProxies())),
      identifier_(identifier),
      title_(title) {}

HGTaskProxyList::HGTaskProxyList(platform::KeyedUnarchiver& coder) {
    taskProxies_ = coder.decodeList<HGTaskProxy>(kTaskProxiesKey);
    identifier_ = coder.decodeText(kIdentifierKey);
    title_ = coder.decodeText(kTitleKey);
}

void HGTaskProxyList::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeList(kTaskProxiesKey, taskProxies_, platform::Growth::Growable);
    coder.encodeText(kIdentifierKey, identifier_);
    coder.encodeText(kTitleKey, title_);
}

std::shared_ptr<HGTaskProxy> HGTaskProxyList::taskProxyAtIndex(std::int64_t index) const {
    if (index < 0 || static_cast<std::uint64_t>(index) >= count()) return nullptr;
    return (*taskProxies_)[static_cast<std::size_t>(index)];
}

}  // namespace corvane
