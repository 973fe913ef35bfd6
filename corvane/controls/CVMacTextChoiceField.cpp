#include "corvane/controls/CVMacTextChoiceField.h"

#include "corvane/controls/ChoiceItems.h"
#include "corvane/controls/MapImage.h"
#include "corvane/controls/TextChoicesView.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Event.h"
#include "corvane/views/IconAndText.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/views/WindowHost.h"
#include "corvane/vocabulary/EXChoiceList.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using Path = std::optional<platform::IndexPath>;

constexpr double kArrowRoom = 18;

/// The path of the first item whose title matches; none where none does.
template <class Matches>
Path firstItem(const EXChoiceList* list, const Matches& matches) {
    for (const ChoiceItem& item : choiceItemsOf(list))
        if (matches(item.title())) return item.path;
    return std::nullopt;
}

std::string folded(std::string_view text) {
    return EXLocalizable::collationForString(text);
}

Path itemBeginningWith(const EXChoiceList* list, std::string_view text) {
    const std::string wanted = folded(text);
    if (wanted.empty()) return std::nullopt;
    return firstItem(list, [&](const auto& title) { return folded(title).starts_with(wanted); });
}

/// In bytes: as many letters as the text has.
std::size_t sizeOfAsManyLetters(std::string_view title, std::string_view text) {
    const auto begins = [](char byte) { return (byte & '\xC0') != '\x80'; };
    auto letters = std::ranges::count_if(text, begins);
    std::size_t size = 0;
    while (size < title.size() && (letters > 0 || !begins(title[size])))
        if (begins(title[size++])) --letters;
    return size;
}

}  // namespace

CVMacTextChoiceField::~CVMacTextChoiceField() = default;

void CVMacTextChoiceField::setChoiceList(std::shared_ptr<const EXChoiceList> choiceList) {
    forgetChooser();
    const EXValue value = this->value();
    choiceList_ = std::move(choiceList);
    if (!selection_) return;
    selection_ = choiceList_ ? choiceList_->indexPathForItemWithValue(value) : std::nullopt;
    if (selection_ || !allowsUnknownText_) showSelection();
}

void CVMacTextChoiceField::setIconMap(std::shared_ptr<const EXImageMap> iconMap) {
    forgetChooser();
    iconMap_ = std::move(iconMap);
}

EXValue CVMacTextChoiceField::value() const {
    return selection_ && choiceList_ ? choiceList_->valueForItemAtIndexPath(selection_) : EXValue();
}

void CVMacTextChoiceField::setValue(const EXValue& value) {
    selection_ = choiceList_ ? choiceList_->indexPathForItemWithValue(value) : std::nullopt;
    showSelection();
}

void CVMacTextChoiceField::setText(const std::string& text) {
    commit(text);
}

void CVMacTextChoiceField::showSelection() {
    const auto title =
        selection_ && choiceList_ ? choiceList_->titleForItemAtIndexPath(selection_) : std::nullopt;
    show(title.value_or(""));
    committed_ = stringValue();
}

// What the text says.

Path CVMacTextChoiceField::pathFor(const std::string& text) const {
    const auto* list = choiceList_.get();
    if (auto path = firstItem(list, [&](const auto& title) { return title == text; })) return path;
    const std::string wanted = folded(text);
    if (auto path = firstItem(list, [&](const auto& title) { return folded(title) == wanted; }))
        return path;
    return allowsUnknownText_ ? std::nullopt : itemBeginningWith(list, text);
}

void CVMacTextChoiceField::commit(const std::string& text) {
    const Path path = text.empty() ? std::nullopt : pathFor(text);
    if (path || text.empty()) {
        selection_ = path;
    } else if (allowsUnknownText_) {
        selection_.reset();
        show(text);
        committed_ = text;
        return;
    }
    showSelection();
}

void CVMacTextChoiceField::sendAction() {
    const auto keepAlive = weak_from_this().lock();
    const Path before = selection_;
    const std::string textBefore = committed_;
    commit(stringValue());
    typed_.clear();
    if (selection_ != before || committed_ != textBefore) sendActionOfValue();
}

void CVMacTextChoiceField::choose(const platform::IndexPath& path) {
    const auto keepAlive = weak_from_this().lock();
    hideDateChooserOverlay();
    const Path before = std::exchange(selection_, path);
    const std::string textBefore = committed_;
    showSelection();
    typed_.clear();
    if (selection_ != before || committed_ != textBefore) sendActionOfValue();
}

// Typing.

void CVMacTextChoiceField::textDidBeginEditing() {
    typed_.clear();
    ChooserField::textDidBeginEditing();
}

void CVMacTextChoiceField::textDidChange(std::string text) {
    const auto keepAlive = weak_from_this().lock();
    // Whoever takes letters away, or types within the text, wants no others.
    const bool isTypedAtEnd = text.size() > typed_.size() && text.starts_with(typed_);
    typed_ = text;
    ChooserField::textDidChange(text);
    if (isTypedAtEnd && isEditing() && stringValue() == text) complete(text);
}

