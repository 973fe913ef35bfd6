// A file's URL in a form that outlives the file's renaming, for keeping in a store. The format is
// described in docs/formats/bookmark.md.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/URL.h"

#include <cstddef>
#include <optional>
#include <span>

namespace corvane::platform {

/// None where the URL is no file's or the file is not there. Any thread.
std::optional<Bytes> bookmarkOfFile(const URL& file, Error* error = nullptr);

struct ResolvedBookmark {
    URL url;
    /// The file was moved, or another one stands in its place: make the bookmark anew.
    bool isStale = false;
};

/// What stands where the file stood, else the file itself where it is found nearby (see
/// findNearby). None where there is neither, and for data that is no bookmark (the error's domain
/// is "bookmark" then). Any thread.
std::optional<ResolvedBookmark> resolveBookmark(std::span<const std::byte> data,
                                                Error* error = nullptr);

}  // namespace corvane::platform
