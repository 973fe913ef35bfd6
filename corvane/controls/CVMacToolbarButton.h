// The button of an action in a toolbar: icon and title, and a menu where the action has actions of
// its own.
#pragma once

#include "corvane/models/CVAction.h"
#include "corvane/platform/Image.h"
#include "corvane/views/PressableControl.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane {

/// What it shows is the action's at the time when it is made; a toolbar's item changes it later.
class CVMacToolbarButton : public views::PressableControl {
  public:
    /// Null makes a button that shows and does nothing.
    explicit CVMacToolbarButton(std::shared_ptr<CVAction> action);

    const std::shared_ptr<CVAction>& action() const { return action_; }
    /// Of the button's action or of the one chosen from its menu, after that was invoked.
    std::function<void(CVAction&)> didInvokeAction;
    /// Before the menu is made.
    std::function<void()> menuWillOpen;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const platform::ImagePtr& image() const { return image_; }  ///< null for none
    void setImage(platform::ImagePtr image);
    /// Without an image the title shows in any case.
    bool showsTitle() const { return showsTitle_; }
    void setShowsTitle(bool shows);
    /// Large icons stand above the title, small ones before it.
    bool usesLargeIcon() const { return usesLargeIcon_; }
    void setUsesLargeIcon(bool large);

    /// Whether a click opens a menu.
    bool hasMenu() const;

    /// The toolbar lets Tab stop at one of its buttons.
    void setTabStop(bool stop) { isTabStop_ = stop; }
    bool isTabStop() const { return isTabStop_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool keyDown(const views::KeyEvent& event) override;
    bool canBecomeKeyView() const override { return isTabStop_ && Control::canBecomeKeyView(); }
    /// What was set; otherwise the title where it is cut off or does not show.
    std::string toolTip() const override;
    views::Role accessibilityRole() const override;
    std::string accessibilityName() const override;

  protected:
    bool canBeClicked() const override { return isEnabled() && action_; }
    void wasClicked() override;

  private:
    struct Places;
    Places places() const;
    views::Size iconSize() const;
    double titleWidth() const;
    bool titleShows() const { return (showsTitle_ || !image_) && !title_.empty(); }
    void openMenu();

    std::shared_ptr<CVAction> action_;
    std::string title_;
    platform::ImagePtr image_;
    bool showsTitle_ = true;
    bool usesLargeIcon_ = false;
    bool isTabStop_ = true;
};

}  // namespace corvane
