#include "corvane/bridge/HGTaskProxy.h"

#include "corvane/bridge/ProxyCoding.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include <fmt/format.h>

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kUriRepresentationKey = "HGTaskProxyUriRepresentation";
constexpr std::string_view kTitleKey = "HGTaskProxyTitle";
constexpr std::string_view kNotesKey = "HGTaskProxyNotes";
constexpr std::string_view kStatusKey = "HGTaskProxyStatus";
constexpr std::string_view kStarredKey = "HGTaskProxyStarred";
constexpr std::string_view kPriorityKey = "HGTaskProxyPriority";
constexpr std::string_view kDueKey = "HGTaskProxyDue";
constexpr std::string_view kRepeatKey = "HGTaskProxyRepeat";
constexpr std::string_view kProjectNameKey = "HGTaskProxyProjectName";
constexpr std::string_view kCategoryNameKey = "HGTaskProxyCategoryName";
constexpr std::string_view kCategoryColorKey = "HGTaskProxyCategoryColor";
constexpr std::string_view kCategoryIndicatorKey = "HGTaskProxyCategoryIndicator";
constexpr std::string_view kContributorNameKey = "HGTaskProxyContributorName";
constexpr std::string_view kAttachmentProxiesKey = "HGTaskProxyAttachmentProxies";

}  // namespace

HGTaskProxy::HGTaskProxy(std::optional<platform::URL> uriRepresentation)
    : uriRepresentation_(std::move(uriRepresentation)) {}

HGTaskProxy::HGTaskProxy(platform::KeyedUnarchiver& coder) {
    uriRepresentation_ = coder.decodeURL(kUriRepresentationKey);
    title_ = coder.decodeText(kTitleKey);
    notes_ = coder.decodeText(kNotesKey);
    status_ = decodeCode(coder, kStatusKey);
    starred_ = coder.decodeBool(kStarredKey);
    priority_ = decodeCode(coder, kPriorityKey);
    due_ = coder.decodeDay(kDueKey);
    repeat_ = coder.decodeBool(kRepeatKey) ? 1 : 0;
    projectName_ = coder.decodeText(kProjectNameKey);
    categoryName_ = coder.decodeText(kCategoryNameKey);
    categoryColor_ = decodeCode(coder, kCategoryColorKey);
    categoryIndicator_ = decodeCode(coder, kCategoryIndicatorKey);
    contributorName_ = coder.decodeText(kContributorNameKey);
    attachmentProxies_ = coder.decodeList<HGAttachmentProxy>(kAttachmentProxiesKey);
}

void HGTaskProxy::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeURL(kUriRepresentationKey, uriRepresentation_);
    coder.encodeText(kTitleKey, title_);
    coder.encodeText(kNotesKey, notes_);
    coder.encodeInteger(kStatusKey, status_);
    coder.encodeBool(kStarredKey, starred_);
    coder.encodeInteger(kPriorityKey, priority_);
    coder.encodeDay(kDueKey, due_);
    // The file format has a flag here and older readers rely on it; the flag is the code's low
    // byte, so that a code such as 256 counts as "does not repeat".
    coder.encodeBool(kRepeatKey, (repeat_ & 0xFF) != 0);
    coder.encodeText(kProjectNameKey, projectName_);
    coder.encodeText(kCategoryNameKey, categoryName_);
    coder.encodeInteger(kCategoryColorKey, categoryColor_);
    coder.encodeInteger(kCategoryIndicatorKey, categoryIndicator_);
    coder.encodeText(kContributorNameKey, contributorName_);
    coder.encodeList(kAttachmentProxiesKey, attachmentProxies_);
}

std::int64_t HGTaskProxy::categoryIconIndex() const {
    return categoryIconIndexFor(categoryColor_, categoryIndicator_);
}

std::size_t HGTaskProxy::attachmentProxiesCount() const {
    return attachmentProxies_ ? attachmentProxies_->size() : 0;
}

std::string HGTaskProxy::attachmentProxiesCountString() const {
    const auto count = static_cast<std::int32_t>(attachmentProxiesCount());
    return count < 1 ? HGLocalizable::localize("SAttachmentNone") : fmt::format("{}", count);
}

}  // namespace corvane
