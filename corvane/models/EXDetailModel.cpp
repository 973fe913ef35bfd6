#include "corvane/models/EXDetailModel.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace corvane {

// The delegate ------------------------------------------------------------------------------------

template <class... Parameters, class... Arguments>
void EXDetailModel::tell(
    std::function<void(EXDetailModel&, Parameters...)> EXDetailModelDelegate::*operation,
    const Arguments&... arguments) {
    const auto delegate = delegate_.lock();
    if (!delegate) return;
    // The operation may replace itself, and may let go of the model.
    const auto self = weak_from_this().lock();
    const auto call = (*delegate).*operation;
    if (call) call(*this, arguments...);
}

void EXDetailModel::setDelegate(std::weak_ptr<EXDetailModelDelegate> delegate) {
    delegate_ = std::move(delegate);
}

void EXDetailModel::reloadFieldAtIndexPath(const IndexPath& path) {
    tell(&EXDetailModelDelegate::detailModelDidReloadFieldAtIndexPath, path);
}

void EXDetailModel::reloadFieldForDescriptor(const EXDetailModelFieldDescriptor* descriptor) {
    if (const auto path = indexPathForFieldDescriptor(descriptor)) reloadFieldAtIndexPath(*path);
}

void EXDetailModel::showAlertWithTitle(const std::string& title, const std::string& message,
                                       const std::string& defaultAction) {
    tell(&EXDetailModelDelegate::detailModelShowAlertWithTitle, title, message, defaultAction);
}

void EXDetailModel::showConfirmationWithTitle(
    const std::string& title, const std::string& message, const std::string& confirmAction,
    const std::string& cancelAction, const EXDetailModelDelegate::Confirmation& confirmation) {
    tell(&EXDetailModelDelegate::detailModelShowConfirmationWithTitle, title, message,
         confirmAction, cancelAction, confirmation);
}

// The object --------------------------------------------------------------------------------------

void EXDetailModel::setUriRepresentation(std::optional<platform::URL> uri) {
    state_ = uri ? kStateExistingObject : kStateNewObject;
    uriRepresentation_ = std::move(uri);
    reloadData();
}

void EXDetailModel::setObject(std::shared_ptr<EXKeyValueObject> object) {
    object_ = std::move(object);
}

void EXDetailModel::setTemplateForNewObject(std::optional<Template> values) {
    templateForNewObject_ = std::move(values);
}

void EXDetailModel::reset() {
    uriRepresentation_.reset();
    object_.reset();
}

void EXDetailModel::invalidate() {
    reset();
    tell(&EXDetailModelDelegate::didInvalidateDetailModel);
}

// The title ---------------------------------------------------------------------------------------

auto EXDetailModel::title() const -> Text {
    if (state_ == kStateExistingObject) return titleForExistingObject_;
    if (state_ == kStateNewObject) return titleForNewObject_;
    return std::nullopt;
}

void EXDetailModel::setTitle(const Text& title) {
    setTitle(title, kStateNewObject);
    setTitle(title, kStateExistingObject);
}

void EXDetailModel::setTitle(Text title, std::int64_t state) {
    if (state == kStateNewObject) titleForNewObject_ = std::move(title);
    if (state == kStateExistingObject) titleForExistingObject_ = std::move(title);
}

// The layout --------------------------------------------------------------------------------------

void EXDetailModel::setSectionDescriptors(std::vector<SectionDescriptor> sections) {
    if (std::find(sections.begin(), sections.end(), nullptr) != sections.end())
        throw std::invalid_argument("a form has no place for a null section");
    sectionDescriptors_ = std::move(sections);
}

void EXDetailModel::setFooterSectionDescriptor(SectionDescriptor section) {
    footerSectionDescriptor_ = std::move(section);
}

std::int64_t EXDetailModel::numberOfSections() const {
    return static_cast<std::int64_t>(sectionDescriptors_.size());
}

auto EXDetailModel::titleForSection(std::int64_t section) const -> Text {
    return sectionDescriptors_.at(static_cast<std::size_t>(section))->title();
}

