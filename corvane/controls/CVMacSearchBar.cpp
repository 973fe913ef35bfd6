#include "corvane/controls/CVMacSearchBar.h"

#include "corvane/controls/MapImage.h"
#include "corvane/controls/SearchGlyphButton.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Menu.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <utility>

namespace corvane {

using views::Rect;
using views::Size;

namespace {

constexpr double kMarginX = 8;
constexpr double kMarginY = 5;
constexpr double kGap = 8;
constexpr double kNarrowestField = 150;  // beside which the scopes may stand
constexpr double kPreferredField = 260;
constexpr double kCornerRadius = 6;

std::string localized(const char* key) {
    return EXLocalizable::localize(key);
}

}  // namespace

/// The bar draws its border, around the buttons in it too.
class CVMacSearchBar::Field final : public views::TextField {
  public:
    void draw(views::Canvas& canvas, const Rect&) override {
        const bool empty = stringValue().empty();
        const views::TextStyle style{font(), empty ? views::theme().placeholderText : textColor(),
                                     alignment()};
        canvas.drawText(empty ? placeholderString() : stringValue(), textRect(), style);
    }
};

/// What keeps a pending search alive is not the bar.
struct CVMacSearchBar::Recipient {
    std::weak_ptr<CVMacSearchBar> bar;
};

/// As for a language written from left to right.
struct CVMacSearchBar::Places {
    Rect box, magnifier, field, clear, filter, scopes;
    double height = 0;
};

CVMacSearchBar::CVMacSearchBar()
    : field_(std::make_shared<Field>()),
      magnifier_(std::make_shared<SearchGlyphButton>(SearchGlyph::Magnifier, true)),
      clear_(std::make_shared<SearchGlyphButton>(SearchGlyph::Clear, false)),
      filter_(std::make_shared<SearchGlyphButton>(SearchGlyph::Filter, true)),
      scopes_(std::make_shared<views::SegmentedControl>()) {
    scheduler_.setDelay(0.3);
    scheduler_.setSelector([](Recipient& recipient, const EXValue&) {
        const auto bar = recipient.bar.lock();
        if (bar && bar->searchPending_) bar->searchNow();
    });
    setAccessibilityName(localized("Search"));
    field_->setPlaceholderString(localized("Search"));
    magnifier_->setAccessibilityName(localized("SearchCategory"));
    clear_->setAccessibilityName(localized("ClearSearch"));
    filter_->setAccessibilityName(localized("SearchFilter"));
    scopes_->setAccessibilityName(localized("SearchScope"));
    magnifier_->setAction([this](views::Control&) { showCategories(); });
    clear_->setAction([this](views::Control&) { clearByUser(); });
    filter_->setAction([this](views::Control&) { showFilters(); });
    scopes_->setAction([this](views::Control&) {
        const auto told = didSelectScope;
        if (told) told(selectedScope());
    });
    for (const std::shared_ptr<View>& part :
         std::initializer_list<std::shared_ptr<View>>{magnifier_, field_, clear_, filter_, scopes_})
        addSubview(part);
    setKeyViewParts({magnifier_, field_, filter_, scopes_});
    updateButtons();
}

CVMacSearchBar::~CVMacSearchBar() {
    for (views::Control* part :
         std::initializer_list<views::Control*>{&*magnifier_, &*clear_, &*filter_, &*scopes_})
        part->setAction({});
}

// The text.

const std::string& CVMacSearchBar::placeholder() const {
    return field_->placeholderString();
}

void CVMacSearchBar::setPlaceholder(std::string text) {
    field_->setPlaceholderString(std::move(text));
}

const std::string& CVMacSearchBar::string() const {
    return field_->stringValue();
}

void CVMacSearchBar::setString(std::string text) {
    withdrawSearch();
    field_->setStringValue(std::move(text));
    updateButtons();
}

bool CVMacSearchBar::focusSearchField() {
    return window() && window()->makeFirstResponder(field_);
}

void CVMacSearchBar::withdrawSearch() {
    searchPending_ = false;
    scheduler_.cancelDeferredAction();
}

void CVMacSearchBar::searchWhenPaused() {
    if (!scheduler_.target()) {
        const auto self = std::static_pointer_cast<CVMacSearchBar>(shared_from_this());
        scheduler_.setTarget(std::make_shared<Recipient>(Recipient{self}));
    }
    scheduler_.cancelDeferredAction();
    scheduler_.scheduleDeferredAction();
    searchPending_ = true;
}

void CVMacSearchBar::searchNow() {
    const auto keepAlive = shared_from_this();
    withdrawSearch();
    if (string().empty()) return;
    const auto told = didSearchForString;
    const std::string text = string();  // which may be set anew
    if (told) told(text);
}

void CVMacSearchBar::clearByUser() {
    const auto keepAlive = shared_from_this();
    setString("");
    focusSearchField();
    const auto told = didClearSearch;
    if (told) told();
}

void CVMacSearchBar::didMoveToWindow() {
    if (!window()) withdrawSearch();
}

void CVMacSearchBar::controlTextDidChange(views::TextField&) {
    const auto keepAlive = shared_from_this();
    updateButtons();
    if (!string().empty()) return searchWhenPaused();
    withdrawSearch();
    const auto told = didClearSearch;
    if (told) told();
}

void CVMacSearchBar::controlTextDidBeginEditing(views::TextField&) {
    setNeedsDisplay();
}

void CVMacSearchBar::controlTextDidEndEditing(views::TextField&) {
    setNeedsDisplay();
}

bool CVMacSearchBar::controlDoCommandBySelector(views::TextField&, views::FieldEditor&,
                                                views::Command command) {
    const auto keepAlive = shared_from_this();
    if (command == views::Command::InsertNewline) {
        searchNow();
        return true;
    }
    if (command != views::Command::CancelOperation) return false;
    if (!string().empty()) {
        clearByUser();
    } else {
        const auto told = didExitSearch;
        if (told) told();
    }
    return true;
}

// Scopes, categories and filters.

void CVMacSearchBar::setScopes(std::vector<std::string> scopes) {
    std::vector<views::Segment> segments;
    for (auto& scope : scopes) {
        views::Segment segment;
        segment.label = std::move(scope);
        segments.push_back(std::move(segment));
    }
    scopes_->setSegments(std::move(segments));
    scopes_->setSelectedSegment(0);
    updateButtons();
    preferredSizeDidChange();
}

std::int64_t CVMacSearchBar::selectedScope() const {
    return scopes_->selectedSegment();
}

void CVMacSearchBar::setSelectedScope(std::int64_t scope) {
    if (scope >= 0 && scope < static_cast<std::int64_t>(scopes_->segments().size()))
        scopes_->setSelectedSegment(static_cast<int>(scope));
}

void CVMacSearchBar::setCategories(std::vector<std::string> categories) {
    categories_ = std::move(categories);
    selectedCategory_ = categories_.empty() ? -1 : 0;
    updateButtons();
    preferredSizeDidChange();
}

void CVMacSearchBar::setSelectedCategory(std::int64_t category) {
    if (category < 0 || category >= static_cast<std::int64_t>(categories_.size())) return;
    selectedCategory_ = category;
    updateButtons();
}

void CVMacSearchBar::setFilterItems(std::shared_ptr<const EXChoiceList> items,
                                    std::shared_ptr<const EXImageMap> images) {
    filterItems_ = std::move(items);
    filterImages_ = std::move(images);
    selectedFilterItem_.reset();
    updateButtons();
    preferredSizeDidChange();
}

void CVMacSearchBar::setSelectedFilterItem(std::optional<CVIndexPath> path) {
    if (path && (!filterItems_ || !filterItems_->itemAtIndexPath(path->toNSIndexPath()))) return;
    selectedFilterItem_ = std::move(path);
    updateButtons();
}

void CVMacSearchBar::updateButtons() {
    clear_->setHidden(string().empty());
    magnifier_->setEnabled(!categories_.empty());
    magnifier_->setValue(
        selectedCategory_ < 0 ? "" : categories_[static_cast<std::size_t>(selectedCategory_)]);
    filter_->setHidden(!filterItems_ || filterItems_->sectionCount() == 0);
    filter_->setHighlighted(selectedFilterItem_.has_value());
    std::optional<std::string> title;
    if (filterItems_ && selectedFilterItem_)
        title = filterItems_->titleForItemAtIndexPath(selectedFilterItem_->toNSIndexPath());
    filter_->setValue(title.value_or(""));
    scopes_->setHidden(scopes_->segments().empty());
}

void CVMacSearchBar::showCategories() {
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacSearchBar>(shared_from_this()));
    const auto menu = std::make_shared<views::Menu>();
    for (std::size_t i = 0; i < categories_.size(); ++i) {
        const auto index = static_cast<std::int64_t>(i);
        auto& item = menu->addItem(categories_[i], [weak, index](views::MenuItem&) {
            if (const auto self = weak.lock()) self->selectCategory(index);
        });
        item.setOn(index == selectedCategory_);
    }
    showMenuBelow(*magnifier_, menu);
}

