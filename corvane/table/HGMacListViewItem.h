// A line of a list: a picture and a text.
#pragma once

#include "corvane/table/CVMacLayoutableView.h"
#include "corvane/table/HGMacListViewItemDelegate.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/TextView.h"

#include <memory>
#include <string>

namespace corvane {

/// Its text is edited after a click on it. Held by std::shared_ptr.
class HGMacListViewItem : public CVMacLayoutableView, public views::TextFieldDelegate {
  public:
    HGMacListViewItem();

    const std::shared_ptr<views::ImageView>& imageView() const { return imageView_; }
    const std::shared_ptr<views::TextView>& textField() const { return textField_; }
    bool placeholder() const { return placeholder_; }
    void setPlaceholder(bool placeholder) { placeholder_ = placeholder; }
    views::Point mouseDownLocation() const { return mouseDownLocation_; }
    std::shared_ptr<HGMacListViewItemDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::weak_ptr<HGMacListViewItemDelegate>& list) { delegate_ = list; }

    /// Empties it for another value.
    virtual void prepareForReuse();
    /// Opens the text and gives it the focus.
    void beginEditing();

    void applyLayout() override;
    views::Size preferredSizeThatFits(views::Size available) override;
    bool mouseDown(const views::MouseEvent& event) override;
    bool mouseDragged(const views::MouseEvent& event) override;
    bool mouseUp(const views::MouseEvent& event) override;
    std::shared_ptr<views::Menu> menuForEvent(const views::MouseEvent& event) override;
    void draggingSessionEnded(views::DragOperation operation) override;
    views::Role accessibilityRole() const override { return views::Role::Row; }
    std::string accessibilityName() const override { return textField_->stringValue(); }

    void controlTextDidBeginEditing(views::TextField& control) override;
    void controlTextDidChange(views::TextField& control) override;
    void controlTextDidEndEditing(views::TextField& control) override;
    bool controlDoCommandBySelector(views::TextField& control, views::FieldEditor& textView,
                                    views::Command command) override;

  private:
    double textWidth(double width) const;

    std::shared_ptr<views::ImageView> imageView_ = std::make_shared<views::ImageView>();
    std::shared_ptr<views::TextView> textField_ = std::make_shared<views::TextView>();
    std::weak_ptr<HGMacListViewItemDelegate> delegate_;
    std::string textBefore_;
    views::Point mouseDownLocation_;
    bool placeholder_ = false;
    bool dragging_ = false;
};

}  // namespace corvane
