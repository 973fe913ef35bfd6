// Shows a message, or a question with two answers, as a sheet on a window.
#pragma once

#include "corvane/views/Alert.h"

#include <functional>
#include <optional>
#include <string>

namespace corvane {

namespace views {
class Window;
}

/// Main thread. Nothing blocks: handlers are called when the sheet is dismissed, and an empty one
/// is nobody. Without a window nothing is shown, which the console tells.
class EXMacAlertController {
  public:
    using Callback = std::function<void()>;

    /// The handler gets the response code of the button.
    static void showAlertWithTitle(std::string title, const std::optional<std::string>& message,
                                   std::string defaultAction, views::Window* window,
                                   views::AlertCompletion defaultHandler = {});
    static void showConfirmationWithTitle(std::string title,
                                          const std::optional<std::string>& message,
                                          std::string confirmAction, std::string cancelAction,
                                          views::Window* window, Callback confirmation,
                                          Callback cancellation = {});
};

}  // namespace corvane