void CVMacTextChoiceField::complete(const std::string& typed) {
    const auto path = itemBeginningWith(choiceList_.get(), typed);
    if (!path) return;
    const std::string title = choiceList_->titleForItemAtIndexPath(path).value_or("");
    const std::size_t size = sizeOfAsManyLetters(title, typed);
    const std::string_view begin = std::string_view(title).substr(0, size);
    if (size == title.size() || folded(begin) != folded(typed)) return;
    setStringValue(typed + title.substr(size));
    window()->fieldEditor().setSelection(typed.size(), std::string::npos);
    window()->host().editedTextDidChange(*this);
}

// The pop-over.

bool CVMacTextChoiceField::takesKey(const views::KeyEvent& event) {
    if (ChooserField::takesKey(event)) return true;
    if (isEditing()) {
        // What was completed counts as typed once it is no longer selected up to the end.
        const auto& editor = window()->fieldEditor();
        const bool isEndSelected = editor.selectionEnd() == stringValue().size();
        typed_ =
            stringValue().substr(0, isEndSelected ? editor.selectionStart() : std::string::npos);
    }
    const char32_t key = event.firstCharacter();
    // Whoever takes the text as it is has no use for the choices any more.
    if (key == views::kKeyReturn || key == views::kKeyEnter) hideDateChooserOverlay();
    return false;
}

bool CVMacTextChoiceField::mouseDown(const views::MouseEvent& event) {
    const bool isOnArrow = arrowRect().contains(convertFromWindow(event.locationInWindow()));
    if (!isOnArrow || !isEditing() || !dateChooserPopover().isShown())
        return ChooserField::mouseDown(event);
    hideDateChooserOverlay();
    return true;
}

void CVMacTextChoiceField::showDateChooserOverlay() {
    if (!choiceItemsOf(choiceList_.get()).empty()) ChooserField::showDateChooserOverlay();
}

std::shared_ptr<ChooserView> CVMacTextChoiceField::makeChooser() {
    std::vector<TextChoicesView::Item> items;
    for (const ChoiceItem& item : choiceItemsOf(choiceList_.get()))
        items.push_back({item.path, item.title(), mapImage(iconMap_.get(), item.item->iconIndex()),
                         item.detail()});
    auto chooser = std::make_shared<TextChoicesView>(std::move(items));
    chooser->didChoose = [weak = weak_from_this()](const platform::IndexPath& path) {
        if (const auto self = weak.lock()) static_cast<CVMacTextChoiceField&>(*self).choose(path);
    };
    return chooser;
}

void CVMacTextChoiceField::showInChooser(ChooserView& chooser, std::string_view text) {
    const auto path = text.empty() ? selection_ : itemBeginningWith(choiceList_.get(), text);
    static_cast<TextChoicesView&>(chooser).setSelection(path);
}

// Looks.

views::Rect CVMacTextChoiceField::arrowRect() const {
    if (!isBordered()) return {};
    return views::mirrored({frame().width - kArrowRoom, 0, kArrowRoom, frame().height},
                           frame().width);
}

views::Rect CVMacTextChoiceField::textRect() const {
    views::Rect rect = ChooserField::textRect();
    if (!isBordered()) return rect;
    rect.width -= kArrowRoom;
    return views::mirrored(rect, frame().width);
}

views::Cursor CVMacTextChoiceField::cursorAt(views::Point point) const {
    return arrowRect().contains(point) ? views::Cursor::Arrow : ChooserField::cursorAt(point);
}

void CVMacTextChoiceField::draw(views::Canvas& canvas, const views::Rect& dirty) {
    ChooserField::draw(canvas, dirty);
    const views::Rect room = arrowRect();
    if (room.isEmpty()) return;
    const views::Point tip{room.x + room.width / 2, room.y + room.height / 2 + 2};
    const platform::Color color = views::theme().secondaryText;
    canvas.drawLine({tip.x - 4, tip.y - 4}, tip, color, 1.5);
    canvas.drawLine(tip, {tip.x + 4, tip.y - 4}, color, 1.5);
}

views::Size CVMacTextChoiceField::preferredSizeThatFits(views::Size available) {
    views::Size size = ChooserField::preferredSizeThatFits(available);
    const double margins = frame().width - textRect().width;
    const auto widen = [&](const std::string& text) {
        const double width = views::sizeOf({.icon = nullptr, .text = text, .font = font()}).width;
        size.width = std::min(available.width, std::max(size.width, width + margins));
    };
    widen(placeholderString());
    widen(stringValue());
    for (const ChoiceItem& item : choiceItemsOf(choiceList_.get()))
        widen(item.title());
    return size;
}

std::string CVMacTextChoiceField::toolTip() const {
    std::string own = views::View::toolTip();
    if (!own.empty()) return own;
    const bool isCut = views::isTextCut({.icon = nullptr, .text = stringValue(), .font = font()},
                                        textRect().width);
    return isCut ? stringValue() : own;
}

}  // namespace corvane
