// What a window's toolbar shows for an action. Whoever shows the toolbar makes it, and derives from
// it to follow its changes.
#pragma once

#include "corvane/platform/Image.h"

#include <memory>
#include <string>
#include <utility>

namespace corvane::views {

class View;

/// Held by std::shared_ptr; equal only to itself.
class ToolbarItem {
  public:
    explicit ToolbarItem(std::string identifier) : identifier_(std::move(identifier)) {}
    virtual ~ToolbarItem() = default;
    ToolbarItem(const ToolbarItem&) = delete;
    ToolbarItem& operator=(const ToolbarItem&) = delete;

    const std::string& identifier() const { return identifier_; }
    const std::string& label() const { return label_; }
    void setLabel(std::string label);
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip);
    const platform::ImagePtr& image() const { return image_; }
    void setImage(platform::ImagePtr image);
    /// Stands in the place of image and label; null for none.
    const std::shared_ptr<View>& view() const { return view_; }
    void setView(std::shared_ptr<View> view);
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);

  protected:
    /// After each change.
    virtual void didChange() {}

  private:
    std::string identifier_;
    std::string label_;
    std::string toolTip_;
    platform::ImagePtr image_;
    std::shared_ptr<View> view_;
    bool enabled_ = true;
};

}  // namespace corvane::views
