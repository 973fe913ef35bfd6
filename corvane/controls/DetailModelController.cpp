#include "corvane/controls/DetailModelController.h"

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/models/CVDetail.h"
#include "corvane/platform/TypedNumber.h"
#include "corvane/views/EXMacAlertController.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

using platform::IndexPath;
using Descriptor = EXDetailModelFieldDescriptor;

constexpr double kLineMargin = 4;

bool hasHint(const Descriptor& field, std::int64_t hint) {
    return (field.displayHints() & hint) != 0;
}

bool isNumeric(const Descriptor& field) {
    return field.type() == EXDetailModelFieldTypeInteger ||
           field.type() == EXDetailModelFieldTypeDouble;
}

CVDetailEditorType typeOfChoices(const Descriptor& field) {
    return hasHint(field, EXDetailModelFieldDisplayHintEditInline) ? CVDetailEditorTypeRadioGroup
                                                                   : CVDetailEditorTypeChoice;
}

/// As a text, and what is typed is a value only where it can be read as one.
bool isTyped(const Descriptor& field) {
    return field.formatter() || isNumeric(field) || field.type() == EXDetailModelFieldTypeString ||
           field.type() == EXDetailModelFieldTypeText ||
           field.type() == EXDetailModelFieldTypeExtendedText;
}

CVDetailEditorType typeOfTexts(const Descriptor& field) {
    if (field.isSecureTextEntry()) return CVDetailEditorTypeThirdText;
    const bool isLong = field.type() == EXDetailModelFieldTypeExtendedText;
    const bool isText = field.type() == EXDetailModelFieldTypeText;
    const bool isInline = hasHint(field, EXDetailModelFieldDisplayHintEditInline);
    return isLong || (isText && !isInline) ? CVDetailEditorTypeSecondText : CVDetailEditorTypeText;
}

/// None for a type that nobody knows.
std::optional<CVDetailEditorType> typeOfEditor(const Descriptor& field) {
    const std::string& type = field.type();
    if (isTyped(field)) return typeOfTexts(field);
    if (type == EXDetailModelFieldTypeChoice) return typeOfChoices(field);
    if (type == EXDetailModelFieldTypeBool)
        return hasHint(field, EXDetailModelFieldDisplayHintUseSwitch) ? CVDetailEditorTypeSwitch
                                                                      : typeOfChoices(field);
    if (type == EXDetailModelFieldTypeDateAndTime) return CVDetailEditorTypeSecondDate;
    if (type == EXDetailModelFieldTypeDateOnly) return CVDetailEditorTypeDateOnly;
    if (type == EXDetailModelFieldTypeTimeOnly) return CVDetailEditorTypeTimeOnly;
    return std::nullopt;
}

/// None for a text that is no such number.
template <class Number>
std::optional<EXValue> numberIn(std::string_view text) {
    const auto plain = platform::plainNumber(text);
    if (!plain) return std::nullopt;
    Number number{};
    const char* const end = plain->data() + plain->size();
    const auto [stop, problem] = std::from_chars(plain->data(), end, number);
    return problem == std::errc() && stop == end ? std::optional<EXValue>(number) : std::nullopt;
}

/// What a typed text means for the field; none where it is no value of it.
std::optional<EXValue> valueOfText(const Descriptor& field, std::string_view text) {
    if (text.empty()) return EXValue();
    if (field.formatter()) return field.formatter()->valueFromString(text);
    if (field.type() == EXDetailModelFieldTypeInteger) return numberIn<std::int64_t>(text);
    if (field.type() == EXDetailModelFieldTypeDouble) return numberIn<double>(text);
    return EXValue(text);
}

std::shared_ptr<const EXChoiceList> yesAndNo() {
    auto list = std::make_shared<EXChoiceList>();
    list->addItemWithTitle(EXLocalizable::localize("Yes"), true);
    list->addItemWithTitle(EXLocalizable::localize("No"), false);
    return list;
}

std::string withText(std::string sentence, std::string_view text) {
    constexpr std::string_view kPlace = "{}";
    const auto place = sentence.find(kPlace);
    if (place != std::string::npos) sentence.replace(place, kPlace.size(), text);
    return sentence;
}

}  // namespace

std::shared_ptr<DetailModelController> DetailModelController::make(
    std::shared_ptr<EXDetailModel> model) {
    auto controller = std::make_shared<DetailModelController>(std::move(model));
    controller->takeModel();
    return controller;
}

