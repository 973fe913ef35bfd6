// Shows a detail model in a detail form: which editor each of its fields has, and how values are
// written and read there. One thread, the window's.
#pragma once

#include "corvane/models/CVDetailController.h"
#include "corvane/models/EXDetailModel.h"
#include "corvane/models/EXDetailModelDelegate.h"

#include <map>
#include <memory>
#include <string>

namespace corvane {

class CVMacDetailForm;

namespace views {
class Window;
}

/// The delegate of its model; null is a model without fields. The model's footer is the last
/// section of the form.
///
/// Texts are edited in a line, but extended texts, and texts without the hint of inline editing, in
/// several. Choices and flags have a pop-up, or with that hint a row for each choice; flags with
/// the hint of a switch have one. Informative fields and those of types that nobody knows are shown
/// as text. What is typed for a number, or for a field with a formatter, and is none is refused
/// with an alert. Where the object has no choice, that of the field's default value is shown.
///
/// OK saves the object, and closes the form unless there is an alert. Cancel gives the object back
/// the values that it had and saves nothing. Made by make.
class DetailModelController : public CVDetailController,
                              public std::enable_shared_from_this<DetailModelController> {
  public:
    static std::shared_ptr<DetailModelController> make(std::shared_ptr<EXDetailModel> model);
    /// For derived classes, which then call takeModel.
    explicit DetailModelController(std::shared_ptr<EXDetailModel> model);

    const std::shared_ptr<EXDetailModel>& model() const { return model_; }

    void detailWillAppear() override;
    Text title() const override;
    std::int64_t countSections() const override;
    Text nameForSection(Index section) const override;
    std::int64_t countFields(Index section) const override;
    Text nameForField(Index field, Index section) const override;
    Text placeholderForField(Index field, Index section) const override;
    EXValue valueForField(Index field, Index section) const override;
    bool fieldIsEditable(Index field, Index section) const override;
    bool fieldIsInformative(Index field, Index section) const override;
    CVDetailEditorType editorTypeForField(Index field, Index section) const override;
    ChoiceList choiceSetForField(Index field, Index section) const override;
    std::shared_ptr<const EXImageMap> iconMapForField(Index field, Index section) const override;
    double rowHeightForField(Index field, Index section) const override;
    void valueChangedForField(Index field, Index section, const EXValue& value) override;
    void didInvokeOkAction() override;
    void didInvokeCancelAction() override;

  protected:
    /// Becomes the model's delegate. Once, after construction.
    void takeModel();

  private:
    using FieldDescriptor = EXDetailModel::FieldDescriptor;

    std::shared_ptr<CVMacDetailForm> form() const;
    views::Window* window() const;
    /// Null where there is no such field.
    FieldDescriptor descriptor(Index field, Index section) const;
    bool isFooter(Index section) const;
    void showAlert(const std::string& title, const std::string& message,
                   const std::string& defaultAction);
    void rememberValue(const std::string& key);

    std::shared_ptr<EXDetailModel> model_;
    std::shared_ptr<EXDetailModelDelegate> modelDelegate_;
    std::weak_ptr<EXKeyValueObject> objectBefore_;  ///< to which the values belong
    std::map<std::string, EXValue> valuesBefore_;   ///< by key, of what was changed
    int alerts_ = 0;                                ///< that stand on the window
    int refusals_ = 0;                              ///< of which alerts have told
};

}  // namespace corvane
