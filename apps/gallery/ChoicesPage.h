// The controls by which the user chooses and switches, badges and pictures, and the progress of
// long work. One thread, the window's.
#pragma once

#include "apps/gallery/Stack.h"
#include "apps/gallery/Tools.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane {
class ChoiceControl;
class CVMacActivityProgress;
class CVMacProgressView;
}  // namespace corvane

namespace corvane::gallery {

class ChoicesPage final : public Stack {
  public:
    explicit ChoicesPage(const Notes& note);
    ~ChoicesPage() override;

  private:
    std::shared_ptr<Stack> makeChoices(const Notes& note);
    std::shared_ptr<Stack> makeSwitches(const Notes& note);
    std::shared_ptr<Stack> makePictures(const Notes& note);
    std::shared_ptr<Stack> makeProgress(const Notes& note);
    void beginWork();

    std::shared_ptr<CVMacProgressView> progress_;
    std::shared_ptr<CVMacActivityProgress> work_;
};

}  // namespace corvane::gallery
