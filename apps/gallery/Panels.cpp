#include "apps/gallery/Panels.h"

#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/views/TextField.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <utility>

namespace corvane::gallery {

using views::View;

namespace {

constexpr views::Font kHeadingFont{14, true};
constexpr views::Font kRemarkFont{11};

/// Above this height a control has several lines, of which the first is about as high.
constexpr double kTall = 30;
constexpr double kBoundless = 100000;

class Caption final : public views::Label {
  public:
    Caption(std::string text, double height) : Label(std::move(text)), height_(height) {}
    views::Size preferredSizeThatFits(views::Size available) override {
        const auto size = Label::preferredSizeThatFits(available);
        return {size.width, std::max(size.height, height_)};
    }

  private:
    double height_;
};

/// A scroll view for what sizes itself, visible to assistive technology as the place of a list.
class GroupScrollView final : public views::ScrollView {
  public:
    views::Role accessibilityRole() const override { return views::Role::Group; }
};

}  // namespace

std::shared_ptr<Pane> Pane::make(const std::shared_ptr<View>& document) {
    auto pane = std::make_shared<Pane>();
    pane->setDocumentView(document);
    return pane;
}

void Pane::fit() {
    const auto& document = documentView();
    if (!document) return;
    const views::Size visible = contentSize();
    const double height = document->preferredSizeThatFits({visible.width, 0}).height;
    document->setFrameSize({visible.width, std::max(visible.height, height)});
}

void Pane::frameDidChange(const views::Rect& before) {
    if (before.size() != frame().size()) fit();
    ScrollView::frameDidChange(before);
}

std::shared_ptr<views::ScrollView> scrolling(const std::shared_ptr<View>& document) {
    auto scrollView = std::make_shared<GroupScrollView>();
    scrollView->setDocumentView(document);
    return scrollView;
}

std::shared_ptr<views::Label> heading(const std::string& text) {
    auto label = std::make_shared<views::Label>(text);
    label->setFont(kHeadingFont);
    return label;
}

std::shared_ptr<views::Label> remark(const std::string& text) {
    auto label = std::make_shared<views::Label>(text);
    label->setFont(kRemarkFont);
    label->setTextColor(views::theme().secondaryText);
    label->setWraps(true);
    return label;
}

std::shared_ptr<Stack> captioned(const std::string& caption, const std::shared_ptr<View>& control,
                                 double captionWidth, Stack::Place place) {
    const bool isTall = control->preferredSizeThatFits({kBoundless, kBoundless}).height > kTall;
    const auto breadth = isTall ? Stack::Breadth::OwnAtStart : Stack::Breadth::Own;
    auto row = stackAcross();
    auto label = std::make_shared<Caption>(caption, isTall ? kTall : 0);
    label->setToolTip(caption);
    row->add(label, {captionWidth, 0, breadth});
    place.breadth = breadth;
    row->add(control, place);
    // A field without a name goes by its placeholder, which says less.
    if (dynamic_cast<views::TextField*>(control.get()) || control->accessibilityName().empty())
        control->setAccessibilityName(caption);
    return row;
}

std::shared_ptr<views::Button> button(const std::string& title, std::function<void()> act) {
    auto made = std::make_shared<views::Button>();
    made->setTitle(title);
    made->setAction([act = std::move(act)](views::Control&) { act(); });
    return made;
}

}  // namespace corvane::gallery
