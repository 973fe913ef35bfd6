#include "corvane/views/Control.h"

namespace corvane::views {

void Control::sendAction() {
    const auto keepAlive = weak_from_this().lock();
    const Action action = action_;  // which may set another one
    if (action) action(*this);
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    setNeedsDisplay();
    accessibilityDidChange(AccessibilityChange::Enabled);
}

}  // namespace corvane::views