void CVMacSearchBar::selectCategory(std::int64_t category) {
    // There may be others by now.
    if (category >= static_cast<std::int64_t>(categories_.size())) return;
    setSelectedCategory(category);
    const auto told = didSelectSearchCategoryAtIndex;
    if (told) told(category);
}

void CVMacSearchBar::showFilters() {
    if (!filterItems_) return;
    const auto menu = std::make_shared<views::Menu>();
    for (std::int64_t section = 0; section < filterItems_->sectionCount(); ++section)
        addFilterItems(*menu, section);
    showMenuBelow(*filter_, menu);
}

void CVMacSearchBar::addFilterItems(views::Menu& menu, std::int64_t section) {
    const auto weak = std::weak_ptr(std::static_pointer_cast<CVMacSearchBar>(shared_from_this()));
    const auto choices = filterItems_->sectionAtIndex(section);
    if (section > 0) menu.addSeparator();
    if (choices->title()) menu.addItem(*choices->title());
    for (std::int64_t row = 0; row < choices->itemCount(); ++row) {
        const auto& choice = *choices->itemAtIndex(row);
        const CVIndexPath path(section, row);
        auto& item = menu.addItem(choice.title().value_or(""),
                                  [weak, path, of = filterItems_](views::MenuItem&) {
                                      const auto self = weak.lock();
                                      if (self && self->filterItems_ == of)
                                          self->selectFilterItem(path);
                                  });
        item.setImage(mapImage(filterImages_.get(), choice.iconIndex()));
        item.setOn(path == selectedFilterItem_);
    }
}

