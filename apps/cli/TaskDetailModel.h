// The form in which a task of a document is edited.
#pragma once

#include "corvane/models/EXDetailModel.h"

#include "apps/cli/RecordObject.h"

#include <memory>
#include <string_view>

namespace corvane::cli {

/// What is set stands in the document at once, but for a new task, which saveObject adds. The file
/// is the caller's. Tells its delegate why it does not take a value, and when the URI is that of no
/// task.
///
///     auto form = std::make_shared<TaskDetailModel>(document);
///     form->setUriRepresentation(uri);
///     form->valueForFieldAtIndexPath({0, 0})    // "Pay the plumber"
class TaskDetailModel : public EXDetailModel {
  public:
    explicit TaskDetailModel(std::shared_ptr<backup::BackupDocument> document);

    /// Loads the task with the URI; without one, begins a new task with the template's values.
    void reloadData() override;
    void saveObject() override;

    /// The object as what it is; null where there is none.
    std::shared_ptr<RecordObject> task() const {
        return std::static_pointer_cast<RecordObject>(object());
    }

  protected:
    /// What the task cannot do with leaves it as it was.
    EXValue valueForSettingProposedValue(const EXValue& value, const IndexPath& path) override;

  private:
    void beginNewTask();

    const std::shared_ptr<backup::BackupDocument> document_;
    std::shared_ptr<backup::Task> newTask_;  ///< until it is saved
};

/// What a new task has according to the user's settings.
EXDetailModel::Template templateForNewTask();

}  // namespace corvane::cli
