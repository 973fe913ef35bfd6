#include "apps/gallery/ChoicesPage.h"

#include "corvane/controls/CVMacActivityProgress.h"
#include "corvane/controls/CVMacBadgeView.h"
#include "corvane/controls/CVMacImageView.h"
#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/controls/CVMacRadioGroup.h"
#include "corvane/controls/CVMacSegmentedChoice.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/controls/CVMacTextChoiceField.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "apps/gallery/ExampleTasks.h"
#include "apps/gallery/Panels.h"
#include "apps/gallery/Texts.h"

#include <string>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr double kFieldWidth = 220;
constexpr double kCaptionWidth = 120;
constexpr std::int64_t kActionable = 3;
constexpr std::int64_t kMedium = 2;
constexpr std::int64_t kTasksOfWork = 100000;
constexpr int kTasksOfStep = 250;

void tellOf(const Notes& note, const std::string& name, ChoiceControl& control) {
    control.setAction([note, name](views::Control& sender) {
        note(name + ": " + static_cast<ChoiceControl&>(sender).selectedTitle());
    });
}

/// Two sections, with titles.
std::shared_ptr<EXChoiceList> rooms() {
    auto list = std::make_shared<EXChoiceList>();
    list->addSectionWithTitle(localized("Downstairs"));
    for (const char* room : {"Kitchen", "Hall", "Garden"})
        list->sectionAtIndex(0)->addItemWithTitle(localized(room), EXValue(room));
    list->addSectionWithTitle(localized("Upstairs"));
    for (const char* room : {"Bathroom", "Attic"})
        list->sectionAtIndex(1)->addItemWithTitle(localized(room), EXValue(room));
    return list;
}

}  // namespace

ChoicesPage::ChoicesPage(const Notes& note) : Stack(Axis::Down, 0) {
    auto columns = stackAcross(32, 24);
    auto left = stackDown(24);
    left->add(makeChoices(note));
    auto right = stackDown(24);
    right->add(makeSwitches(note));
    right->add(makePictures(note));
    right->add(makeProgress(note));
    columns->add(left, {.share = 1});
    columns->add(right, {.share = 1});
    add(Pane::make(columns), {.share = 1});
}

ChoicesPage::~ChoicesPage() = default;

std::shared_ptr<Stack> ChoicesPage::makeChoices(const Notes& note) {
    const auto icons = EXImageMap::imageMapNamed("TaskStatusSmallImageMap");
    auto state = std::make_shared<CVMacPopUpChoice>();
    state->setChoiceList(HGChoiceListFactory::taskStatusChoiceList());
    state->setIconMap(icons);
    state->setValue(EXValue(kActionable));
    tellOf(note, "State", *state);
    auto room = std::make_shared<CVMacPopUpChoice>();
    room->setChoiceList(rooms());
    room->setPlaceholder(localized("Anywhere"));
    tellOf(note, "Room", *room);
    auto action = std::make_shared<CVMacSegmentedChoice>();
    action->setChoiceList(HGChoiceListFactory::actionStatusChoiceList());
    action->setIconMap(EXImageMap::imageMapNamed("ActionStatusSmallImageMap"));
    action->setValue(EXValue(1));
    tellOf(note, "Action", *action);
    auto frequency = std::make_shared<CVMacSegmentedChoice>();
    auto frequencies = std::make_shared<EXChoiceList>();
    for (const char* title : {"Day", "Week", "Month"})
        frequencies->addItemWithTitle(localized(title), EXValue(title));
    frequency->setChoiceList(frequencies);
    frequency->setValue(EXValue("Week"));
    tellOf(note, "View", *frequency);
    auto priority = std::make_shared<CVMacRadioGroup>();
    priority->setChoiceList(HGChoiceListFactory::priorityChoiceList());
    priority->setIconMap(EXImageMap::imageMapNamed("PriorityImageMap"));
    priority->setValue(EXValue(kMedium));
    tellOf(note, "Priority", *priority);
    auto place = std::make_shared<CVMacTextChoiceField>();
    place->setChoiceList(rooms());
    place->setPlaceholderString(localized("Type the name of a room"));
    place->setAllowsUnknownText(true);
    place->setAction([note](views::Control& sender) {
        note("Place: " + static_cast<CVMacTextChoiceField&>(sender).stringValue());
    });
    auto off = std::make_shared<CVMacPopUpChoice>();
    off->setChoiceList(HGChoiceListFactory::taskStatusChoiceList());
    off->setIconMap(icons);
    off->setValue(EXValue(kActionable));
    off->setEnabled(false);

    auto choices = stackDown(12);
    choices->add(heading(localized("Choices")));
    const Place wide{.length = kFieldWidth};
    choices->add(captioned(localized("State"), state, kCaptionWidth, wide));
    choices->add(captioned(localized("Room"), room, kCaptionWidth, wide));
    choices->add(captioned(localized("Disabled"), off, kCaptionWidth, wide));
    choices->add(captioned(localized("Action"), action, kCaptionWidth));
    choices->add(captioned(localized("View"), frequency, kCaptionWidth));
    choices->add(captioned(localized("Place"), place, kCaptionWidth, wide));
    choices->add(captioned(localized("Priority"), priority, kCaptionWidth, wide));
    return choices;
}