DetailModelController::DetailModelController(std::shared_ptr<EXDetailModel> model)
    : model_(model ? std::move(model) : std::make_shared<EXDetailModel>()),
      modelDelegate_(std::make_shared<EXDetailModelDelegate>()) {}

void DetailModelController::takeModel() {
    const auto weak = weak_from_this();
    modelDelegate_->detailModelDidReloadFieldAtIndexPath = [weak](auto&, const IndexPath& path) {
        const auto self = weak.lock();
        if (const auto form = self ? self->form() : nullptr)
            form->updateValueForField(path.row(), path.section);
    };
    modelDelegate_->didInvalidateDetailModel = [weak](auto&) {
        const auto self = weak.lock();
        if (const auto detail = self ? self->detail() : nullptr) detail->close();
    };
    modelDelegate_->detailModelShowAlertWithTitle = [weak](auto&, auto& title, auto& message,
                                                           auto& action) {
        if (const auto self = weak.lock()) self->showAlert(title, message, action);
    };
    modelDelegate_->detailModelShowConfirmationWithTitle =
        [weak](auto&, auto& title, auto& message, auto& confirm, auto& cancel, auto& confirmation) {
            if (const auto self = weak.lock())
                EXMacAlertController::showConfirmationWithTitle(title, message, confirm, cancel,
                                                                self->window(), confirmation);
        };
    model_->setDelegate(modelDelegate_);
}

// The form.

std::shared_ptr<CVMacDetailForm> DetailModelController::form() const {
    return std::dynamic_pointer_cast<CVMacDetailForm>(detail());
}

views::Window* DetailModelController::window() const {
    const auto form = this->form();
    return form ? form->window() : nullptr;
}

void DetailModelController::showAlert(const std::string& title, const std::string& message,
                                      const std::string& defaultAction) {
    ++refusals_;
    auto* window = this->window();
    const std::weak_ptr<DetailModelController> weak = weak_from_this();
    if (window) ++alerts_;
    EXMacAlertController::showAlertWithTitle(title, message, defaultAction, window, [weak](int) {
        const auto self = weak.lock();
        if (self && self->alerts_ > 0) --self->alerts_;
    });
}

void DetailModelController::detailWillAppear() {
    alerts_ = 0;  // those of another window end there, or with it
}

// The layout.

bool DetailModelController::isFooter(Index section) const {
    return model_->footerSectionDescriptor() && section == model_->numberOfSections();
}

auto DetailModelController::descriptor(Index field, Index section) const -> FieldDescriptor {
    if (field < 0 || field >= countFields(section)) return nullptr;
    if (isFooter(section))
        return model_->footerSectionDescriptor()
            ->fieldDescriptors()[static_cast<std::size_t>(field)];
    return model_->descriptorForFieldAtIndexPath(IndexPath::indexPathForRow(field, section));
}

auto DetailModelController::title() const -> Text {
    return model_->title();
}

std::int64_t DetailModelController::countSections() const {
    return model_->numberOfSections() + (model_->footerSectionDescriptor() ? 1 : 0);
}

auto DetailModelController::nameForSection(Index section) const -> Text {
    if (isFooter(section)) return model_->footerSectionDescriptor()->title();
    const bool exists = section >= 0 && section < model_->numberOfSections();
    return exists ? model_->titleForSection(section) : Text();
}

std::int64_t DetailModelController::countFields(Index section) const {
    if (isFooter(section)) return model_->footerSectionDescriptor()->numberOfFields();
    const bool exists = section >= 0 && section < model_->numberOfSections();
    return exists ? model_->numberOfFieldsInSection(section) : 0;
}

auto DetailModelController::nameForField(Index field, Index section) const -> Text {
    const auto descriptor = this->descriptor(field, section);
    return descriptor ? descriptor->title() : Text();
}

auto DetailModelController::placeholderForField(Index field, Index section) const -> Text {
    const auto descriptor = this->descriptor(field, section);
    return descriptor ? descriptor->placeholder() : Text();
}

bool DetailModelController::fieldIsEditable(Index field, Index section) const {
    const auto descriptor = this->descriptor(field, section);
    return descriptor && !isFooter(section) && model_->object() &&
           model_->canEditFieldAtIndexPath({section, field});
}

