// How far some long work is: what it is, a bar, and a button to cancel it. One thread, the
// window's.
#pragma once

#include "corvane/views/CompoundView.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace corvane {

namespace views {
class Button;
}

/// While the work can be cancelled there is a button for that, on which Escape cancels as well.
class CVMacProgressView final : public views::CompoundView {
  public:
    explicit CVMacProgressView(const views::Rect& frame = {});
    ~CVMacProgressView() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);

    /// How much is done, from 0 to 1; none where nobody knows how much there is.
    const std::optional<double>& fraction() const { return fraction_; }
    /// What is beyond is taken for the end of the bar, NaN for not known.
    void setFraction(std::optional<double> fraction);
    /// Lets a bar without fraction show that something has been done.
    void advance();

    bool isCancellable() const { return cancellable_; }
    void setCancellable(bool cancellable);
    /// Asks for the end of the work. Nothing where it is not cancellable.
    void performCancel();
    std::function<void()> didCancel;

    views::Size preferredSizeThatFits(views::Size available) override;
    void layoutIfNeeded() override;
    void applyLayout() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool keyDown(const views::KeyEvent& event) override;
    std::string toolTip() const override;
    views::Role accessibilityRole() const override { return views::Role::ProgressBar; }
    /// Unless one was set, the title.
    std::string accessibilityName() const override;
    /// In percent, rounded down; empty for a fraction that is not known.
    std::string accessibilityValue() const override;
    std::optional<double> accessibilityNumber() const override;

  private:
    views::Rect titleRect() const;
    views::Rect barRect() const;

    std::string title_;
    std::optional<double> fraction_ = 0;
    std::shared_ptr<views::Button> cancelButton_;
    int advances_ = 0;  ///< since the fraction was last known
    bool cancellable_ = false;
};

}  // namespace corvane
