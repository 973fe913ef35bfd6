// The line below a list: what is to be said about it, and how work on it goes on.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/CompoundView.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::views {
class Label;
}

namespace corvane {

/// An icon at the leading side, which is a button with a context menu; the text; and a view of
/// somebody else's, such as the progress of work, at the trailing side.
class CVMacStatusBar : public views::CompoundView {
  public:
    CVMacStatusBar();
    ~CVMacStatusBar() override;

    std::function<void()> statusIconSelected;
    /// Null for none.
    std::function<std::shared_ptr<views::Menu>()> contextMenuForStatusIcon;

    const std::string& text() const;
    void setText(std::string text);
    /// The name is for those who do not see the icon, and its tool tip. Null takes the icon away.
    void setStatusIcon(platform::ImagePtr icon, std::string name);
    const std::shared_ptr<views::View>& accessoryView() const { return accessoryView_; }
    void setAccessoryView(std::shared_ptr<views::View> view);  ///< null for none

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    views::Role accessibilityRole() const override { return views::Role::StatusBar; }
    std::string accessibilityValue() const override { return text(); }

  private:
    class Icon;

    std::shared_ptr<Icon> icon_;
    std::shared_ptr<views::Label> label_;
    std::shared_ptr<views::View> accessoryView_;
};

}  // namespace corvane
