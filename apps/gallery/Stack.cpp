#include "apps/gallery/Stack.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/ScrollView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane::gallery {

using views::Rect;
using views::Size;

namespace {

/// More than any page is high.
constexpr double kEndless = 100000;

}  // namespace

void Stack::add(const std::shared_ptr<views::View>& view, Place place) {
    parts_.push_back({view, place});
    addSubview(view);
    connectKeyViews();
    setNeedsApplyLayout();
}

void Stack::removeAll() {
    for (const Part& part : std::exchange(parts_, {}))
        part.view->removeFromSuperview();
    connectKeyViews();
    setNeedsApplyLayout();
}

void Stack::connectKeyViews() {
    std::vector<std::shared_ptr<views::View>> keyViews;
    for (const Part& part : parts_) {
        const auto* scrollView = dynamic_cast<const views::ScrollView*>(part.view.get());
        keyViews.push_back(scrollView ? scrollView->documentView() : part.view);
    }
    setKeyViewParts(keyViews);
}

Stack::Extent Stack::extentOf(Size size) const {
    if (axis_ == Axis::Down) return {size.height, size.width};
    return {size.width, size.height};
}

Size Stack::sizeOf(Extent extent) const {
    if (axis_ == Axis::Down) return {extent.breadth, extent.length};
    return {extent.length, extent.breadth};
}

std::vector<double> Stack::lengthsWithin(Extent room) const {
    std::vector<double> lengths;
    double left = room.length + spacing_;
    double shares = 0;
    for (const Part& part : parts_) {
        if (part.view->isHidden()) {
            lengths.push_back(0);
            continue;
        }
        left -= spacing_;
        double length = part.place.length;
        if (part.place.share > 0) {
            shares += part.place.share;
        } else if (length <= 0) {
            const double most = axis_ == Axis::Down ? kEndless : std::max(0.0, left);
            const Size preferred = part.view->preferredSizeThatFits(sizeOf({most, room.breadth}));
            length = std::ceil(std::min(most, extentOf(preferred).length));
        }
        left -= length;
        lengths.push_back(length);
    }
    for (std::size_t i = 0; i < parts_.size(); ++i)
        if (parts_[i].place.share > 0 && !parts_[i].view->isHidden())
            lengths[i] += std::floor(std::max(0.0, left) * parts_[i].place.share / shares);
    return lengths;
}

Size Stack::preferredSizeThatFits(Size available) {
    const Extent whole = extentOf(available);
    const Extent room{axis_ == Axis::Down ? 0 : whole.length - 2 * margin_,
                      whole.breadth - 2 * margin_};
    const auto lengths = lengthsWithin(room);
    Extent total{2 * margin_, 0};
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        if (parts_[i].view->isHidden()) continue;
        const Size preferred =
            parts_[i].view->preferredSizeThatFits(sizeOf({lengths[i], room.breadth}));
        total.breadth = std::max(total.breadth, extentOf(preferred).breadth);
        total.length += lengths[i] + (i > 0 ? spacing_ : 0);
    }
    total.breadth += 2 * margin_;
    return sizeOf(total);
}

void Stack::applyLayout() {
    const Extent whole = extentOf(frame().size());
    const Extent room{whole.length - 2 * margin_, whole.breadth - 2 * margin_};
    const auto lengths = lengthsWithin(room);
    double start = margin_;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const auto& [view, place] = parts_[i];
        if (view->isHidden()) continue;
        double breadth = room.breadth;
        double offset = margin_;
        if (place.breadth != Breadth::Whole) {
            const Size preferred = view->preferredSizeThatFits(sizeOf({lengths[i], room.breadth}));
            breadth = std::min(room.breadth, std::ceil(extentOf(preferred).breadth));
            if (axis_ == Axis::Across && place.breadth == Breadth::Own)
                offset += std::floor((room.breadth - breadth) / 2);
        }
        const Size size = sizeOf({lengths[i], breadth});
        const Rect placed = axis_ == Axis::Down ? Rect{offset, start, size.width, size.height}
                                                : Rect{start, offset, size.width, size.height};
        view->setFrame(views::mirrored(placed, frame().width));
        start += lengths[i] + spacing_;
    }
}

void Stack::draw(views::Canvas& canvas, const Rect& dirty) {
    if (ground_) canvas.fillRect(dirty, *ground_);
}

std::shared_ptr<Stack> stackDown(double spacing, double margin) {
    return std::make_shared<Stack>(Stack::Axis::Down, spacing, margin);
}

std::shared_ptr<Stack> stackAcross(double spacing, double margin) {
    return std::make_shared<Stack>(Stack::Axis::Across, spacing, margin);
}

}  // namespace corvane::gallery
