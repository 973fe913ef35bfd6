#include "apps/cli/TaskForm.h"

#include "corvane/dates/HGCustomRepeatFactory.h"
#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGChoiceListFactory.h"

#include "apps/cli/TaskCodes.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace corvane::cli {

namespace {

using Section = std::shared_ptr<EXDetailModelSectionDescriptor>;
using Field = std::shared_ptr<EXDetailModelFieldDescriptor>;

/// 0.5 as "50 %".
class PercentFormatter : public EXValueFormatter {
  public:
    std::optional<std::string> stringForValue(const EXValue& value) const override {
        if (!value.isNumber()) return std::nullopt;
        return fmt::format("{} %", std::lround(100 * value.realValue()));
    }
    std::optional<EXValue> valueFromString(std::string_view text) const override {
        double percent = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, problem] = std::from_chars(text.data(), end, percent);
        const std::string_view rest(stop, static_cast<std::size_t>(end - stop));
        if (problem != std::errc() || (rest != "%" && rest != " %")) return std::nullopt;
        return EXValue(percent / 100);
    }
};

Field field(std::string_view type, const char* title, std::string_view key) {
    return std::make_shared<EXDetailModelFieldDescriptor>(std::string(type), title,
                                                          std::string(key));
}

Field text(std::string_view type, const char* title, std::string_view key, const char* placeholder,
           std::int64_t lines = 0) {
    const Field made = field(type, title, key);
    made->setPlaceholder(placeholder);
    made->setNumberOfLines(lines);
    return made;
}

Field flag(const char* title, std::string_view key) {
    const Field made = field(EXDetailModelFieldTypeBool, title, key);
    made->setDefaultValue(false);
    made->setDisplayHints(EXDetailModelFieldDisplayHintUseSwitch);
    return made;
}

Field choice(const char* title, std::string_view key, std::shared_ptr<const EXChoiceList> choices,
             EXValue defaultValue, const char* icons = "") {
    const Field made = field(EXDetailModelFieldTypeChoice, title, key);
    made->setChoiceList(std::move(choices));
    made->setDefaultValue(std::move(defaultValue));
    made->setIconMap(EXImageMap::imageMapNamed(icons));
    return made;
}

/// For the user to read.
Field shown(Field made) {
    made->setEditable(false);
    made->setDisplayHints(EXDetailModelFieldDisplayHintInformative);
    return made;
}

Section section(const char* title, std::initializer_list<Field> fields) {
    auto made = std::make_shared<EXDetailModelSectionDescriptor>();
    made->setTitle(title);
    for (const Field& field : fields)
        made->addFieldDescriptor(field);
    return made;
}

Section task() {
    const Field title = text(EXDetailModelFieldTypeText, "Title", HGTaskTitleRawKey, "New Task", 2);
    title->setDisplayHints(EXDetailModelFieldDisplayHintEditInline);
    return section(
        "Task", {title,
                 choice("Status", HGTaskStatusRawKey, HGChoiceListFactory::taskStatusChoiceList(),
                        kActionableStatus, "TaskStatusImageMap"),
                 choice("Priority", HGTaskPriorityRawKey, HGChoiceListFactory::priorityChoiceList(),
                        kMediumPriority, "PriorityImageMap"),
                 flag("Starred", HGTaskStarredRawKey),
                 text(EXDetailModelFieldTypeExtendedText, "Notes", HGTaskNotesKey, "Notes")});
}

Section place() {
    return section(
        "Belongs To",
        {text(EXDetailModelFieldTypeString, "Project", "project", "No Project"),
         flag("Next in Project", HGTaskNextInProjectKey),
         text(EXDetailModelFieldTypeString, "Category", HGTaskContextCategoryKey, "No Category"),
         text(EXDetailModelFieldTypeString, "Contributor", HGTaskContributorKey, "Nobody")});
}

Section schedule() {
    return section(
        "Schedule",
        {field(EXDetailModelFieldTypeDateOnly, "Start", HGTaskStartRawKey),
         field(EXDetailModelFieldTypeDateOnly, "Due", HGTaskDueRawKey),
         field(EXDetailModelFieldTypeDateOnly, "Reminder", HGTaskReminderDateRawKey),
         field(EXDetailModelFieldTypeTimeOnly, "At", HGTaskReminderTimeRawKey),
         field(EXDetailModelFieldTypeDateOnly, "Second Reminder", HGTaskSecondReminderDateRawKey),
         field(EXDetailModelFieldTypeTimeOnly, "At", HGTaskSecondReminderTimeRawKey)});
}

Section repeat() {
    constexpr std::int64_t kNever = 0;
    return section(
        "Repeat",
        {choice("Repeat", HGTaskRepeatRawKey, HGChoiceListFactory::taskRepeatChoiceList(), kNever),
         flag("After Completion", HGTaskRepeatAfterCompletionKey),
         field(EXDetailModelFieldTypeDateOnly, "Until", HGTaskRepeatUntilRawKey),
         choice("Custom Frequency", HGTaskCustomRepeatFrequencyRawKey,
                HGCustomRepeatFactory::choiceListForFrequencies(), {}),
         field(EXDetailModelFieldTypeInteger, "Custom Interval",
               HGTaskCustomRepeatIntervalRawKey)});
}

Section progress() {
    const Field completed =
        shown(field(EXDetailModelFieldTypeDouble, "Actions Completed", kActionsCompletedKey));
    completed->setFormatter(std::make_shared<PercentFormatter>());
    return section("Progress", {completed, field(EXDetailModelFieldTypeDateAndTime,
                                                 "Status Changed", HGTaskStatusChangedKey)});
}

}  // namespace

std::vector<Section> taskFormSections() {
    return {task(), place(), schedule(), repeat(), progress()};
}

Section taskFormFooter() {
    return section(
        "History",
        {shown(field(EXDetailModelFieldTypeDateAndTime, "Created", HGBackupElementUserCreated)),
         shown(field(EXDetailModelFieldTypeDateAndTime, "Changed", HGBackupElementUserModified))});
}

}  // namespace corvane::cli
