#include "corvane/bridge/HGAttachmentProxy.h"

#include "corvane/bridge/ProxyCoding.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kUriRepresentationKey = "HGAttachmentProxyUriRepresentation";
constexpr std::string_view kURLKey = "HGAttachmentProxyURL";
constexpr std::string_view kTypeKey = "HGAttachmentProxyType";

}  // namespace

HGAttachmentProxy::HGAttachmentProxy(std::optional<platform::URL> uriRepresentation)
    : uriRepresentation_(std::move(uriRepresentation)) {}

HGAttachmentProxy::HGAttachmentProxy(platform::KeyedUnarchiver& coder)
    : uriRepresentation_(coder.decodeURL(kUriRepresentationKey)), url_(coder.decodeText(kURLKey)) {
    type_ = decodeCode(coder, kTypeKey);
}

void HGAttachmentProxy::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeURL(kUriRepresentationKey, uriRepresentation_);
    coder.encodeText(kURLKey, url_);
    coder.encodeInteger(kTypeKey, type_);
}

}  // namespace corvane
