// The fields for moments, days and times, in a locale that one chooses, and their choosers. One
// thread, the window's.
#pragma once

#include "apps/gallery/Stack.h"
#include "apps/gallery/Tools.h"

#include <memory>
#include <string>

namespace corvane {
class CVMacDateField;
class CVMacDateOnlyChooserView;
class CVMacDateOnlyField;
class CVMacTimeOnlyChooserView;
class CVMacTimeOnlyField;
}  // namespace corvane

namespace corvane::gallery {

class DatesPage final : public Stack {
  public:
    explicit DatesPage(const Notes& note);

    const std::shared_ptr<CVMacDateField>& dateField() const { return date_; }

  private:
    std::shared_ptr<Stack> makeSettings();
    std::shared_ptr<Stack> makeFields(const Notes& note);
    void useLocale(const std::string& identifier);
    void showChoosers(const std::string& identifier);

    std::shared_ptr<CVMacDateField> date_;
    std::shared_ptr<CVMacDateOnlyField> day_;
    std::shared_ptr<CVMacTimeOnlyField> time_;
    std::shared_ptr<Stack> choosers_;
    std::shared_ptr<CVMacDateOnlyChooserView> month_;
    std::shared_ptr<CVMacTimeOnlyChooserView> times_;
};

}  // namespace corvane::gallery
