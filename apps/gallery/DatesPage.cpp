#include "apps/gallery/DatesPage.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/controls/CVMacTimeOnlyChooserView.h"
#include "corvane/controls/CVMacTimeOnlyField.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Locale.h"
#include "corvane/views/Label.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include "apps/gallery/Panels.h"
#include "apps/gallery/Texts.h"

#include <array>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr double kFieldWidth = 250;

struct LocaleName {
    const char* identifier;
    const char* name;
};

constexpr std::array kLocales{
    LocaleName{"ar_EG", "Arabic (Egypt)"},   LocaleName{"de_AT", "German (Austria)"},
    LocaleName{"de_DE", "German (Germany)"}, LocaleName{"en_GB", "English (United Kingdom)"},
    LocaleName{"en_US", "English (U.S.A.)"}, LocaleName{"fa_IR", "Persian (Iran)"},
    LocaleName{"fr_FR", "French (France)"},  LocaleName{"he_IL", "Hebrew (Israel)"},
    LocaleName{"pl_PL", "Polish (Poland)"},  LocaleName{"ru_RU", "Russian (Russia)"},
    LocaleName{"sv_SE", "Swedish (Sweden)"}, LocaleName{"tr_TR", "Turkish (Turkey)"},
};

constexpr std::array kStyles{
    std::pair{platform::DateStyle::Short, "Short"},
    std::pair{platform::DateStyle::Medium, "Medium"},
    std::pair{platform::DateStyle::Long, "Long"},
    std::pair{platform::DateStyle::Full, "Full"},
};

}  // namespace

DatesPage::DatesPage(const Notes& note)
    : Stack(Axis::Down, 0),
      date_(std::make_shared<CVMacDateField>()),
      day_(std::make_shared<CVMacDateOnlyField>()),
      time_(std::make_shared<CVMacTimeOnlyField>()),
      choosers_(stackAcross(20)) {
    auto page = stackDown(18, 24);
    page->add(heading(localized("Dates and Times")));
    page->add(makeSettings());
    page->add(makeFields(note));
    page->add(remark(localized(
        "Words such as “tomorrow” and “fri”, and dates as the locale writes them. Up and Down open "
        "the chooser while one types; Return takes what is highlighted there, Escape closes it.")));
    page->add(choosers_);
    add(Pane::make(page), {.share = 1});
    showChoosers(platform::currentLocale().identifier());
}

std::shared_ptr<Stack> DatesPage::makeSettings() {
    auto names = std::make_shared<EXChoiceList>();
    for (const auto& [identifier, name] : kLocales)
        names->addItemWithTitle(localized(name), EXValue(identifier));
    auto locales = std::make_shared<CVMacPopUpChoice>();
    locales->setChoiceList(names);
    locales->setPlaceholder(localized("As the program"));
    locales->setValue(EXValue(platform::currentLocale().identifier()));
    locales->setAction([this](views::Control& sender) {
        const auto chosen = static_cast<CVMacPopUpChoice&>(sender).value();
        useLocale(std::string(chosen.text().value_or("")));
    });
    auto styles = std::make_shared<views::SegmentedControl>();
    std::vector<views::Segment> segments;
    for (const auto& [style, name] : kStyles)
        segments.push_back({localized(name), nullptr});
    styles->setSegments(std::move(segments));
    styles->setSelectedSegment(1);
    styles->setAction([this](views::Control& sender) {
        const int segment = static_cast<views::SegmentedControl&>(sender).selectedSegment();
        if (segment < 0) return;
        const auto style = kStyles[static_cast<std::size_t>(segment)].first;
        date_->setDateStyle(style);
        day_->setDateStyle(style);
    });
    auto settings = stackDown();
    settings->add(captioned(localized("Locale"), locales, 150, {.length = kFieldWidth}));
    settings->add(captioned(localized("Style"), styles));
    return settings;
}

std::shared_ptr<Stack> DatesPage::makeFields(const Notes& note) {
    const auto now = platform::currentClock().now();
    date_->setDateValue(now);
    day_->setDateOnlyValue(EXDateOnly(now));
    day_->setShowFocusedBackground(true);
    time_->setTimeOnlyValue(EXTimeOnly(9, 30, 0));
    date_->setAction([this, note](views::Control&) {
        note("Due: " + (date_->dateValue() ? EXDateOnly(date_->dateValue()).isoString() : "none"));
    });
    day_->setAction([this, note](views::Control&) {
        month_->setDay(day_->dateOnlyValue());
        note("Day: " + (day_->dateOnlyValue() ? day_->dateOnlyValue()->isoString() : "none"));
    });
    time_->setAction([this, note](views::Control&) {
        times_->setTime(time_->timeOnlyValue());
        note("Time: " + (time_->timeOnlyValue() ? time_->timeOnlyValue()->isoString() : "none"));
    });
    auto fields = stackDown();
    const Place place{.length = kFieldWidth};
    fields->add(captioned(localized("Due"), date_, 150, place));
    fields->add(captioned(localized("Day"), day_, 150, place));
    fields->add(captioned(localized("Time"), time_, 150, place));
    return fields;
}

void DatesPage::useLocale(const std::string& identifier) {
    const platform::Locale locale(identifier);
    date_->setLocale(locale);
    day_->setLocale(locale);
    time_->setLocale(locale);
    showChoosers(identifier);
}

void DatesPage::showChoosers(const std::string& identifier) {
    const platform::Locale locale(identifier);
    month_ = std::make_shared<CVMacDateOnlyChooserView>(locale);
    month_->setDelegate(day_);
    month_->setTakesFocus(true);
    month_->setDay(day_->dateOnlyValue());
    times_ = std::make_shared<CVMacTimeOnlyChooserView>(locale);
    times_->setDelegate(time_);
    times_->setTakesFocus(true);
    times_->setTime(time_->timeOnlyValue());
    choosers_->removeAll();
    choosers_->add(month_, {.breadth = Breadth::OwnAtStart});
    choosers_->add(times_, {.breadth = Breadth::OwnAtStart});
}

}  // namespace corvane::gallery
