// A row of a source list: icon, label, and how many there are. One thread, the window's.
#pragma once

#include "corvane/platform/Image.h"
#include "corvane/table/CVMacTableViewCell.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {
class CVMacBadgeView;
}

namespace corvane::views {
class Label;
}

namespace corvane::gallery {

class IconLabelCell final : public CVMacTableViewCell {
  public:
    explicit IconLabelCell(const CVIndexPath& path) : CVMacTableViewCell(path) {}

    /// No badge for 0. The first time also makes the controls.
    void show(const platform::ImagePtr& icon, const std::string& label, std::int64_t count = 0);

    double rowHeightForContentWidth(double width) override;
    void layoutContentView(views::View& contentView) override;

  private:
    std::shared_ptr<views::ImageView> icon_;
    std::shared_ptr<views::Label> label_;
    std::shared_ptr<CVMacBadgeView> badge_;
};

}  // namespace corvane::gallery
