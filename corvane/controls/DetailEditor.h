// With what a detail form edits one field: a view, and how values come into it and out of it. One
// thread, the window's.
#pragma once

#include "corvane/models/CVDetailEditorType.h"
#include "corvane/toolkit/EXValue.h"
#include "corvane/views/View.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

class EXImageMap;

class DetailEditor {
  public:
    /// What the field's editor is made for.
    struct Field {
        CVDetailEditorType type = CVDetailEditorTypeText;
        std::string name;  ///< for assistive technology
        std::string placeholder;
        std::shared_ptr<const EXChoiceList> choices;
        std::shared_ptr<const EXImageMap> icons;
    };
    /// The user has committed a value.
    using Commit = std::function<void()>;

    /// Null for the code of no editor, that of a custom control, and those beyond the last.
    static std::unique_ptr<DetailEditor> make(const Field& field, const Commit& commit);
    /// Shows the value as text, or the title of the choice that it stands for, and edits nothing.
    static std::unique_ptr<DetailEditor> makeInformative(const Field& field);

    /// Of an editor of one line.
    static double lineHeight();

    virtual ~DetailEditor() = default;
    DetailEditor(const DetailEditor&) = delete;
    DetailEditor& operator=(const DetailEditor&) = delete;

    const std::shared_ptr<views::View>& view() const { return view_; }
    /// A value of a kind that it does not edit is none.
    virtual void show(const EXValue& value, bool editable) {
        setEditable(editable);
        setValue(value);
    }
    /// As the view shows it.
    virtual EXValue value() const = 0;
    /// In the width that there is.
    virtual views::Size sizeForWidth(double width) const;
    /// Of what stands beside the label, where the editor has that height.
    virtual double firstLineHeight(double height) const;
    /// Whether it makes use of more height than that.
    virtual bool growsWithRow() const { return false; }

  protected:
    explicit DetailEditor(std::shared_ptr<views::View> view) : view_(std::move(view)) {}
    virtual void setValue(const EXValue&) {}
    virtual void setEditable(bool) {}

  private:
    std::shared_ptr<views::View> view_;
};

/// The value as a user reads it: days and times as the locale has them, numbers as they are typed
/// in it (NumberText.h). Empty for null, and for what is no single value.
std::string textOfValue(const EXValue& value);

}  // namespace corvane
