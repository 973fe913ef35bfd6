// A view that floats over a window's content, under a bar by which it is moved. It blocks nothing.
// One thread, the window's.
#pragma once

#include "corvane/views/LayoutableView.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane {

namespace views {
class Window;
}  // namespace views

/// Stays within the window; in one that is too small for it, with its button. Escape and the button
/// close it; the focus then returns to where it was when the panel was shown. As a part of the
/// window it can be reached by keys (Window::selectNextPart). Made by std::make_shared; the window
/// holds it while it is shown.
class CVMacPanel final : public views::LayoutableView {
  public:
    /// Null shows an empty panel.
    CVMacPanel(std::string title, std::shared_ptr<views::View> contentView);

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const std::shared_ptr<views::View>& contentView() const { return contentView_; }

    /// In the size that the content prefers, in the middle where it has no place yet, and with the
    /// focus. One that is shown comes to the front.
    void showInWindow(views::Window& window);
    bool isShown() const { return isShown_; }
    void close();
    /// Not when the window itself goes away.
    std::function<void()> didClose;

    void applyLayout() override;
    void layoutIfNeeded() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    void drawAboveSubviews(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool keyDown(const views::KeyEvent& event) override;
    void didMoveToWindow() override;
    views::Role accessibilityRole() const override { return views::Role::Dialog; }
    std::string accessibilityName() const override { return title_; }

  private:
    class Bar;

    void moveTo(views::Point origin);

    std::string title_;
    std::shared_ptr<views::View> contentView_;
    std::shared_ptr<Bar> bar_;
    std::weak_ptr<views::View> focusBefore_;
    bool hasPlace_ = false;
    bool isShown_ = false;
};

}  // namespace corvane
