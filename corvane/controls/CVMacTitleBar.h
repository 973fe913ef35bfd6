// The line at the top of a list or of a panel that says what it shows.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/views/CompoundView.h"

#include <memory>
#include <string>

namespace corvane {

/// Icon, bold title and subtitle from the leading side; a view of somebody else's, such as a
/// toolbar, at the trailing one, in the width that it prefers, as long as a third of the bar is
/// left to the texts. Texts that do not fit are cut off and are there as the tool tip.
class CVMacTitleBar : public views::CompoundView {
  public:
    using views::CompoundView::CompoundView;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    /// What stands back beside the title, such as a count. None where it is empty.
    const std::string& subtitle() const { return subtitle_; }
    void setSubtitle(std::string subtitle);
    const platform::ImagePtr& icon() const { return icon_; }  ///< null for none
    void setIcon(platform::ImagePtr icon);
    const std::shared_ptr<views::View>& accessoryView() const { return accessoryView_; }
    void setAccessoryView(std::shared_ptr<views::View> view);  ///< null for none

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    std::string toolTip() const override;
    views::Role accessibilityRole() const override { return views::Role::Header; }
    std::string accessibilityName() const override;
    std::string accessibilityValue() const override { return subtitle_; }

  private:
    struct Places;
    Places places() const;

    std::string title_;
    std::string subtitle_;
    platform::ImagePtr icon_;
    std::shared_ptr<views::View> accessoryView_;
};

}  // namespace corvane
