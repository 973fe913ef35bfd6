// A view that a window shows over its content, which is dimmed and takes no events until the view
// has gone. One thread, the window's.
#pragma once

#include "corvane/views/LayoutableView.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane {

namespace views {
class Button;
class ModalViews;
class Window;
}  // namespace views

/// One at a time in a window, the others wait. Tab stays within it; when it ends, the focus returns
/// to where it was. Made by std::make_shared; the window holds it until it has ended.
///
///     auto sheet = std::make_shared<CVMacSheet>(form);
///     form->didClose = [&sheet = *sheet] { sheet.end(); };   // the sheet holds the form
///     sheet->beginInWindow(*window);
class CVMacSheet final : public views::LayoutableView {
  public:
    /// The view is shown in the size that it prefers, as far as the window has room. Null shows an
    /// empty sheet.
    explicit CVMacSheet(std::shared_ptr<views::View> contentView);

    const std::shared_ptr<views::View>& contentView() const { return contentView_; }
    /// For assistive technology.
    void setTitle(std::string title);

    /// What Return does where the content makes nothing of it: a button in the content. Null for
    /// nothing.
    void setDefaultButton(std::weak_ptr<views::Button> button);
    /// What Escape does there; without a button it ends the sheet.
    void setCancelButton(std::weak_ptr<views::Button> button);

    /// Nothing where it is shown or waits already.
    void beginInWindow(views::Window& window);
    bool isShown() const { return isShown_; }
    /// Also takes back one that waits.
    void end();
    /// Also where the program took the view away, but not when the window itself goes away.
    std::function<void()> didEnd;

    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent&) override { return true; }
    bool keyDown(const views::KeyEvent& event) override;
    void didMoveToWindow() override;

  private:
    class Card;

    views::ModalViews* modalViews() const;
    bool isWaiting() const;
    void tellOfEnd();

    std::shared_ptr<views::View> contentView_;
    std::shared_ptr<Card> card_;
    std::weak_ptr<views::Button> defaultButton_;
    std::weak_ptr<views::Button> cancelButton_;
    std::weak_ptr<views::View> root_;  ///< of the window in which it is shown or waits
    bool isShown_ = false;
};

}  // namespace corvane
