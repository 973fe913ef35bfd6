#include "apps/gallery/RepeatPage.h"

#include "corvane/controls/CVMacRepeatEditor.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/views/Label.h"

#include "apps/gallery/Panels.h"
#include "apps/gallery/Texts.h"

#include <bitset>

namespace corvane::gallery {

namespace {

constexpr std::int64_t kMondayAndFriday = 0b100010;

/// The first bit last, as numbers are written.
std::string bitsOf(std::int64_t mask) {
    const auto bits = std::bitset<31>(static_cast<unsigned long long>(mask)).to_string();
    const auto first = bits.find('1');
    return first == std::string::npos ? "0" : bits.substr(first);
}

}  // namespace

RepeatPage::RepeatPage(const Notes& note)
    : Stack(Axis::Down, 0),
      editor_(std::make_shared<CVMacRepeatEditor>()),
      stored_(std::make_shared<views::Label>()) {
    editor_->didChangeRepeat = [this, note](const HGCustomRepeat& repeat) {
        show(repeat);
        note("Repeat: " + stored_->text());
    };
    auto enabled = std::make_shared<CVMacSwitch>();
    enabled->setOn(true);
    enabled->setAction([this](views::Control& sender) {
        editor_->setEnabled(static_cast<CVMacSwitch&>(sender).isOn());
    });
    auto page = stackDown(18, 24);
    page->add(heading(localized("Repeat")));
    page->add(
        remark(localized("The days of the week stand in the order of the user's calendar. Another "
                         "frequency keeps what was chosen for this one.")));
    page->add(editor_, {.breadth = Breadth::Own});
    page->add(captioned(localized("Stored"), stored_, 150, {.share = 1}));
    page->add(captioned(localized("Can be changed"), enabled));
    add(Pane::make(page), {.share = 1});
    setRepeat(HGCustomRepeat(HGCustomRepeat::kWeekly, 2, kMondayAndFriday));
}

void RepeatPage::setRepeat(const HGCustomRepeat& repeat) {
    editor_->setRepeatForDay(repeat, EXDateOnly(2026, 5, 4));
    show(repeat);
}

void RepeatPage::show(const HGCustomRepeat& repeat) {
    stored_->setText("frequency " + std::to_string(repeat.frequency()) + ", interval " +
                     std::to_string(repeat.interval()) + ", occurrences " +
                     bitsOf(repeat.occurrences()));
    setNeedsApplyLayout();
}

}  // namespace corvane::gallery