CVDetailEditorType DetailModelController::editorTypeForField(Index field, Index section) const {
    const auto found = descriptor(field, section);
    return found ? typeOfEditor(*found).value_or(CVDetailEditorTypeText)
                 : CVDetailEditorTypeUnsupported;
}

bool DetailModelController::fieldIsInformative(Index field, Index section) const {
    const auto found = descriptor(field, section);
    return found && (hasHint(*found, EXDetailModelFieldDisplayHintInformative) ||
                     isFooter(section) || !typeOfEditor(*found));
}

auto DetailModelController::choiceSetForField(Index field, Index section) const -> ChoiceList {
    const auto found = descriptor(field, section);
    if (!found) return nullptr;
    const bool isFlag = found->type() == EXDetailModelFieldTypeBool;
    return found->choiceList() || !isFlag ? found->choiceList() : yesAndNo();
}

std::shared_ptr<const EXImageMap> DetailModelController::iconMapForField(Index field,
                                                                         Index section) const {
    const auto found = descriptor(field, section);
    return found ? found->iconMap() : nullptr;
}

double DetailModelController::rowHeightForField(Index field, Index section) const {
    const auto found = descriptor(field, section);
    const bool hasLines =
        found && editorTypeForField(field, section) == CVDetailEditorTypeSecondText;
    if (!hasLines || found->numberOfLines() <= 0) return 0;
    const auto lines = static_cast<double>(found->numberOfLines());
    return lines * views::textMeasurer().lineHeight({}) + kLineMargin;
}

// Values.

EXValue DetailModelController::valueForField(Index field, Index section) const {
    const auto found = descriptor(field, section);
    if (!found) return {};
    const EXValue value = isFooter(section) ? model_->valueForFooterFieldAtIndex(field)
                                            : model_->valueForFieldAtIndexPath({section, field});
    if (!found->formatter()) {
        // Of a choice one is always shown; a text, a day or a time may be none.
        const auto choices = choiceSetForField(field, section);
        const bool isOpen = choices && !choices->indexPathForItemWithValue(value);
        return isOpen && model_->object() && value.isNull() ? found->defaultValue() : value;
    }
    const auto text = found->formatter()->stringForValue(value);
    return text ? EXValue(*text) : value;
}

void DetailModelController::valueChangedForField(Index field, Index section, const EXValue& value) {
    const auto self = weak_from_this().lock();
    const auto found = descriptor(field, section);
    if (!found || isFooter(section) || !found->key()) return;
    const auto text = isTyped(*found) ? value.text() : std::nullopt;
    const auto meant = text ? valueOfText(*found, *text) : std::optional(value);
    if (meant) {
        rememberValue(*found->key());
        model_->setValueForFieldAtIndexPath(*meant, {section, field});
    } else {
        showAlert(EXLocalizable::localize("ValueRefused"),
                  withText(EXLocalizable::localize("ValueRefusedText"), *text),
                  EXLocalizable::localize("OK"));
    }
    // As the model has it, which may be another value than the one chosen, or the one before.
    const auto form = this->form();
    if (!form) return;
    form->updateValueForField(field, section);
    // The footer may tell of what follows from it.
    const auto footer = model_->numberOfSections();
    for (Index i = 0; isFooter(footer) && i < countFields(footer); ++i)
        form->updateValueForField(i, footer);
}

void DetailModelController::rememberValue(const std::string& key) {
    const auto object = model_->object();
    if (!object) return;
    if (objectBefore_.lock() != object) valuesBefore_.clear();
    objectBefore_ = object;
    valuesBefore_.try_emplace(key, object->valueForKey(key));
}

// OK and Cancel.

void DetailModelController::didInvokeOkAction() {
    const auto self = weak_from_this().lock();
    if (alerts_ > 0) return;  // what was typed last is not saved
    const int refusals = refusals_;
    model_->saveObject();
    if (refusals_ != refusals) return;
    valuesBefore_.clear();
    CVDetailController::didInvokeOkAction();
}

void DetailModelController::didInvokeCancelAction() {
    const auto self = weak_from_this().lock();
    const auto object = model_->object();
    if (object && objectBefore_.lock() == object) {
        for (const auto& [key, value] : std::exchange(valuesBefore_, {}))
            object->setValueForKey(value, key);
    }
    CVDetailController::didInvokeCancelAction();
}

}  // namespace corvane
