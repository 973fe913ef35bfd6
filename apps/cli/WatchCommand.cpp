#include "corvane/bridge/WatchExchange.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/GroupContainer.h"

#include "apps/cli/Container.h"
#include "apps/cli/DocumentChange.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/ViewOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

/// What the phone answers; its side keeps its tasks in the document.
HGWatchMessage answerOfPhone(const HGWatchMessage& message, const std::string& file) {
    return answerToWatch(message, [&](const platform::URL& uri) {
        changeDocument(
            file, [&](backup::BackupDocument& document) { return completeTask(document, uri); });
        return true;
    });
}

/// The watch has a container of its own, on another device.
void takeInto(const std::string& directory, const HGWatchMessage& answer,
              HGTaskProxyManager& manager) {
    failOn(platform::createDirectory(directory));
    const platform::ScopedGroupContainer watch(directory);
    if (!takeSharedInfo(answer, manager)) {
        throw Failure(fmt::format("cannot put the shared info into '{}'", directory));
    }
}

HGSharedInfo sharedInfoIn(const HGWatchMessage& answer) {
    auto data = answer.items.find(HGWatchMessageKeySharedInfoData);
    const platform::Bytes* bytes = data == answer.items.end() ? nullptr : data->second.data();
    auto info = bytes ? HGSharedInfo::unarchiveFromData(*bytes) : std::nullopt;
    if (!info) throw Failure("the answer holds no shared info that can be read");
    return *info;
}

}  // namespace

void runWatchRequest(View view, const std::optional<std::string>& into, Format format) {
    (void)publishedInfo();  // says why where there is nothing to send
    const HGWatchMessage answer = answerToWatch(sharedInfoRequest(), {});
    if (!succeeded(answer)) throw Failure("the main application has nothing to send");
    HGTaskProxyManager manager;
    if (into) {
        takeInto(*into, answer, manager);
    } else {
        manager.reloadDataFromSharedInfo(sharedInfoIn(answer));
    }
    printView(manager, view, format);
}

void runWatchComplete(const std::string& file, const std::string& uri) {
    const HGWatchMessage answer = answerOfPhone(taskCompletionRequest(platform::URL(uri)), file);
    if (!succeeded(answer)) throw Failure("the main application did not complete the task");
}

}  // namespace corvane::cli
