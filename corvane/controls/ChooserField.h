// A field beside which a chooser opens while it is edited. One thread, the window's.
#pragma once

#include "corvane/controls/ChooserView.h"
#include "corvane/controls/PopOver.h"
#include "corvane/controls/ValueField.h"

#include <memory>
#include <string>
#include <string_view>

namespace corvane {

/// Typing goes on while the chooser is there, and what is typed shows in it. Up, Down, Page Up and
/// Page Down lead into it; from then on so do Left, Right, Home and End, and Return picks what is
/// highlighted, until something is typed. Escape closes it; Up, Down and a click open it again.
class ChooserField : public ValueField, public PopOverDelegate {
  public:
    using ValueField::ValueField;

    /// Made when it is first shown or asked for.
    PopOver& dateChooserPopover();
    /// Only while it is being brought to the screen, which may end the editing by itself.
    bool dateChooserPopoverIsBeingPresented() const { return presenting_; }
    /// Nothing where the field is in no window or takes no text.
    virtual void showDateChooserOverlay();
    void hideDateChooserOverlay();

    bool becomeFirstResponder() override;
    void textDidChange(std::string text) override;
    void textDidEndEditing(bool changed) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool takesKey(const views::KeyEvent& event) override;
    void popoverDidClose(PopOver& popOver) override;

  protected:
    virtual std::shared_ptr<ChooserView> makeChooser() = 0;
    /// Lets the chooser show what the text says, or else the value.
    virtual void showInChooser(ChooserView& chooser, std::string_view text) = 0;
    /// The next one is another one.
    void forgetChooser();

  private:
    bool isChooserShown() const { return popOver_ && popOver_->isShown(); }

    std::shared_ptr<ChooserView> chooser_;
    std::unique_ptr<PopOver> popOver_;
    bool presenting_ = false;
};

}  // namespace corvane
