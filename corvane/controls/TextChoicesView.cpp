#include "corvane/controls/TextChoicesView.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Theme.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

constexpr double kRowHeight = 24;
constexpr double kMarginX = 8;
constexpr double kLeastWidth = 140;
constexpr double kMostWidth = 420;
constexpr std::int64_t kRowsOfPage = 10;

}  // namespace

class TextChoicesView::Row final : public views::View {
  public:
    Row(TextChoicesView& list, std::size_t index) : list_(list), index_(index) {}

    views::IconAndText content() const {
        const Item& item = list_.items_[index_];
        return {.icon = item.icon, .text = item.title, .centred = false, .detail = item.detail};
    }

    void draw(views::Canvas& canvas, const views::Rect&) override {
        const views::Theme& colors = views::theme();
        const views::Rect rect = bounds().insetBy(2, 1);
        if (list_.selection_ == index_) canvas.fillRoundedRect(rect, 5, colors.selection);
        if (list_.highlight_ == index_) canvas.strokeRoundedRect(rect, 5, colors.text, 2);
        views::drawIconAndText(canvas, content(), bounds().insetBy(kMarginX, 0), colors.text);
    }

    bool mouseDown(const views::MouseEvent&) override { return true; }
    bool mouseUp(const views::MouseEvent& event) override {
        if (bounds().contains(convertFromWindow(event.locationInWindow()))) accessibilityPress();
        return true;
    }

    std::string toolTip() const override {
        if (!superview()) return {};
        if (!views::isTextCut(content(), frame().width - 2 * kMarginX)) return {};
        const Item& item = list_.items_[index_];
        return item.detail.empty() ? item.title : item.title + ", " + item.detail;
    }
    views::Role accessibilityRole() const override { return views::Role::Row; }
    std::string accessibilityName() const override {
        return superview() ? list_.cellName(index_) : std::string();
    }
    std::string accessibilityValue() const override {
        return superview() ? list_.items_[index_].detail : std::string();
    }
    bool accessibilitySelected() const override {
        return superview() && list_.selection_ == index_;
    }
    bool accessibilityCanPress() const override { return true; }
    void accessibilityPress() override {
        if (superview()) list_.chooseCell(index_);
    }

  private:
    TextChoicesView& list_;  ///< takes the rows out before it goes
    std::size_t index_;
};

TextChoicesView::TextChoicesView(std::vector<Item> items)
    : items_(std::move(items)),
      document_(std::make_shared<views::View>()),
      scrollView_(std::make_shared<views::ScrollView>()) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        rows_.push_back(std::make_shared<Row>(*this, i));
        document_->addSubview(rows_.back());
    }
    scrollView_->setDocumentView(document_);
    addSubview(scrollView_);
}

TextChoicesView::~TextChoicesView() {
    for (const auto& row : rows_)
        row->removeFromSuperview();
}

void TextChoicesView::setSelection(const std::optional<platform::IndexPath>& path) {
    const auto found = std::ranges::find(items_, path, [](const Item& item) {
        return std::optional<platform::IndexPath>(item.path);
    });
    selection_.reset();
    highlight_.reset();
    if (found != items_.end()) {
        selection_ = static_cast<std::size_t>(found - items_.begin());
        scrollTo(*selection_);
    }
    setNeedsDisplay();
}

// Choosing.

void TextChoicesView::chooseCell(std::size_t index) {
    const auto keepAlive = weak_from_this().lock();
    const auto path = items_.at(index).path;
    const auto notice = didChoose;
    setSelection(path);
    if (notice) notice(path);
}

bool TextChoicesView::chooseHighlighted() {
    if (!highlight_) return false;
    chooseCell(*highlight_);
    return true;
}

std::optional<std::size_t> TextChoicesView::movedByKey(const views::KeyEvent& event) const {
    const auto count = static_cast<std::int64_t>(items_.size());
    if (event.modifierFlags() != 0 || count == 0) return std::nullopt;
    const auto present = highlight_ ? highlight_ : selection_;
    const std::int64_t from = present ? static_cast<std::int64_t>(*present) : -1;
    std::int64_t to = 0;
    switch (event.firstCharacter()) {
        case views::kKeyUpArrow:
            to = present ? from - 1 : count - 1;
            break;
        case views::kKeyDownArrow:
            to = from + 1;
            break;
        case views::kKeyPageUp:
            to = from - kRowsOfPage;
            break;
        case views::kKeyPageDown:
            to = from + kRowsOfPage;
            break;
        case views::kKeyHome:
            break;
        case views::kKeyEnd:
            to = count - 1;
            break;
        default:
            return std::nullopt;
    }
    return static_cast<std::size_t>(std::clamp<std::int64_t>(to, 0, count - 1));
}

bool TextChoicesView::moveByKey(const views::KeyEvent& event) {
    const char32_t key = event.firstCharacter();
    if (key == views::kKeyReturn || key == views::kKeyEnter) return chooseHighlighted();
    const auto to = movedByKey(event);
    if (!to) return false;
    highlight_ = to;
    scrollTo(*to);
    setNeedsDisplay();
    accessibilityDidChange(views::AccessibilityChange::Value);
    return true;
}

std::string TextChoicesView::cellName(std::size_t index) const {
    return index < items_.size() ? items_[index].title : std::string();
}

std::string TextChoicesView::accessibilityValue() const {
    return highlight_ ? cellName(*highlight_) : std::string();
}

// Looks.

views::Size TextChoicesView::preferredSizeThatFits(views::Size available) {
    double widest = kLeastWidth;
    for (const auto& row : rows_)
        widest = std::max(widest, views::sizeOf(row->content()).width + 2 * kMarginX);
    const auto shown = std::min(kRowsOfPage, static_cast<std::int64_t>(items_.size()));
    return {std::min({available.width, widest, kMostWidth}),
            std::min(available.height, static_cast<double>(shown) * kRowHeight)};
}

void TextChoicesView::layoutIfNeeded() {
    scrollView_->setFrame(bounds());
    document_->setFrameSize({frame().width, static_cast<double>(rows_.size()) * kRowHeight});
    for (std::size_t i = 0; i < rows_.size(); ++i)
        rows_[i]->setFrame({0, static_cast<double>(i) * kRowHeight, frame().width, kRowHeight});
}

void TextChoicesView::scrollTo(std::size_t index) {
    layoutIfNeeded();
    scrollView_->scrollToShow(
        {0, static_cast<double>(index) * kRowHeight, frame().width, kRowHeight});
}

}  // namespace corvane
