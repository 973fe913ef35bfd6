#include "corvane/bridge/HGProjectProxy.h"

#include "corvane/bridge/ProxyCoding.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kUriRepresentationKey = "HGProjectProxyUriRepresentation";
constexpr std::string_view kNameKey = "HGProjectProxyName";
constexpr std::string_view kTaskProxyURIsKey = "HGProjectProxyTaskProxyURIs";
constexpr std::string_view kCategoryNameKey = "HGProjectProxyCategoryName";
constexpr std::string_view kCategoryColorKey = "HGProjectProxyCategoryColor";
constexpr std::string_view kCategoryIndicatorKey = "HGProjectProxyCategoryIndicator";

}  // namespace

HGProjectProxy::HGProjectProxy(std::optional<platform::URL> uriRepresentation)
    : uriRepresentation_(std::move(uriRepresentation)) {}

HGProjectProxy::HGProjectProxy(platform::KeyedUnarchiver& coder) {
    uriRepresentation_ = coder.decodeURL(kUriRepresentationKey);
    name_ = coder.decodeText(kNameKey);
    taskProxyURIs_ = coder.decodeList<platform::URL>(kTaskProxyURIsKey);
    categoryName_ = coder.decodeText(kCategoryNameKey);
    categoryColor_ = decodeCode(coder, kCategoryColorKey);
    categoryIndicator_ = decodeCode(coder, kCategoryIndicatorKey);
}

void HGProjectProxy::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeURL(kUriRepresentationKey, uriRepresentation_);
    coder.encodeText(kNameKey, name_);
    coder.encodeList(kTaskProxyURIsKey, taskProxyURIs_);
    coder.encodeText(kCategoryNameKey, categoryName_);
    coder.encodeInteger(kCategoryColorKey, categoryColor_);
    coder.encodeInteger(kCategoryIndicatorKey, categoryIndicator_);
}

std::int64_t HGProjectProxy::categoryIconIndex() const {
    return categoryIconIndexFor(categoryColor_, categoryIndicator_);
}

}  // namespace corvane
