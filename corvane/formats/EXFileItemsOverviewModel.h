// The files of a directory as one section of a list, such as the user's backups. One thread, as for
// every overview model.
#pragma once

#include "corvane/formats/EXFileItem.h"
#include "corvane/models/EXOverviewModel.h"
#include "corvane/models/EXSortDescriptor.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane {

/// Lists every entry, hidden ones and strangers too, as it was at the last load. Every section is
/// this one section. A path beyond the list throws std::out_of_range.
///
///     auto backups = std::make_shared<EXFileItemsOverviewModel>(URL::fileURLWithPath(directory));
///     backups->setSortDescriptors(EXSortDescriptors{{"created", false}});
///     backups->reloadData();
///     backups->fileItemAtIndexPath({0, 0})->fileName()     // that of the newest
class EXFileItemsOverviewModel : public EXOverviewModel {
  public:
    using FileItems = std::vector<std::shared_ptr<EXFileItem>>;

    /// Without a directory, loading fails.
    explicit EXFileItemsOverviewModel(std::optional<platform::URL> directoryUrl = {})
        : directoryUrl_(std::move(directoryUrl)) {}

    const FileItems& fileItems() const { return fileItems_; }
    const std::optional<platform::URL>& directoryUrl() const { return directoryUrl_; }
    void setDirectoryUrl(std::optional<platform::URL> url) { directoryUrl_ = std::move(url); }

    /// From the next load on. Without any, files stand as the directory has them.
    const std::optional<EXSortDescriptors>& sortDescriptors() const { return sortDescriptors_; }
    void setSortDescriptors(std::optional<EXSortDescriptors> descriptors) {
        sortDescriptors_ = std::move(descriptors);
    }

    /// Makes the directory where it is missing, but not those above it. A failure keeps the list;
    /// it has no error only where no directory is set.
    bool loadData(std::optional<platform::Error>& error) override;
    void unloadData() override { fileItems_.clear(); }

    std::int64_t numberOfSections() const override { return 1; }
    std::int64_t numberOfObjectsInSection(std::int64_t section) const override;
    const std::shared_ptr<EXFileItem>& fileItemAtIndexPath(const IndexPath& path) const;
    EXObject objectAtIndexPath(const IndexPath& path) const override;
    std::optional<IndexPath> indexPathOfObjectInSection(const EXObject& object,
                                                        std::int64_t section) const override;
    /// The file's URL.
    std::optional<platform::URL> uriRepresentationForObjectAtIndexPath(
        const IndexPath& path) const override;
    std::optional<std::string> titleForObjectAtIndexPath(const IndexPath& path) const override;

    /// Lists a file that has come into the directory, and tells the delegate.
    void insertFileItem(std::shared_ptr<EXFileItem> item, const IndexPath& path);

    bool canDeleteObjectAtIndexPath(const IndexPath&) const override { return true; }
    /// Deletes the file. One that cannot be deleted is reported on the console and stays listed.
    void deleteObjectAtIndexPath(const IndexPath& path) override;

  private:
    FileItems fileItems_;
    std::optional<platform::URL> directoryUrl_;
    std::optional<EXSortDescriptors> sortDescriptors_;
};

}  // namespace corvane
