// The vocabulary of the messages between the phone and the watch. WatchExchange.h makes and answers
// them.
#pragma once

#include "corvane/platform/Value.h"

#include <string_view>

namespace corvane {

/// Values by text keys. Travels as a keyed archive with this map as its root, or as whatever else
/// the connection takes.
using HGWatchMessage = platform::ValueMap;

// Both sides may be of different versions: keys and commands must not change.

/// The command that the message carries; an answer has none.
inline constexpr std::string_view HGWatchMessageKeyCommand = "command";
/// Bytes in the format of the shared info file.
inline constexpr std::string_view HGWatchMessageKeySharedInfoData = "sharedInfoData";
/// The URI of a task, as a text.
inline constexpr std::string_view HGWatchMessageKeyURIString = "uriString";
/// Whether the command was carried out.
inline constexpr std::string_view HGWatchMessageKeyResult = "result";

/// Asks the phone for its shared info.
inline constexpr std::string_view HGWatchMessageValueRequestSharedInfoTransfer =
    "requestSharedInfoTransfer";
/// Asks the phone to complete the task of the URI.
inline constexpr std::string_view HGWatchMessageValueCompleteTask = "completeTask";

}  // namespace corvane
