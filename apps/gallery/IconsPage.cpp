#include "apps/gallery/IconsPage.h"

#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include "apps/gallery/IconSheetView.h"
#include "apps/gallery/Panels.h"
#include "apps/gallery/Texts.h"

namespace corvane::gallery {

IconsPage::IconsPage()
    : Stack(Axis::Down, 0),
      sheet_(std::make_shared<IconSheetView>(iconSheetNamed(iconSheetTitles().front().name))),
      pane_(Pane::make(sheet_)) {
    auto sheets = std::make_shared<EXChoiceList>();
    for (const auto& [name, title] : iconSheetTitles())
        sheets->addItemWithTitle(title, EXValue(name));
    auto choice = std::make_shared<CVMacPopUpChoice>();
    choice->setChoiceList(sheets);
    choice->setValue(sheets->valueForItemAtIndex(0));
    choice->setAction([this](views::Control& sender) {
        const auto& chosen = static_cast<CVMacPopUpChoice&>(sender);
        show(std::string(chosen.value().text().value_or("")));
    });
    auto head = stackDown(0, 12);
    head->add(captioned(localized("Sheet"), choice, 80, {.length = 240}));
    add(head);
    add(pane_, {.share = 1});
}

void IconsPage::show(const std::string& sheet) {
    sheet_->setSheet(iconSheetNamed(sheet));
    pane_->fit();
    pane_->scrollTo({0, 0});
}

}  // namespace corvane::gallery
