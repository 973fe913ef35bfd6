#include "corvane/controls/ChooserField.h"

#include "corvane/views/Event.h"

#include <utility>

namespace corvane {

namespace {

bool opensChooser(char32_t key) {
    return key == views::kKeyUpArrow || key == views::kKeyDownArrow;
}

/// Keys that mean nothing to a line of text.
bool leadsIntoChooser(char32_t key) {
    return opensChooser(key) || key == views::kKeyPageUp || key == views::kKeyPageDown;
}

}  // namespace

// The chooser.

PopOver& ChooserField::dateChooserPopover() {
    if (popOver_) return *popOver_;
    chooser_ = makeChooser();
    popOver_ = std::make_unique<PopOver>(chooser_);
    popOver_->setBackgroundColor(chooser_->headerBackgroundColor());
    popOver_->setDelegate(std::shared_ptr<PopOverDelegate>(shared_from_this(), this));
    return *popOver_;
}

void ChooserField::forgetChooser() {
    hideDateChooserOverlay();
    popOver_.reset();
    chooser_.reset();
}

void ChooserField::showDateChooserOverlay() {
    if (!isEditable() || !isEnabled() || !window()) return;
    PopOver& popOver = dateChooserPopover();
    if (popOver.isShown()) return;
    showInChooser(*chooser_, "");
    presenting_ = true;
    popOver.showBeside(shared_from_this());
    presenting_ = false;
}

void ChooserField::hideDateChooserOverlay() {
    if (isChooserShown()) popOver_->close();
}

void ChooserField::popoverDidClose(PopOver&) {
    presenting_ = false;
}

// Editing.

bool ChooserField::becomeFirstResponder() {
    const bool became = ValueField::becomeFirstResponder();
    setNeedsDisplay();
    if (became) showDateChooserOverlay();
    return became;
}

void ChooserField::textDidChange(std::string text) {
    ValueField::textDidChange(std::move(text));
    if (isChooserShown()) showInChooser(*chooser_, stringValue());
}

void ChooserField::textDidEndEditing(bool changed) {
    if (!presenting_) hideDateChooserOverlay();
    setNeedsDisplay();
    ValueField::textDidEndEditing(changed);
}

bool ChooserField::mouseDown(const views::MouseEvent& event) {
    const bool done = ValueField::mouseDown(event);
    if (isEditing()) showDateChooserOverlay();
    return done;
}

bool ChooserField::takesKey(const views::KeyEvent& event) {
    const char32_t key = event.firstCharacter();
    if (!isChooserShown()) {
        if (!opensChooser(key)) return false;
        showDateChooserOverlay();
        return isChooserShown();
    }
    if (key == views::kKeyEscape) {
        hideDateChooserOverlay();
        return true;
    }
    return (leadsIntoChooser(key) || chooser_->hasHighlight()) && chooser_->moveByKey(event);
}

}  // namespace corvane