std::int64_t EXDetailModel::numberOfFieldsInSection(std::int64_t section) const {
    return sectionDescriptors_.at(static_cast<std::size_t>(section))->numberOfFields();
}

auto EXDetailModel::descriptorForFieldAtIndexPath(const IndexPath& path) const -> FieldDescriptor {
    // A negative index becomes one beyond every end.
    const auto& section = *sectionDescriptors_.at(static_cast<std::size_t>(path.section));
    return section.descriptorForFieldAtIndex(path.row());
}

auto EXDetailModel::indexPathForFieldDescriptor(
    const EXDetailModelFieldDescriptor* descriptor) const -> std::optional<IndexPath> {
    for (std::int64_t section = 0; section < numberOfSections(); ++section) {
        const auto& held = *sectionDescriptors_[static_cast<std::size_t>(section)];
        if (const auto row = held.indexForFieldDescriptor(descriptor))
            return IndexPath{section, *row};
    }
    return std::nullopt;
}

// The fields --------------------------------------------------------------------------------------

auto EXDetailModel::typeForFieldAtIndexPath(const IndexPath& path) const -> Text {
    return descriptorForFieldAtIndexPath(path)->type();
}

auto EXDetailModel::titleForFieldAtIndexPath(const IndexPath& path) const -> Text {
    return descriptorForFieldAtIndexPath(path)->title();
}

auto EXDetailModel::placeholderForFieldAtIndexPath(const IndexPath& path) const -> Text {
    return descriptorForFieldAtIndexPath(path)->placeholder();
}

EXValue EXDetailModel::defaultValueForFieldAtIndexPath(const IndexPath& path) const {
    return descriptorForFieldAtIndexPath(path)->defaultValue();
}

std::shared_ptr<const EXChoiceList> EXDetailModel::choiceListForFieldAtIndexPath(
    const IndexPath& path) const {
    return descriptorForFieldAtIndexPath(path)->choiceList();
}

std::shared_ptr<const EXImageMap> EXDetailModel::iconMapForFieldAtIndexPath(
    const IndexPath& path) const {
    return descriptorForFieldAtIndexPath(path)->iconMap();
}

auto EXDetailModel::keyForFieldAtIndexPath(const IndexPath& path) const -> Text {
    return descriptorForFieldAtIndexPath(path)->key();
}

bool EXDetailModel::canEditFieldAtIndexPath(const IndexPath& path) const {
    const auto descriptor = descriptorForFieldAtIndexPath(path);
    return descriptor->key() && descriptor->isEditable();
}

EXValue EXDetailModel::valueForFieldAtIndexPath(const IndexPath& path) const {
    return valueForField(descriptorForFieldAtIndexPath(path).get());
}

EXValue EXDetailModel::valueForFooterFieldAtIndex(std::int64_t index) const {
    if (!footerSectionDescriptor_) return {};
    return valueForField(footerSectionDescriptor_->descriptorForFieldAtIndex(index).get());
}

EXValue EXDetailModel::valueForField(const EXDetailModelFieldDescriptor* descriptor) const {
    if (!object_ || !descriptor->key()) return {};
    return object_->valueForKey(*descriptor->key());
}

void EXDetailModel::setValueForFieldAtIndexPath(const EXValue& value, IndexPath path) {
    const Text key = keyForFieldAtIndexPath(path);
    if (!key) return;
    // A hook may ask the user, and so lead to a delegate that lets go of the model, or has the form
    // edit another object, to which the value does not belong.
    const auto self = weak_from_this().lock();
    const auto object = object_;
    const EXValue stored = valueForSettingProposedValue(value, path);
    if (object_ != object) return;
    if (object) object->setValueForKey(stored, *key);
    didSetValueForFieldAtIndexPath(stored, path);
}

EXValue EXDetailModel::valueForSettingProposedValue(const EXValue& value, const IndexPath&) {
    return value;
}

void EXDetailModel::didSetValueForFieldAtIndexPath(const EXValue&, const IndexPath&) {}

}  // namespace corvane
