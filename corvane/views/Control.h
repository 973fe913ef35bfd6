// A view that the user operates and that tells somebody.
#pragma once

#include "corvane/views/View.h"

#include <functional>
#include <utility>

namespace corvane::views {

class Control : public View {
  public:
    using Action = std::function<void(Control& sender)>;
    using View::View;

    void setAction(Action action) { action_ = std::move(action); }
    bool hasAction() const { return action_ != nullptr; }
    /// Tells whoever set the action; nobody where none did.
    virtual void sendAction();

    bool isEnabled() const { return enabled_; }
    virtual void setEnabled(bool enabled);
    bool accessibilityEnabled() const override { return enabled_; }

  private:
    Action action_;
    bool enabled_ = true;
};

}  // namespace corvane::views
