#include "apps/gallery/IconLabelCell.h"

#include "corvane/controls/CVMacBadgeView.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/Label.h"
#include "corvane/views/Mirroring.h"

namespace corvane::gallery {

namespace {

constexpr double kHeight = 28;
constexpr double kIconSide = 16;
constexpr double kMargin = 12;
constexpr double kGap = 8;

}  // namespace

void IconLabelCell::show(const platform::ImagePtr& icon, const std::string& label,
                         std::int64_t count) {
    if (!icon_) {
        icon_ = createIconView();
        label_ = std::make_shared<views::Label>();
        badge_ = std::make_shared<CVMacBadgeView>();
        contentView()->addSubview(label_);
        contentView()->addSubview(badge_);
    }
    setImageForIconView(icon, *icon_);
    label_->setText(label);
    label_->setToolTip(label);
    badge_->setCount(count);
    setAccessibilityName(label);
    setNeedsApplyLayout();
}

double IconLabelCell::rowHeightForContentWidth(double) {
    return kHeight;
}

void IconLabelCell::layoutContentView(views::View& contentView) {
    if (!icon_) return;
    const double width = contentView.frame().width;
    const auto badge =
        badge_->isHidden() ? views::Size{} : badge_->preferredSizeThatFits({width, kHeight});
    const double labelLeft = kMargin + kIconSide + kGap;
    const double labelRight = width - kMargin - (badge.width > 0 ? badge.width + kGap : 0);
    const auto place = [width](views::View& view, const views::Rect& rect) {
        view.setFrame(views::mirrored(rect, width));
    };
    place(*icon_, {kMargin, (kHeight - kIconSide) / 2, kIconSide, kIconSide});
    place(*label_, {labelLeft, 0, std::max(0.0, labelRight - labelLeft), kHeight});
    place(*badge_,
          {width - kMargin - badge.width, (kHeight - badge.height) / 2, badge.width, badge.height});
}

}  // namespace corvane::gallery
