// The form of an example task, with every kind of editor. One thread, the window's.
#pragma once

#include "corvane/views/CompoundView.h"

#include "apps/gallery/Tools.h"

#include <memory>

namespace corvane {
class CVMacDetailForm;
}

namespace corvane::gallery {

class TaskForm;

class TaskPage final : public views::CompoundView {
  public:
    explicit TaskPage(const Notes& note);

    CVMacDetailForm& form() { return *form_; }

    void applyLayout() override;

  private:
    std::shared_ptr<TaskForm> controller_;
    std::shared_ptr<CVMacDetailForm> form_;
};

}  // namespace corvane::gallery
