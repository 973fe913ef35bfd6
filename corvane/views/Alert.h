// A message with buttons, shown as a sheet on a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvane::views {

/// What a sheet answers when its first button is chosen; the ones after it count up.
inline constexpr int kAlertFirstButtonReturn = 1000;
inline constexpr int kAlertSecondButtonReturn = 1001;

struct Alert {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;  ///< the first one is the default
};

/// Gets the response code.
using AlertCompletion = std::function<void(int response)>;

}  // namespace corvane::views
