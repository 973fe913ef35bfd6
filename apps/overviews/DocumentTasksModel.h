// The tasks of a backup document, by project or by status.
#pragma once

#include "corvane/models/SectionedOverviewModel.h"

#include "apps/document/BackupDocument.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::overviews {

/// Sections without tasks are left out; within one, tasks stand in the order of the document. By
/// project, sections stand in that order too, and tasks without project come last. By status, they
/// stand in the order in which the user chooses among them. Can be preloaded with a BackupDocument.
///
///     auto tasks = std::make_shared<DocumentTasksModel>("/home/ann/tasks.cvbx", Grouping::Status);
///     tasks->reloadData();
///     tasks->titleForSection(0)             // "Inbox"
///     tasks->taskAtIndexPath({0, 0})->titleRaw
class DocumentTasksModel : public SectionedOverviewModel {
  public:
    enum class Grouping { Project, Status };

    DocumentTasksModel(std::string path, Grouping grouping)
        : path_(std::move(path)), grouping_(grouping) {}

    /// What is listed; null before anything was loaded.
    const std::shared_ptr<const backup::BackupDocument>& document() const { return document_; }

    std::shared_ptr<const backup::Task> taskAtIndexPath(const IndexPath& path) const;
    std::optional<platform::URL> uriRepresentationForObjectAtIndexPath(
        const IndexPath& path) const override;
    std::optional<std::string> titleForObjectAtIndexPath(const IndexPath& path) const override;

    /// The project or status of the section, under the name of the task's field.
    std::optional<Template> templateForNewObjectAtIndexPath(const IndexPath& path) const override;

    /// Reads the file.
    bool loadData(std::optional<platform::Error>& error) override;
    void unloadData() override;
    void handlePreloadedData(const EXObject& data) override;

  private:
    void listTasks(std::shared_ptr<const backup::BackupDocument> document);
    void addSection(std::vector<Section>& sections, std::optional<std::string> title,
                    const std::vector<const backup::Task*>& tasks, Template newTask);
    std::vector<Section> sectionsByProject();
    std::vector<Section> sectionsByStatus();

    std::string path_;
    Grouping grouping_;
    std::shared_ptr<const backup::BackupDocument> document_;
    std::vector<Template> newTasks_;  ///< by section
};

}  // namespace corvane::overviews
