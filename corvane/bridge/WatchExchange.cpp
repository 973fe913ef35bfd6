#include "corvane/bridge/WatchExchange.h"

#include "corvane/bridge/HGSharedContainer.h"

namespace corvane {

namespace {

const platform::Value* find(const HGWatchMessage& message, std::string_view key) {
    const auto entry = message.items.find(key);
    return entry == message.items.end() ? nullptr : &entry->second;
}

std::string_view textUnder(const HGWatchMessage& message, std::string_view key) {
    const auto* value = find(message, key);
    return value ? value->text().value_or("") : "";
}

HGWatchMessage request(std::string_view command) {
    HGWatchMessage message;
    message.items[HGWatchMessageKeyCommand] = command;
    return message;
}

}  // namespace

HGWatchMessage sharedInfoRequest() {
    return request(HGWatchMessageValueRequestSharedInfoTransfer);
}

HGWatchMessage taskCompletionRequest(const platform::URL& uriRepresentation) {
    HGWatchMessage message = request(HGWatchMessageValueCompleteTask);
    message.items[HGWatchMessageKeyURIString] = uriRepresentation.absoluteString();
    return message;
}

bool succeeded(const HGWatchMessage& answer) {
    const auto* result = find(answer, HGWatchMessageKeyResult);
    return result && result->booleanValue();
}

bool takeSharedInfo(const HGWatchMessage& answer, HGTaskProxyManager& manager) {
    const auto* value = find(answer, HGWatchMessageKeySharedInfoData);
    if (!value || !value->data()) return false;
    // Looked at before it takes the place of a good one; the bytes then stay as they came.
    const auto info = HGSharedInfo::unarchiveFromData(*value->data());
    if (!info || !info->dictionary()) return false;
    const auto& container = HGSharedContainer::defaultContainer();
    if (!container.writeSharedInfoData(*value->data())) return false;
    if (auto path = container.sharedInfoFilePath()) manager.reloadDataFromSharedInfoFile(*path);
    return true;
}

HGWatchMessage answerToWatch(const HGWatchMessage& message, const TaskCompletion& completeTask) {
    HGWatchMessage answer;
    bool done = false;
    const auto command = textUnder(message, HGWatchMessageKeyCommand);
    if (command == HGWatchMessageValueRequestSharedInfoTransfer) {
        if (auto data = HGSharedContainer::defaultContainer().readSharedInfoAsData()) {
            answer.items[HGWatchMessageKeySharedInfoData] = *std::move(data);
            done = true;
        }
    } else if (command == HGWatchMessageValueCompleteTask) {
        const auto uri = textUnder(message, HGWatchMessageKeyURIString);
        done = !uri.empty() && completeTask && completeTask(platform::URL(uri));
    }
    answer.items[HGWatchMessageKeyResult] = done;
    return answer;
}

}  // namespace corvane
