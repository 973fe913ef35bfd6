// Shows the views of hosts to assistive technology. The main thread.
#pragma once

#include "corvane/platform/ScopedOverride.h"

#include <atomic>

class QAccessibleEvent;

namespace corvane::views {
class View;
enum class AccessibilityChange;
}  // namespace corvane::views

namespace corvane::qt {

class HostWidget;

/// Who hears of changes: the desktop's assistive technology, unless another one is in force. Called
/// in the middle of the change.
class AccessibilityListener {
  public:
    virtual ~AccessibilityListener() = default;
    /// Nothing is told while it is not.
    virtual bool isActive() = 0;
    virtual void hear(QAccessibleEvent& event) = 0;
};

AccessibilityListener& accessibilityListener();

std::atomic<AccessibilityListener*>& listenerInForce();

using ScopedAccessibilityListener =
    platform::ScopedOverride<AccessibilityListener, listenerInForce>;

/// From then on each host widget has its views as children: those with a role, with their names,
/// values, places and states. More than one call changes nothing.
void installViewAccessibility();

/// The focus has come to the view.
void tellFocusOf(HostWidget& host, views::View& view);
/// Costs nothing while nobody listens.
void tellChangeOf(HostWidget& host, views::View& view, views::AccessibilityChange change);

}  // namespace corvane::qt