void CVMacSearchBar::selectFilterItem(const CVIndexPath& path) {
    setSelectedFilterItem(path);
    const auto told = didSelectFilterItemAtIndexPath;
    if (told) told(path);
}

void CVMacSearchBar::showMenuBelow(const View& button, const std::shared_ptr<views::Menu>& menu) {
    if (window())
        window()->host().showMenu(menu,
                                  button.convertToWindow(views::Point{0, button.frame().height}));
}

// Looks.

CVMacSearchBar::Places CVMacSearchBar::places(double width) const {
    Places places;
    const auto sizeOf = [](auto& part) {
        return part.isHidden() ? Size{} : part.preferredSizeThatFits({});
    };
    const Size filter = sizeOf(*filter_);
    const Size scopes = sizeOf(*scopes_);
    const double inside = std::max(0.0, width - 2 * kMarginX);
    const double forFilter = filter.width > 0 ? filter.width + kGap : 0;
    const bool beside =
        scopes.width > 0 && inside - forFilter - scopes.width - kGap >= kNarrowestField;
    const double row =
        std::max(views::textMeasurer().lineHeight(field_->font()) + 8, scopes.height);
    const double box = std::max(0.0, inside - forFilter - (beside ? scopes.width + kGap : 0));
    places.box = {kMarginX, kMarginY, box, row};

    const double magnifier = sizeOf(*magnifier_).width;
    const double clear = clear_->preferredSizeThatFits({}).width;
    places.magnifier = {kMarginX, kMarginY, magnifier, row};
    places.field = {kMarginX + magnifier, kMarginY + 2, std::max(0.0, box - magnifier - clear),
                    row - 4};
    places.clear = {places.field.right(), kMarginY, clear, row};
    double x = places.box.right();
    if (filter.width > 0) {
        places.filter = {x + kGap, kMarginY, filter.width, row};
        x = places.filter.right();
    }
    places.height = row + 2 * kMarginY;
    if (beside) {
        places.scopes = {x + kGap, kMarginY, scopes.width, row};
    } else if (scopes.width > 0) {
        places.scopes = {kMarginX, places.height, std::min(scopes.width, inside), scopes.height};
        places.height += scopes.height + kMarginY;
    }
    return places;
}

Size CVMacSearchBar::preferredSizeThatFits(Size available) {
    double wanted = kPreferredField + 2 * kMarginX;
    for (const auto& part : {std::shared_ptr<View>(filter_), std::shared_ptr<View>(scopes_)})
        if (!part->isHidden()) wanted += part->preferredSizeThatFits({}).width + kGap;
    const double width = std::min(wanted, available.width);
    return {width, places(width).height};
}

void CVMacSearchBar::applyLayout() {
    const double width = frame().width;
    const Places places = this->places(width);
    magnifier_->setFrame(views::mirrored(places.magnifier, width));
    field_->setFrame(views::mirrored(places.field, width));
    clear_->setFrame(views::mirrored(places.clear, width));
    filter_->setFrame(views::mirrored(places.filter, width));
    scopes_->setFrame(views::mirrored(places.scopes, width));
}

void CVMacSearchBar::draw(views::Canvas& canvas, const Rect&) {
    const views::Theme& colors = views::theme();
    const Rect box = views::mirrored(places(frame().width).box, frame().width);
    const bool focused = field_->isEditing() && window()->isActive();
    canvas.fillRoundedRect(box, kCornerRadius, colors.background);
    canvas.strokeRoundedRect(box, kCornerRadius, focused ? colors.accent : colors.border,
                             focused ? 2 : 1);
}

bool CVMacSearchBar::mouseDown(const views::MouseEvent& event) {
    const Rect box = views::mirrored(places(frame().width).box, frame().width);
    return box.contains(convertFromWindow(event.locationInWindow())) && focusSearchField();
}

}  // namespace corvane
