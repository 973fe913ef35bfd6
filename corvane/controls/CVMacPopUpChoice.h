// A button that shows the chosen item and offers the others as a menu. One thread, the window's.
#pragma once

#include "corvane/controls/ChoiceControl.h"

#include <memory>
#include <string>

namespace corvane {

namespace views {
class Menu;
}

/// A click, Space, Return, Up and Down open the menu. Letters, and a space between them, choose the
/// next item that begins with what was typed of late.
class CVMacPopUpChoice final : public ChoiceControl {
  public:
    using ChoiceControl::ChoiceControl;
    ~CVMacPopUpChoice() override;

    /// Shown where nothing is chosen.
    const std::string& placeholder() const { return placeholder_; }
    void setPlaceholder(std::string placeholder);

    /// Sections are set apart by lines and begin with their titles; the chosen item is checked.
    std::shared_ptr<views::Menu> menu();
    /// Nothing while it is disabled, in no window, or without items.
    void openMenu();

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool keyDown(const views::KeyEvent& event) override;
    bool insertText(std::string_view text) override;
    bool doCommand(views::Command command) override;
    bool acceptsFirstResponder() const override { return isEnabled(); }
    std::string toolTip() const override;
    views::Role accessibilityRole() const override { return views::Role::PopUpButton; }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override { openMenu(); }

  protected:
    void choicesDidChange() override { setNeedsDisplay(); }

  private:
    views::Rect labelRect() const;  ///< where the arrows leave room
    std::string label() const;
    void addItem(views::Menu& menu, const Choice& choice);
    /// Whether there was an item to choose.
    bool chooseByPrefix(const std::string& folded, bool fromNext);

    std::string placeholder_;
    std::string typed_;  ///< of late, folded
};

}  // namespace corvane
