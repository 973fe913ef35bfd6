// The editor of repeat rules. One thread, the window's.
#pragma once

#include "apps/gallery/Stack.h"
#include "apps/gallery/Tools.h"

#include <memory>

namespace corvane {
class HGCustomRepeat;
class CVMacRepeatEditor;
}  // namespace corvane

namespace corvane::views {
class Label;
}

namespace corvane::gallery {

class RepeatPage final : public Stack {
  public:
    explicit RepeatPage(const Notes& note);

    /// As if it were that of the task.
    void setRepeat(const HGCustomRepeat& repeat);

  private:
    void show(const HGCustomRepeat& repeat);

    std::shared_ptr<CVMacRepeatEditor> editor_;
    std::shared_ptr<views::Label> stored_;
};

}  // namespace corvane::gallery
