#include "corvane/toolkit/EXGlobalAlert.h"

namespace corvane {

void EXGlobalAlert::sendGlobalAlertWithTitle(const Text& title, const Text& message,
                                             const Text& defaultAction) {
    platform::NotificationUserInfo userInfo;
    const auto add = [&](std::string_view key, const Text& text) {
        if (text) userInfo.emplace(key, *text);
    };
    add(EXGlobalAlertNotificationTitleKey, title);
    add(EXGlobalAlertNotificationMessageKey, message);
    add(EXGlobalAlertNotificationDefaultActionKey, defaultAction);
    platform::defaultNotificationCenter().post(EXGlobalAlertNotification, nullptr, userInfo);
}

EXGlobalAlert EXGlobalAlert::globalAlertFromUserInfo(
    const platform::NotificationUserInfo& userInfo) {
    const auto text = [&](std::string_view key) -> Text {
        const auto entry = userInfo.find(key);
        return entry == userInfo.end() ? std::nullopt : Text(entry->second.text());
    };
    return {text(EXGlobalAlertNotificationTitleKey), text(EXGlobalAlertNotificationMessageKey),
            text(EXGlobalAlertNotificationDefaultActionKey)};
}

}  // namespace corvane
