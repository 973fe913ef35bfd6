// A field for a small whole number. One thread, the window's.
#pragma once

#include "corvane/views/TextField.h"

#include <functional>

namespace corvane::gallery {

/// Up and Down count; what is no number brings back the one before.
class NumberField final : public views::TextField {
  public:
    NumberField(int value, int least, int greatest, std::function<void(int)> didChange);

    void sendAction() override;
    bool takesKey(const views::KeyEvent& event) override;
    views::Size preferredSizeThatFits(views::Size available) override;

  private:
    void change(int value);

    int value_;
    int least_;
    int greatest_;
    std::function<void(int)> didChange_;
};

}  // namespace corvane::gallery
