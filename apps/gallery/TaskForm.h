// A form with every kind of editor there is, on one example task. One thread, the window's.
#pragma once

#include "corvane/models/CVDetailController.h"

#include "apps/gallery/Tools.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::gallery {

/// Keeps what is entered, and tells of it. Held by std::shared_ptr.
class TaskForm final : public CVDetailController {
  public:
    explicit TaskForm(Notes note);

    /// Shown by the form as soon as it is there.
    bool closesWhenDone() const { return closesWhenDone_; }
    /// A form that stays begins anew instead.
    void setClosesWhenDone(bool closes) { closesWhenDone_ = closes; }

    Text title() const override;
    bool showsDescription() const override { return true; }
    Text description() const override;
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
    std::shared_ptr<views::View> createCustomControlForField(Index field, Index section,
                                                             const platform::Rect& frame,
                                                             const EXValue& value, bool editable,
                                                             const ChoiceList& choices) override;
    EXValue valueOfCustomControl(views::View& control, Index field, Index section) override;
    void setValueEditableForCustomControl(const EXValue& value, bool editable, views::View& control,
                                          Index field, Index section) override;
    void valueChangedForField(Index field, Index section, const EXValue& value) override;
    void didInvokeCancelAction() override;
    void didInvokeOkAction() override;

  private:
    enum class Use { Edited, ReadOnly, Informative };
    struct Field {
        std::string name;
        CVDetailEditorType editor;
        EXValue value;
        Use use = Use::Edited;
        std::string placeholder = {};
        ChoiceList choices = {};
        std::shared_ptr<const EXImageMap> icons = {};
    };
    struct Section {
        std::string name;
        std::vector<Field> fields;
    };

    static std::vector<Section> exampleSections();
    const Field& at(Index field, Index section) const;
    Field& at(Index field, Index section);

    Notes note_;
    std::vector<Section> sections_;
    std::vector<Section> saved_;
    bool closesWhenDone_ = false;
};

}  // namespace corvane::gallery
