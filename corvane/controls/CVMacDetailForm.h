// The form of a detail controller: its title, sections of labelled fields with an editor each, and
// OK and Cancel. One thread, the window's.
#pragma once

#include "corvane/models/CVDetail.h"
#include "corvane/models/CVDetailController.h"
#include "corvane/views/CompoundView.h"
#include "corvane/views/TextField.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace corvane {

namespace views {
class Button;
class Label;
class ScrollView;
}  // namespace views

class DetailFormContent;
struct DetailFormRow;

/// Scrolls where it is higher than its frame. Return is OK, but in an editor of several lines or on
/// a button, and Escape is Cancel. The controller owns the form and is held weakly; a form without
/// one is empty. Of the controller's count of fields, one below 0 means none. Made by make or by
/// std::make_shared.
///
/// Codes of editors: 1 is a line of text, 2 several lines, 6 a line that shows no letters; 4 is a
/// day, 10 a day and a time of day. Beside codes above the last there is only the label. A number
/// in a line of text is shown as it is typed in the locale, and what is typed comes back as text,
/// which platform::plainNumber reads.
class CVMacDetailForm final : public views::CompoundView,
                              public CVDetail,
                              public views::TextFieldDelegate {
  public:
    using Index = CVDetailController::Index;

    /// Becomes the controller's form.
    static std::shared_ptr<CVMacDetailForm> make(std::weak_ptr<CVDetailController> controller);
    explicit CVMacDetailForm(const views::Rect& frame = {});
    ~CVMacDetailForm() override;

    std::shared_ptr<CVDetailController> controller() const { return controller_.lock(); }
    /// Becomes its form: detailDidLoad is told now, detailWillAppear and detailDidAppear before and
    /// after the form comes into a window, each time that it does.
    void setController(std::weak_ptr<CVDetailController> controller);

    /// Asks everything anew. What is being typed is committed before.
    void reload();
    /// Shows the field's value and whether it can be edited. What the user has typed and not yet
    /// committed stays. Nothing where there is no such field.
    void updateValueForField(Index field, Index section);
    /// The value of a control of the controller's own has changed; for controls that do not send an
    /// action by themselves, or whose action is the controller's.
    void customControlDidChange(const views::View& control);

    /// False where the editor keeps the focus.
    bool commitEditing();
    /// Puts back what is being typed.
    void discardEditing();
    /// As their buttons do it.
    void performOk();
    void performCancel();

    /// What is typed and not committed is lost.
    void close() override;
    std::function<void()> didClose;

    /// What edits or shows the field; null where there is no such field, or nothing for it.
    std::shared_ptr<views::View> viewForField(Index field, Index section) const;
    const std::shared_ptr<views::Button>& okButton() const { return ok_; }
    const std::shared_ptr<views::Button>& cancelButton() const { return cancel_; }
    const std::shared_ptr<views::ScrollView>& scrollView() const { return scrollView_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void willMoveToWindow(views::Window* window) override;
    void didMoveToWindow() override;
    bool keyDown(const views::KeyEvent& event) override;
    views::Role accessibilityRole() const override { return views::Role::Group; }
    std::string accessibilityName() const override;

    void controlTextDidBeginEditing(views::TextField& field) override;
    void controlTextDidChange(views::TextField& field) override;
    void controlTextDidEndEditing(views::TextField& field) override;
    bool controlDoCommandBySelector(views::TextField& field, views::FieldEditor& editor,
                                    views::Command command) override;

  private:
    using Row = std::shared_ptr<DetailFormRow>;

    void addParts();
    void build();
    void buildHeading(const CVDetailController* controller);
    Row makeRow(CVDetailController& controller, Index field, Index section);
    void showValue(DetailFormRow& row);
    /// Nothing in the row is typed and not committed.
    void settle(DetailFormRow& row);
    void valueDidChange(Index field, Index section);
    /// The one in the form that is being edited; null for none.
    std::shared_ptr<views::TextField> editedField() const;

    struct Place;
    Place placeOf(const std::shared_ptr<views::View>& view) const;
    Place placeOfFocus() const;
    std::shared_ptr<views::View> viewAt(const Place& place) const;
    void restoreFocus(const Place& place);
    bool passFocusOn(views::TextField& field, bool forward);

    /// Where a part stands, from the upper leading corner.
    struct Layout;
    Layout layOut(views::Size size) const;

    std::weak_ptr<CVDetailController> controller_;
    std::shared_ptr<views::Label> title_;
    std::shared_ptr<views::Label> description_;
    std::shared_ptr<views::ScrollView> scrollView_;
    std::shared_ptr<DetailFormContent> content_;
    std::shared_ptr<views::Button> cancel_;
    std::shared_ptr<views::Button> ok_;
    bool discards_ = false;  ///< while what is typed is put back
};

}  // namespace corvane
