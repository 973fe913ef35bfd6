// Facts about this computer, and bookmarks, by which a store keeps hold of files. Functions without
// state; any thread.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/URL.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace corvane {

class EXDevice {
  public:
    /// What the user calls the computer.
    static std::string deviceName();

    /// Whether the URL's scheme is "file", in lower case: other URLs are kept as they are.
    static bool needsSecureBookmarkForURL(const platform::URL& url);

    /// Data that finds the file again after it was renamed or moved nearby. None where the URL is
    /// no file's or the file is not there.
    static std::optional<platform::Bytes> secureBookmarkFromURL(const platform::URL& url,
                                                                platform::Error* error = nullptr);

    /// Calls the handler with the file's URL now, and returns it. `isStale`, where given, tells
    /// whether the file was moved or another one stands in its place, so that the bookmark should
    /// be made anew. None, without a call, where the file is gone or the data is no bookmark.
    static std::optional<platform::URL> accessSecureBookmark(
        std::span<const std::byte> bookmark,
        const std::function<void(const platform::URL& url)>& handler, bool* isStale = nullptr,
        platform::Error* error = nullptr);

    // Questions for hand-held devices, which a desktop answers as the largest of them.
    static constexpr bool inLandscapeMode() { return true; }
    static constexpr bool hasIPhoneXOrLargerScreen() { return true; }

    EXDevice() = delete;
};

}  // namespace corvane
