#include "corvane/bridge/HGCategoryProxy.h"

#include "corvane/bridge/ProxyCoding.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kUriRepresentationKey = "HGCategoryProxyUriRepresentation";
constexpr std::string_view kNameKey = "HGCategoryProxyName";
constexpr std::string_view kColorKey = "HGCategoryProxyColor";
constexpr std::string_view kIndicatorKey = "HGCategoryProxyIndicator";

}  // namespace

HGCategoryProxy::HGCategoryProxy(std::optional<platform::URL> uriRepresentation)
    : uriRepresentation_(std::move(uriRepresentation)) {}

HGCategoryProxy::HGCategoryProxy(platform::KeyedUnarchiver& coder) {
    uriRepresentation_ = coder.decodeURL(kUriRepresentationKey);
    name_ = coder.decodeText(kNameKey);
    color_ = decodeCode(coder, kColorKey);
    indicator_ = decodeCode(coder, kIndicatorKey);
}

void HGCategoryProxy::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeURL(kUriRepresentationKey, uriRepresentation_);
    coder.encodeText(kNameKey, name_);
    coder.encodeInteger(kColorKey, color_);
    coder.encodeInteger(kIndicatorKey, indicator_);
}

std::int64_t HGCategoryProxy::iconIndex() const {
    return categoryIconIndexFor(color_, indicator_);
}

}  // namespace corvane
