#include "apps/gallery/TaskForm.h"

#include "corvane/controls/CVMacBitmaskChooser.h"
#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/dates/HGCustomRepeatFactory.h"
#include "corvane/platform/Clock.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "apps/gallery/Texts.h"

#include <utility>

namespace corvane::gallery {

namespace {

constexpr std::int64_t kInProgress = 4;
constexpr std::int64_t kHigh = 3;
constexpr int kDaysOfWeek = 7;

std::string readable(const EXValue& value) {
    if (const auto text = value.text()) return "“" + std::string(*text) + "”";
    if (const auto* day = value.day()) return day->isoString();
    if (const auto* time = value.time()) return time->isoString();
    if (const auto* moment = value.instant()) return EXDateOnly(*moment).isoString();
    return value.isNumber() ? std::to_string(value.integerValue()) : "none";
}

}  // namespace

TaskForm::TaskForm(Notes note)
    : note_(std::move(note)), sections_(exampleSections()), saved_(sections_) {}

std::vector<TaskForm::Section> TaskForm::exampleSections() {
    const auto now = platform::currentClock().now();
    const Section task{
        localized("Task"),
        {{.name = localized("Title"),
          .editor = CVDetailEditorTypeText,
          .value = localized("Plan the trip to the coast"),
          .placeholder = localized("New task")},
         {.name = localized("Notes"),
          .editor = CVDetailEditorTypeSecondText,
          .value = localized("By train, with bicycles. Ask Milena about the house by the lake, and "
                             "whether the boat is still there.")},
         {.name = localized("State"),
          .editor = CVDetailEditorTypeChoice,
          .value = kInProgress,
          .choices = HGChoiceListFactory::taskStatusChoiceList(),
          .icons = EXImageMap::imageMapNamed("TaskStatusSmallImageMap")},
         {.name = localized("Priority"),
          .editor = CVDetailEditorTypeRadioGroup,
          .value = kHigh,
          .choices = HGChoiceListFactory::priorityChoiceList(),
          .icons = EXImageMap::imageMapNamed("PriorityImageMap")},
         {.name = localized("Starred"), .editor = CVDetailEditorTypeSwitch, .value = true}}};
    const Section time{
        localized("Time"),
        {{.name = localized("Start"), .editor = CVDetailEditorTypeDate, .value = now},
         {.name = localized("Due"),
          .editor = CVDetailEditorTypeDateOnly,
          .value = EXDateOnly(2026, 6, 12)},
         {.name = localized("Time of day"),
          .editor = CVDetailEditorTypeTimeOnly,
          .value = EXTimeOnly(9, 30, 0)},
         {.name = localized("Reminder"), .editor = CVDetailEditorTypeSecondDate, .value = now},
         {.name = localized("Weekdays"),
          .editor = CVDetailEditorTypeCustomControl,
          .value = 0b10010}}};
    const Section more{
        localized("More"),
        {{.name = localized("Door code"),
          .editor = CVDetailEditorTypeThirdText,
          .value = "1408",
          .placeholder = localized("None")},
         {.name = localized("Project"),
          .editor = CVDetailEditorTypeText,
          .value = localized("Summer"),
          .use = Use::ReadOnly},
         {.name = localized("Made on"),
          .editor = CVDetailEditorTypeDateOnly,
          .value = EXDateOnly(2026, 4, 28),
          .use = Use::Informative},
         {.name = localized("Place"), .editor = CVDetailEditorTypeUnsupported, .value = {}}}};
    return {task, time, more};
}

const TaskForm::Field& TaskForm::at(Index field, Index section) const {
    return sections_.at(static_cast<std::size_t>(section))
        .fields.at(static_cast<std::size_t>(field));
}

TaskForm::Field& TaskForm::at(Index field, Index section) {
    return const_cast<Field&>(std::as_const(*this).at(field, section));
}

// What there is.

TaskForm::Text TaskForm::title() const {
    return localized("Edit Task");
}

TaskForm::Text TaskForm::description() const {
    return localized("Every kind of editor that a form may have.");
}

std::int64_t TaskForm::countSections() const {
    return static_cast<std::int64_t>(sections_.size());
}

TaskForm::Text TaskForm::nameForSection(Index section) const {
    return sections_.at(static_cast<std::size_t>(section)).name;
}

std::int64_t TaskForm::countFields(Index section) const {
    return static_cast<std::int64_t>(sections_.at(static_cast<std::size_t>(section)).fields.size());
}

TaskForm::Text TaskForm::nameForField(Index field, Index section) const {
    return at(field, section).name;
}

TaskForm::Text TaskForm::placeholderForField(Index field, Index section) const {
    return at(field, section).placeholder;
}

EXValue TaskForm::valueForField(Index field, Index section) const {
    return at(field, section).value;
}

bool TaskForm::fieldIsEditable(Index field, Index section) const {
    return at(field, section).use == Use::Edited;
}

bool TaskForm::fieldIsInformative(Index field, Index section) const {
    return at(field, section).use == Use::Informative;
}

CVDetailEditorType TaskForm::editorTypeForField(Index field, Index section) const {
    return at(field, section).editor;
}

TaskForm::ChoiceList TaskForm::choiceSetForField(Index field, Index section) const {
    return at(field, section).choices;
}

std::shared_ptr<const EXImageMap> TaskForm::iconMapForField(Index field, Index section) const {
    return at(field, section).icons;
}

// The weekdays, as a control of its own.

std::shared_ptr<views::View> TaskForm::createCustomControlForField(Index, Index,
                                                                   const platform::Rect& frame,
                                                                   const EXValue& value,
                                                                   bool editable,
                                                                   const ChoiceList&) {
    auto weekdays = std::make_shared<CVMacBitmaskChooser>(frame);
    const auto calendar = EXCalendar::currentCalendar();
    weekdays->setLabels(HGCustomRepeatFactory::bitLabelsForWeekOfCalendar(calendar), kDaysOfWeek);
    weekdays->setCellNames(calendar.createWeekdayNames());
    weekdays->setBitmask(value.integerValue());
    weekdays->setEnabled(editable);
    return weekdays;
}

EXValue TaskForm::valueOfCustomControl(views::View& control, Index, Index) {
    return static_cast<CVMacBitmaskChooser&>(control).bitmask();
}

void TaskForm::setValueEditableForCustomControl(const EXValue& value, bool editable,
                                                views::View& control, Index, Index) {
    auto& weekdays = static_cast<CVMacBitmaskChooser&>(control);
    weekdays.setBitmask(value.integerValue());
    weekdays.setEnabled(editable);
}

// What the user does.

void TaskForm::valueChangedForField(Index field, Index section, const EXValue& value) {
    Field& changed = at(field, section);
    changed.value = value;
    note_("Task: " + changed.name + " is " + readable(value));
}

void TaskForm::didInvokeOkAction() {
    saved_ = sections_;
    note_("Task: OK");
    if (closesWhenDone_) CVDetailController::didInvokeOkAction();
}

void TaskForm::didInvokeCancelAction() {
    sections_ = saved_;
    note_("Task: Cancel");
    if (closesWhenDone_) return CVDetailController::didInvokeCancelAction();
    if (const auto form = std::dynamic_pointer_cast<CVMacDetailForm>(detail())) form->reload();
}

}  // namespace corvane::gallery
