// The form in which one object is edited: sections of fields, and the object's values by their
// keys. The base of such forms; what loads, saves and deletes the object is the derived model's.
#pragma once

#include "corvane/models/EXDetailModelDelegate.h"
#include "corvane/models/EXDetailModelSectionDescriptor.h"
#include "corvane/models/EXKeyValueObject.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Held by a shared pointer, so that its delegate may drop it from a callback. A model without an
/// object has no values and keeps none. One thread; the delegate is called on it.
///
/// Operations with an index path throw std::out_of_range where the form has no such field.
class EXDetailModel : public std::enable_shared_from_this<EXDetailModel> {
  public:
    using Text = std::optional<std::string>;
    using SectionDescriptor = std::shared_ptr<EXDetailModelSectionDescriptor>;
    using FieldDescriptor = std::shared_ptr<EXDetailModelFieldDescriptor>;
    using IndexPath = platform::IndexPath;
    using Template = std::map<std::string, EXValue, std::less<>>;

    static constexpr std::int64_t kStateNewObject = 0;
    static constexpr std::int64_t kStateExistingObject = 1;

    EXDetailModel() = default;
    virtual ~EXDetailModel() = default;
    EXDetailModel(const EXDetailModel&) = delete;
    EXDetailModel& operator=(const EXDetailModel&) = delete;

    // The object.

    /// That of an existing object; none for a new one.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }
    /// Takes the state that goes with it, then reloads.
    void setUriRepresentation(std::optional<platform::URL> uri);

    const std::shared_ptr<EXKeyValueObject>& object() const { return object_; }
    void setObject(std::shared_ptr<EXKeyValueObject> object);

    std::int64_t state() const { return state_; }
    void setState(std::int64_t state) { state_ = state; }

    /// What a new object has at first, by key.
    const std::optional<Template>& templateForNewObject() const { return templateForNewObject_; }
    void setTemplateForNewObject(std::optional<Template> values);

    /// Forgets the object, but not whether it was a new one.
    void reset();
    /// The same, and tells the delegate.
    void invalidate();

    virtual void saveObject() {}
    virtual void deleteObject() {}
    virtual void loadData() {}
    virtual void reloadData() {}

    // The title of the form, which depends on the state; none in a state other than the two.

    Text title() const;
    void setTitle(const Text& title);  ///< for both
    void setTitle(Text title, std::int64_t state);
    const Text& titleForNewObject() const { return titleForNewObject_; }
    const Text& titleForExistingObject() const { return titleForExistingObject_; }

    // The layout. The footer, which is shown below the form, is none of the sections.

    const std::vector<SectionDescriptor>& sectionDescriptors() const { return sectionDescriptors_; }
    void setSectionDescriptors(std::vector<SectionDescriptor> sections);
    const SectionDescriptor& footerSectionDescriptor() const { return footerSectionDescriptor_; }
    void setFooterSectionDescriptor(SectionDescriptor section);

    std::int64_t numberOfSections() const;
    Text titleForSection(std::int64_t section) const;
    std::int64_t numberOfFieldsInSection(std::int64_t section) const;
    FieldDescriptor descriptorForFieldAtIndexPath(const IndexPath& path) const;
    /// Of this very descriptor, in the first section that has it.
    std::optional<IndexPath> indexPathForFieldDescriptor(
        const EXDetailModelFieldDescriptor* descriptor) const;

    // The fields.

    Text typeForFieldAtIndexPath(const IndexPath& path) const;
    Text titleForFieldAtIndexPath(const IndexPath& path) const;
    Text placeholderForFieldAtIndexPath(const IndexPath& path) const;
    EXValue defaultValueForFieldAtIndexPath(const IndexPath& path) const;
    std::shared_ptr<const EXChoiceList> choiceListForFieldAtIndexPath(const IndexPath& path) const;
    std::shared_ptr<const EXImageMap> iconMapForFieldAtIndexPath(const IndexPath& path) const;
    Text keyForFieldAtIndexPath(const IndexPath& path) const;
    bool canEditFieldAtIndexPath(const IndexPath& path) const;

    /// Null without an object, and for a field without a key.
    EXValue valueForFieldAtIndexPath(const IndexPath& path) const;
    EXValue valueForFooterFieldAtIndex(std::int64_t index) const;
    /// Does nothing for a field without a key.
    void setValueForFieldAtIndexPath(const EXValue& value, IndexPath path);

    /// Has the delegate show the field anew.
    void reloadFieldAtIndexPath(const IndexPath& path);
    void reloadFieldForDescriptor(const EXDetailModelFieldDescriptor* descriptor);

    // Questions to the user, which the delegate asks.

    void showAlertWithTitle(const std::string& title, const std::string& message,
                            const std::string& defaultAction);
    void showConfirmationWithTitle(const std::string& title, const std::string& message,
                                   const std::string& confirmAction,
                                   const std::string& cancelAction,
                                   const EXDetailModelDelegate::Confirmation& confirmation);

    std::shared_ptr<EXDetailModelDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(std::weak_ptr<EXDetailModelDelegate> delegate);

  protected:
    /// What is stored for a value that the user chose.
    virtual EXValue valueForSettingProposedValue(const EXValue& value, const IndexPath& path);
    virtual void didSetValueForFieldAtIndexPath(const EXValue& value, const IndexPath& path);

  private:
    template <class... Parameters, class... Arguments>
    void tell(std::function<void(EXDetailModel&, Parameters...)> EXDetailModelDelegate::*operation,
              const Arguments&... arguments);
    EXValue valueForField(const EXDetailModelFieldDescriptor* descriptor) const;

    std::int64_t state_ = kStateNewObject;
    Text titleForNewObject_;
    Text titleForExistingObject_;
    std::vector<SectionDescriptor> sectionDescriptors_;
    SectionDescriptor footerSectionDescriptor_;
    std::optional<platform::URL> uriRepresentation_;
    std::shared_ptr<EXKeyValueObject> object_;
    std::optional<Template> templateForNewObject_;
    std::weak_ptr<EXDetailModelDelegate> delegate_;
};

}  // namespace corvane
