// Both sides of the exchange between phone and watch: each makes messages and acts on those of the
// other. How they travel is the applications' business. The phone's side may be called from any
// thread, the watch's on the main thread.
#pragma once

#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/bridge/HGWatchMessage.h"

#include <functional>

namespace corvane {

// On the watch

HGWatchMessage sharedInfoRequest();
HGWatchMessage taskCompletionRequest(const platform::URL& uriRepresentation);

/// Whether the phone carried the command out.
bool succeeded(const HGWatchMessage& answer);

/// Puts the shared info of the answer into the default container and reloads the manager from
/// there. False, with everything as it was, where the message has none that can be read or the
/// container cannot be written.
bool takeSharedInfo(const HGWatchMessage& answer, HGTaskProxyManager& manager);

// On the phone

/// Completes the task with this URI; false where it cannot.
using TaskCompletion = std::function<bool(const platform::URL& uriRepresentation)>;

/// Carries the command out and tells the result: with the bytes of the default container's shared
/// info, or by completing a task. An unknown command, one without what it needs, and one for which
/// there is nothing to send fail. What the completion throws passes through.
HGWatchMessage answerToWatch(const HGWatchMessage& message, const TaskCompletion& completeTask);

}  // namespace corvane