std::shared_ptr<Stack> ChoicesPage::makeSwitches(const Notes& note) {
    auto starred = std::make_shared<CVMacSwitch>();
    starred->setOn(true);
    auto archived = std::make_shared<CVMacSwitch>();
    auto locked = std::make_shared<CVMacSwitch>();
    locked->setOn(true);
    locked->setEnabled(false);
    auto box = std::make_shared<views::Button>();
    box->setTitle(localized("Keep on top"));
    box->setToggles(true);
    for (auto& [name, control] : {std::pair("Starred", starred), std::pair("Archived", archived)})
        control->setAction([note, title = std::string(name)](views::Control& sender) {
            note(title + ": " + (static_cast<CVMacSwitch&>(sender).isOn() ? "on" : "off"));
        });
    box->setAction([note](views::Control& sender) {
        note(std::string("Keep on top: ") +
             (static_cast<views::Button&>(sender).isOn() ? "on" : "off"));
    });
    auto switches = stackDown(12);
    switches->add(heading(localized("Switches")));
    switches->add(captioned(localized("Starred"), starred, kCaptionWidth));
    switches->add(captioned(localized("Archived"), archived, kCaptionWidth));
    switches->add(captioned(localized("Disabled"), locked, kCaptionWidth));
    switches->add(captioned(localized("Window"), box, kCaptionWidth));
    return switches;
}

std::shared_ptr<Stack> ChoicesPage::makePictures(const Notes& note) {
    auto badges = stackAcross(10);
    for (const int count : {3, 42, 1408}) {
        auto badge = std::make_shared<CVMacBadgeView>();
        badge->setCount(count);
        badges->add(badge, {.breadth = Breadth::Own});
    }
    auto icons = stackAcross(10);
    const auto map = EXImageMap::imageMapNamed("TaskStatusImageMap");
    for (std::int64_t status = 0; map && status < 5; ++status) {
        auto icon = std::make_shared<CVMacImageView>();
        icon->setImageMap(map);
        icon->setImageIndex(status);
        icons->add(icon, {.breadth = Breadth::Own});
    }
    auto flag = std::make_shared<CVMacImageView>();
    flag->setImageMap(EXImageMap::imageMapNamed("PriorityImageMap"));
    flag->setImageIndex(4);
    flag->setClickable(true);
    flag->setToolTip(localized("Highest priority"));
    flag->setAction([note](views::Control&) { note("Flag: clicked"); });
    auto pictures = stackDown(12);
    pictures->add(heading(localized("Badges and Pictures")));
    pictures->add(captioned(localized("Badges"), badges, kCaptionWidth));
    pictures->add(captioned(localized("Pictures"), icons, kCaptionWidth));
    pictures->add(captioned(localized("To be clicked"), flag, kCaptionWidth));
    return pictures;
}

std::shared_ptr<Stack> ChoicesPage::makeProgress(const Notes& note) {
    progress_ = std::make_shared<CVMacProgressView>();
    progress_->setTitle(localized("Nothing to do"));
    progress_->setFraction(0.4);
    work_ = std::make_shared<CVMacActivityProgress>(progress_);
    work_->didEnd = [note](bool cancelled) {
        note(cancelled ? "Index: cancelled" : "Index: done");
    };
    auto busy = std::make_shared<CVMacProgressView>();
    busy->setTitle(localized("Waiting for the network"));
    busy->setFraction(std::nullopt);
    auto progress = stackDown(12);
    progress->add(heading(localized("Progress")));
    progress->add(progress_);
    progress->add(busy);
    progress->add(button(localized("Index 100,000 Tasks"), [this] { beginWork(); }),
                  {.breadth = Breadth::Own});
    return progress;
}

void ChoicesPage::beginWork() {
    struct Index {
        std::vector<ExampleSection> tasks = manyExampleTasks(kTasksOfWork);
        std::vector<std::string> keys;
    };
    work_->begin(localized("Indexing tasks"),
                 [index = std::make_shared<Index>()]() -> std::optional<double> {
                     const auto& tasks = index->tasks.front().tasks;
                     for (int i = 0; i < kTasksOfStep && index->keys.size() < tasks.size(); ++i)
                         index->keys.push_back(
                             EXLocalizable::collationForString(tasks[index->keys.size()].title));
                     return static_cast<double>(index->keys.size()) /
                            static_cast<double>(tasks.size());
                 });
}

}  // namespace corvane::gallery
