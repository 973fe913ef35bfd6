#include "corvane/views/EXMacAlertController.h"

#include "corvane/platform/Console.h"
#include "corvane/views/Window.h"

#include <utility>

namespace corvane {

namespace {

void showSheet(views::Window* window, views::Alert alert, views::AlertCompletion completion) {
    if (window) return window->beginSheet(std::move(alert), std::move(completion));
    platform::currentConsole().writeLine("ERROR: alert without a window: " + alert.messageText);
}

}  // namespace

void EXMacAlertController::showAlertWithTitle(std::string title,
                                              const std::optional<std::string>& message,
                                              std::string defaultAction, views::Window* window,
                                              views::AlertCompletion defaultHandler) {
    showSheet(window, {std::move(title), message.value_or(""), {std::move(defaultAction)}},
              std::move(defaultHandler));
}

void EXMacAlertController::showConfirmationWithTitle(
    std::string title, const std::optional<std::string>& message, std::string confirmAction,
    std::string cancelAction, views::Window* window, Callback confirmation, Callback cancellation) {
    auto completion = [confirm = std::move(confirmation),
                       cancel = std::move(cancellation)](int response) {
        if (response == views::kAlertFirstButtonReturn && confirm) confirm();
        if (response == views::kAlertSecondButtonReturn && cancel) cancel();
    };
    showSheet(window,
              {std::move(title),
               message.value_or(""),
               {std::move(confirmAction), std::move(cancelAction)}},
              std::move(completion));
}

}  // namespace corvane
