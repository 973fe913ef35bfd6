#include "corvane/bridge/EXDevice.h"

#include "corvane/platform/Bookmark.h"
#include "corvane/platform/ComputerName.h"

namespace corvane {

std::string EXDevice::deviceName() {
    return platform::computerName();
}

bool EXDevice::needsSecureBookmarkForURL(const platform::URL& url) {
    return url.absoluteString().starts_with("file:");
}

std::optional<platform::Bytes> EXDevice::secureBookmarkFromURL(const platform::URL& url,
                                                               platform::Error* error) {
    return platform::bookmarkOfFile(url, error);
}

std::optional<platform::URL> EXDevice::accessSecureBookmark(
    std::span<const std::byte> bookmark,
    const std::function<void(const platform::URL& url)>& handler, bool* isStale,
    platform::Error* error) {
    // The user's rights are the program's here: there is no access to be asked for around the call.
    const auto resolved = platform::resolveBookmark(bookmark, error);
    if (isStale) *isStale = resolved && resolved->isStale;
    if (!resolved) return std::nullopt;
    if (handler) handler(resolved->url);
    return resolved->url;
}

}  // namespace corvane
