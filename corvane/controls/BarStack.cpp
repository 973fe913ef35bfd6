#include "corvane/controls/BarStack.h"

#include <algorithm>
#include <utility>

namespace corvane {

double BarStack::heightOf(const ViewPtr& bar, views::Size available) const {
    if (bar->isHidden()) return 0;
    const double preferred = bar->preferredSizeThatFits(available).height;
    const bool isFirst = !above_.empty() && bar == above_.front();
    return isFirst ? std::max(preferred, leastHeightOfFirstBar_) : preferred;
}

double BarStack::heightOf(const Views& bars, views::Size available) const {
    double height = 0;
    for (const auto& bar : bars)
        height += heightOf(bar, available);
    return height;
}

void BarStack::setLeastHeightOfFirstBar(double height) {
    if (height == leastHeightOfFirstBar_) return;
    leastHeightOfFirstBar_ = height;
    setNeedsApplyLayout();
}

void BarStack::setViews(Views barsAbove, ViewPtr content, const ViewPtr& keyView, Views barsBelow) {
    std::erase(barsAbove, nullptr);
    std::erase(barsBelow, nullptr);
    Views all = barsAbove;
    all.push_back(content);
    all.insert(all.end(), barsBelow.begin(), barsBelow.end());
    for (const auto& before : std::vector(subviews()))
        if (std::find(all.begin(), all.end(), before) == all.end()) before->removeFromSuperview();
    for (const auto& view : all)
        if (view && view->superview() != this) addSubview(view);
    std::replace(all.begin(), all.end(), content, keyView ? keyView : content);
    setKeyViewParts(all);
    above_ = std::move(barsAbove);
    content_ = std::move(content);
    below_ = std::move(barsBelow);
    setNeedsApplyLayout();
}

void BarStack::applyLayout() {
    const views::Size size = bounds().size();
    double top = 0;
    for (const auto& bar : above_) {
        const double height = heightOf(bar, size);
        bar->setFrame({0, top, size.width, height});
        top += height;
    }
    double bottom = size.height;
    for (auto bar = below_.rbegin(); bar != below_.rend(); ++bar) {
        const double height = heightOf(*bar, size);
        bottom -= height;
        (*bar)->setFrame({0, bottom, size.width, height});
    }
    if (content_) content_->setFrame({0, top, size.width, std::max(0.0, bottom - top)});
}

views::Size BarStack::preferredSizeThatFits(views::Size available) {
    const double bars = heightOf(above_, available) + heightOf(below_, available);
    const views::Size rest{available.width, std::max(0.0, available.height - bars)};
    const views::Size content = content_ ? content_->preferredSizeThatFits(rest) : views::Size{};
    return {std::max(content.width, available.width), content.height + bars};
}

}  // namespace corvane
