// The base of the screens with a form: every question that the form asks and everything that it
// tells, each with a neutral answer. Concrete screens override what they need.
#pragma once

#include "corvane/models/CVDetailEditorType.h"
#include "corvane/platform/Rect.h"
#include "corvane/toolkit/EXValue.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

namespace views {
class View;
}

class CVDetail;
class EXImageMap;

/// Held by a shared pointer; owns its form, which refers back weakly. One thread, the window's.
///
/// Fields and sections count from 0, and come in this order. Null and none mean that there is no
/// such thing.
class CVDetailController {
  public:
    using Text = std::optional<std::string>;
    using Index = std::int64_t;
    using ChoiceList = std::shared_ptr<const EXChoiceList>;

    CVDetailController() = default;
    virtual ~CVDetailController() = default;
    CVDetailController(const CVDetailController&) = delete;
    CVDetailController& operator=(const CVDetailController&) = delete;

    // The screen comes.

    virtual void detailDidLoad() {}
    virtual void detailWillAppear() {}
    virtual void detailDidAppear() {}

    // Its texts and sections.

    virtual Text title() const { return {}; }
    virtual bool showsDescription() const { return false; }
    virtual Text description() const { return {}; }
    virtual std::int64_t countSections() const { return 1; }
    virtual Text nameForSection(Index /*section*/) const { return {}; }
    /// -1 where the controller does not say.
    virtual std::int64_t countFields(Index /*section*/) const { return -1; }
    virtual Text nameForField(Index /*field*/, Index /*section*/) const { return {}; }
    virtual Text placeholderForField(Index /*field*/, Index /*section*/) const { return {}; }

    // Controls of the controller's own, for fields with that type of editor.

    virtual std::shared_ptr<views::View> createCustomControlForField(
        Index /*field*/, Index /*section*/, const platform::Rect& /*frame*/,
        const EXValue& /*value*/, bool /*editable*/, const ChoiceList&) {
        return {};
    }
    virtual EXValue valueOfCustomControl(views::View&, Index /*field*/, Index /*section*/) {
        return {};
    }
    virtual void setValueEditableForCustomControl(const EXValue&, bool /*editable*/, views::View&,
                                                  Index /*field*/, Index /*section*/) {}

    // The fields.

    virtual EXValue valueForField(Index /*field*/, Index /*section*/) const { return {}; }
    virtual bool fieldIsEditable(Index /*field*/, Index /*section*/) const { return true; }
    virtual bool fieldIsInformative(Index /*field*/, Index /*section*/) const { return false; }
    virtual CVDetailEditorType editorTypeForField(Index /*field*/, Index /*section*/) const {
        return CVDetailEditorTypeText;
    }
    virtual ChoiceList choiceSetForField(Index /*field*/, Index /*section*/) const { return {}; }
    virtual std::shared_ptr<const EXImageMap> iconMapForField(Index /*field*/,
                                                              Index /*section*/) const {
        return {};
    }
    /// In points; 0 leaves it to the form.
    virtual double rowHeightForField(Index /*field*/, Index /*section*/) const { return 0; }

    // What the user does.

    virtual void valueChangedForField(Index /*field*/, Index /*section*/, const EXValue&) {}
    /// Closes the form.
    virtual void didInvokeCancelAction();
    /// Closes the form.
    virtual void didInvokeOkAction();

    /// The form; null before it is set.
    const std::shared_ptr<CVDetail>& detail() const { return detail_; }
    void setDetail(std::shared_ptr<CVDetail> detail);

  private:
    void closeDetail();

    std::shared_ptr<CVDetail> detail_;
};

}  // namespace corvane
