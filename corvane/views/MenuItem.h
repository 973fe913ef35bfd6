// A line of a menu.
#pragma once

#include "corvane/platform/Image.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace corvane::views {

class Menu;

/// Held by std::shared_ptr; equal only to itself. Whoever shows the menu asks isValid then.
class MenuItem {
  public:
    using Action = std::function<void(MenuItem& sender)>;

    explicit MenuItem(std::string title, Action action = {})
        : title_(std::move(title)), action_(std::move(action)) {}
    /// A line between others.
    static std::shared_ptr<MenuItem> separator();

    bool isSeparator() const { return separator_; }
    const std::string& title() const { return title_; }
    void setTitle(std::string title) { title_ = std::move(title); }
    /// Beside the title, at the other side of the menu; empty for none.
    const std::string& detail() const { return detail_; }
    void setDetail(std::string detail) { detail_ = std::move(detail); }
    const platform::ImagePtr& image() const { return image_; }
    void setImage(platform::ImagePtr image) { image_ = std::move(image); }
    bool isOn() const { return on_; }  ///< with a check mark
    void setOn(bool on) { on_ = on; }
    const std::shared_ptr<Menu>& submenu() const { return submenu_; }  ///< null for none
    void setSubmenu(std::shared_ptr<Menu> submenu) { submenu_ = std::move(submenu); }

    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { enabled_ = enabled; }
    /// Asked each time the item is about to be shown or chosen.
    void setValidation(std::function<bool()> validation) { validation_ = std::move(validation); }
    /// Whether it can be chosen: enabled, with something to do, and nobody objects.
    bool isValid() const;
    /// Runs the action where the item is valid.
    void perform();

  private:
    std::string title_;
    std::string detail_;
    Action action_;
    std::function<bool()> validation_;
    platform::ImagePtr image_;
    std::shared_ptr<Menu> submenu_;
    bool enabled_ = true;
    bool on_ = false;
    bool separator_ = false;
};

}  // namespace corvane::views
