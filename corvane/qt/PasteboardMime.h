// Pasteboards as data of the desktop's clipboard and drags, and back. Functions without state; the
// main thread.
#pragma once

#include "corvane/platform/Pasteboard.h"

#include <memory>

class QMimeData;

namespace corvane::qt {

/// The whole pasteboard, for programs of this library, beside the forms that others know: plain
/// text (a line for each item), URLs with the first one's name, and the first item's other types
/// under their own names. Texts and bytes are carried; URLs as texts.
std::unique_ptr<QMimeData> mimeDataOf(const platform::Pasteboard& pasteboard);

/// What another program of this library put there, whole; otherwise what can be told of it: texts,
/// an item for each URL, with the name that browsers give, and bytes of every other format.
platform::Pasteboard pasteboardOf(const QMimeData& data);

}  // namespace corvane::qt
