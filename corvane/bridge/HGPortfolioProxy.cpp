#include "corvane/bridge/HGPortfolioProxy.h"

#include "corvane/bridge/ProxyCoding.h"

namespace corvane {

namespace {

// Archives hold these names: they must not change.
constexpr std::string_view kUriRepresentationKey = "HGPortfolioProxyUriRepresentation";
constexpr std::string_view kNameKey = "HGPortfolioProxyName";
constexpr std::string_view kProjectProxyURIsKey = "HGPortfolioProxyProjectProxyURIs";

}  // namespace

HGPortfolioProxy::HGPortfolioProxy(std::optional<platform::URL> uriRepresentation)
    : uriRepresentation_(std::move(uriRepresentation)) {}

HGPortfolioProxy::HGPortfolioProxy(platform::KeyedUnarchiver& coder) {
    uriRepresentation_ = coder.decodeURL(kUriRepresentationKey);
    name_ = coder.decodeText(kNameKey);
    projectProxyURIs_ = coder.decodeList<platform::URL>(kProjectProxyURIsKey);
}

void HGPortfolioProxy::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeURL(kUriRepresentationKey, uriRepresentation_);
    coder.encodeText(kNameKey, name_);
    coder.encodeList(kProjectProxyURIsKey, projectProxyURIs_);
}

}  // namespace corvane
