#include "apps/gallery/TaskPage.h"

#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/views/Mirroring.h"

#include "apps/gallery/TaskForm.h"

#include <algorithm>

namespace corvane::gallery {

namespace {

constexpr double kMostWidth = 640;

}  // namespace

TaskPage::TaskPage(const Notes& note)
    : controller_(std::make_shared<TaskForm>(note)), form_(CVMacDetailForm::make(controller_)) {
    addSubview(form_);
    setKeyViewParts({form_});
}

void TaskPage::applyLayout() {
    // Wider fields would be far from what they are about.
    const double width = std::min(kMostWidth, frame().width);
    form_->setFrame(views::mirrored({0, 0, width, frame().height}, frame().width));
}

}  // namespace corvane::gallery
