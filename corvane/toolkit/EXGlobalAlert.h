// A message for the user from code that has no window, sent as a notification to whoever shows
// alerts.
#pragma once

#include "corvane/platform/NotificationCenter.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

/// Posted without a sender; the user info has the texts under the three keys.
inline constexpr std::string_view EXGlobalAlertNotification = "EXGlobalAlertNotification";
inline constexpr std::string_view EXGlobalAlertNotificationTitleKey =
    "EXGlobalAlertNotificationTitleKey";
inline constexpr std::string_view EXGlobalAlertNotificationMessageKey =
    "EXGlobalAlertNotificationMessageKey";
inline constexpr std::string_view EXGlobalAlertNotificationDefaultActionKey =
    "EXGlobalAlertNotificationDefaultActionKey";

/// A value. Absent texts have no entry in the user info.
class EXGlobalAlert {
  public:
    using Text = std::optional<std::string>;

    EXGlobalAlert(Text title, Text message, Text defaultAction)
        : title_(std::move(title)),
          message_(std::move(message)),
          defaultAction_(std::move(defaultAction)) {}

    const Text& title() const { return title_; }
    const Text& message() const { return message_; }
    const Text& defaultAction() const { return defaultAction_; }  ///< the button's title

    /// Any thread: observers are called on it, and move to the main thread themselves.
    static void sendGlobalAlertWithTitle(const Text& title, const Text& message,
                                         const Text& defaultAction);

    /// The alert of a notification; entries that are missing or no text become none.
    static EXGlobalAlert globalAlertFromUserInfo(const platform::NotificationUserInfo& userInfo);

    friend bool operator==(const EXGlobalAlert&, const EXGlobalAlert&) = default;

  private:
    Text title_;
    Text message_;
    Text defaultAction_;
};

}  // namespace corvane
