// What pages of controls are put together from: scrolled stacks, headings, rows with captions. One
// thread, the window's.
#pragma once

#include "corvane/platform/NotificationCenter.h"
#include "corvane/views/ScrollView.h"

#include "apps/gallery/Stack.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::views {
class Button;
class Label;
}  // namespace corvane::views

namespace corvane::gallery {

/// Scrolls a view that is as wide as what is visible and as high as it prefers. A group to
/// assistive technology.
class Pane : public views::ScrollView {
  public:
    static std::shared_ptr<Pane> make(const std::shared_ptr<views::View>& document);

    /// After the document has come to prefer another height.
    void fit();

    views::Role accessibilityRole() const override { return views::Role::Group; }

  protected:
    void frameDidChange(const views::Rect& before) override;
};

/// One that scrolls a table or a list, which see to their size themselves.
std::shared_ptr<views::ScrollView> scrolling(const std::shared_ptr<views::View>& document);

std::shared_ptr<views::Label> heading(const std::string& text);
/// Small and grey, in as many lines as it takes.
std::shared_ptr<views::Label> remark(const std::string& text);

/// The control behind its caption, from which it has its accessible name unless it has one. One
/// that is tall begins beside the caption.
std::shared_ptr<Stack> captioned(const std::string& caption,
                                 const std::shared_ptr<views::View>& control,
                                 double captionWidth = 150, Stack::Place place = {});

std::shared_ptr<views::Button> button(const std::string& title, std::function<void()> act);

}  // namespace corvane::gallery
