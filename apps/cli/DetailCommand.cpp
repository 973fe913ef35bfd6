#include "corvane/models/EXDetailModelDelegate.h"

#include "apps/cli/DocumentChange.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/Failure.h"
#include "apps/cli/FormText.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

#include <memory>

namespace corvane::cli {

namespace {

/// In the place of a URI.
constexpr std::string_view kNewTask = "new";

/// The form of a task, opened; what it says to the user ends the command.
class OpenForm {
  public:
    OpenForm(std::shared_ptr<backup::BackupDocument> document, const std::string& uri)
        : form_(std::make_shared<TaskDetailModel>(std::move(document))) {
        delegate_->detailModelShowAlertWithTitle = [this](auto&, auto&, const std::string& message,
                                                          auto&) { complaint_ = message; };
        form_->setDelegate(delegate_);
        const bool isNew = uri == kNewTask;
        if (isNew) form_->setTemplateForNewObject(templateForNewTask());
        form_->setUriRepresentation(isNew ? std::nullopt : std::optional(backup::URL(uri)));
        if (!form_->object()) throw Failure(fmt::format("there is no task '{}'", uri));
    }

    const TaskDetailModel& form() const { return *form_; }

    void set(const std::string& field, const std::string& value) {
        const auto path = fieldNamed(*form_, field);
        if (!path && !isFooterField(*form_, field)) {
            throw Failure(fmt::format("the form of a task has no '{}'", field));
        }
        if (!path || !form_->canEditFieldAtIndexPath(*path)) {
            throw Failure(fmt::format("'{}' can only be read", field));
        }
        form_->setValueForFieldAtIndexPath(valueFromText(*form_, *path, value), *path);
        heed();
        form_->saveObject();
        heed();
    }

  private:
    void heed() const {
        if (complaint_) throw Failure(*complaint_);
    }

    std::shared_ptr<TaskDetailModel> form_;
    std::shared_ptr<EXDetailModelDelegate> delegate_ = std::make_shared<EXDetailModelDelegate>();
    std::optional<std::string> complaint_;
};

void showForm(const DetailQuestion& question, Format format) {
    platform::Error error;
    auto document = backup::loadBackupDocument(question.file, &error);
    if (!document) throw Failure(error);
    const OpenForm open(std::make_shared<backup::BackupDocument>(std::move(*document)),
                        question.uri);
    print(format == Format::JSON ? formJson(open.form()) : formText(open.form()));
}

std::string reportOf(const DetailQuestion& question, const TaskDetailModel& form) {
    const std::string& value = *question.value;
    const std::string uri(form.uriRepresentation()->absoluteString());
    return (question.uri == kNewTask ? fmt::format("Added {}\n", uri) : "") +
           (value.empty() ? fmt::format("Cleared {}\n", *question.field)
                          : fmt::format("Set {} to '{}'\n", *question.field, onOneLine(value)));
}

}  // namespace

void runDetail(const DetailQuestion& question, Format format) {
    if (!question.field) return showForm(question, format);
    changeDocument(question.file, [&](backup::BackupDocument& document) {
        // The form is closed before the document is gone, and needs no share of it.
        const std::shared_ptr<backup::BackupDocument> lent(std::shared_ptr<void>(), &document);
        OpenForm open(lent, question.uri);
        open.set(*question.field, *question.value);
        return reportOf(question, open.form());
    });
}

}  // namespace corvane::cli
