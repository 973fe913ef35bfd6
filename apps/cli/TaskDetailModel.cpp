#include "apps/cli/TaskDetailModel.h"

#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/preferences/HGCorvanePreferences.h"

#include "apps/cli/Conversion.h"
#include "apps/cli/DocumentChange.h"
#include "apps/cli/TaskForm.h"
#include "apps/cli/TextHash.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace corvane::cli {

namespace {

using backup::BackupDocument;
using backup::URL;

constexpr std::int16_t kCompletedAction = 2;

const backup::RecordLayout& taskLayout() {
    const auto parts = backup::documentLayout().parts;
    return *std::find_if(parts.begin(), parts.end(), [](const backup::Part& part) {
                return part.name == HGBackupElementTasks;
            })->records;
}

const backup::Task* taskIn(BackupDocument& document, const URL& uri) {
    const auto [record, layout] = backup::findRecord(document, uri);
    return layout == &taskLayout() ? static_cast<const backup::Task*>(record) : nullptr;
}

URL freshURI(BackupDocument& document) {
    for (std::uint64_t attempt = document.tasks.size();; ++attempt) {
        const auto moment = nowInSeconds().time_since_epoch().count();
        const auto hash = stableHash(fmt::format("{}\n{}", moment, attempt));
        URL uri(fmt::format("x-corvane-todo://task/{:016x}", hash));
        if (!backup::findRecord(document, uri).first) return uri;
    }
}

/// A task with what follows from its parts.
class TaskObject : public RecordObject {
  public:
    TaskObject(std::shared_ptr<BackupDocument> document, URL uri)
        : RecordObject(*document, uri), document_(std::move(document)), uri_(std::move(uri)) {}
    TaskObject(std::shared_ptr<BackupDocument> document, std::shared_ptr<backup::Task> newTask)
        : RecordObject(*document, *newTask, taskLayout()),
          document_(std::move(document)),
          newTask_(std::move(newTask)) {}

    EXValue valueForKey(std::string_view key) const override {
        return key == kActionsCompletedKey ? actionsCompleted() : RecordObject::valueForKey(key);
    }

  private:
    /// Null where there are no actions.
    EXValue actionsCompleted() const {
        const auto* task = newTask_ ? newTask_.get() : taskIn(*document_, uri_);
        if (!task || task->actions.empty()) return {};
        const auto completed =
            std::count_if(task->actions.begin(), task->actions.end(),
                          [](const auto& action) { return action.statusRaw == kCompletedAction; });
        return static_cast<double>(completed) / static_cast<double>(task->actions.size());
    }

    const std::shared_ptr<BackupDocument> document_;
    const URL uri_;
    const std::shared_ptr<backup::Task> newTask_;
};

}  // namespace

TaskDetailModel::TaskDetailModel(std::shared_ptr<BackupDocument> document)
    : document_(std::move(document)) {
    setTitle("New Task", kStateNewObject);
    setTitle("Task", kStateExistingObject);
    setSectionDescriptors(taskFormSections());
    setFooterSectionDescriptor(taskFormFooter());
}

void TaskDetailModel::reloadData() {
    newTask_.reset();
    if (const auto uri = uriRepresentation()) {
        if (!taskIn(*document_, *uri)) return invalidate();
        setObject(std::make_shared<TaskObject>(document_, *uri));
    } else {
        beginNewTask();
    }
}

void TaskDetailModel::beginNewTask() {
    newTask_ = std::make_shared<backup::Task>();
    newTask_->uri = freshURI(*document_);
    newTask_->userCreated = nowInSeconds();
    const auto object = std::make_shared<TaskObject>(document_, newTask_);
    for (const auto& [key, value] : templateForNewObject().value_or(Template()))
        object->setValueForKey(value, key);
    setObject(object);
}

void TaskDetailModel::saveObject() {
    if (const auto added = newTask_; added && object()) {
        const EXValue title = object()->valueForKey(HGTaskTitleRawKey);
        if (const auto complaint = task()->complaintAbout(title, HGTaskTitleRawKey))
            return showAlertWithTitle("The task is not saved", *complaint, "OK");
        document_->tasks.push_back(*added);
        setUriRepresentation(added->uri);
    }
    fillCollations(*document_);
}

EXValue TaskDetailModel::valueForSettingProposedValue(const EXValue& value, const IndexPath& path) {
    const std::string key = keyForFieldAtIndexPath(path).value_or("");
    const auto complaint = object() ? task()->complaintAbout(value, key) : std::nullopt;
    if (!complaint) return value;
    const EXValue kept = object()->valueForKey(key);
    showAlertWithTitle("The value is not set", *complaint, "OK");
    return kept;
}

EXDetailModel::Template templateForNewTask() {
    constexpr std::uint64_t kStarred = 0;
    const auto& preferences = HGCorvanePreferences::sharedPreferences();
    if (preferences.addTasksByDefaultAs() == kStarred)
        return {{std::string(HGTaskStarredRawKey), true}};
    return {{std::string(HGTaskDueRawKey), EXDateOnly(std::nullopt)}};
}

}  // namespace corvane::cli
