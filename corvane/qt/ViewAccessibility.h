// Shows the views of hosts to assistive technology. The main thread.
#pragma once

namespace corvane::views {
class View;
}

namespace corvane::qt {

class HostWidget;

/// From then on each host widget has its views as children: those with a role, with their names,
/// values, places and states. More than one call changes nothing.
void installViewAccessibility();

/// The focus has come to the view.
void tellFocusOf(HostWidget& host, views::View& view);

}  // namespace corvane::qt
