// An overview controller whose main list is an overview model.
#pragma once

#include "corvane/models/CVOverviewController.h"
#include "corvane/models/EXObject.h"
#include "corvane/platform/IndexPath.h"

#include <memory>
#include <optional>
#include <string>

namespace corvane {

class CVMacOverview;
class EXOverviewModel;
class OverviewModelBinding;

/// Answers for sections, rows, titles, moves and deletions from the model, and shows its state in
/// the empty list and its questions as sheets. A model that holds no data is loaded when the screen
/// appears; it is active as long as the screen is there. Screens derive from the controller: they
/// fill the cells, and override what else they need.
class OverviewModelController : public CVOverviewController {
  public:
    using Model = EXOverviewModel;
    using ModelPtr = std::shared_ptr<EXOverviewModel>;

    explicit OverviewModelController(ModelPtr model = {});
    ~OverviewModelController() override;

    const ModelPtr& model() const { return model_; }
    /// Shows another one; null for an empty list.
    void setModel(ModelPtr model);

    /// The object of a row; empty for a path that is not in the model.
    EXObject objectAtIndexPath(const IndexPath& path) const;

    void overviewDidLoad() override;
    void overviewWillAppear() override;
    void overviewDidDisappear() override;
    Text overviewTitle() const override;
    std::int64_t numberOfSectionsInOverview() const override;
    Text titleForHeaderInOverviewSection(std::int64_t section) const override;
    std::int64_t numberOfRowsInOverviewSection(std::int64_t section) const override;
    bool overviewCanEditRowAtIndexPath(const IndexPath& path) const override;
    bool overviewCanMoveRowAtIndexPath(const IndexPath& path) const override;
    IndexPath overviewTargetIndexPathForMoveFromRowAtIndexPath(const IndexPath& path,
                                                               IndexPath proposed) const override;
    /// Deletes what the model lets be deleted.
    void overviewCommitEditingStyle(CVMacTableViewEditingStyle style,
                                    const IndexPath& path) override;
    void overviewMoveRowAtIndexPath(const IndexPath& path, const IndexPath& target) override;
    /// Loads the rows anew where the model has put an object elsewhere than the table.
    void overviewCommitMovingRows() override;
    Text dragableTextForOverviewRowAtIndexPath(const IndexPath& path) const override;

  protected:
    /// What stands in the list while it has no rows: that it is loading, is empty, or why it could
    /// not be loaded.
    virtual std::string emptyText() const;
    /// After rows came or went, and after the model's state changed.
    virtual void modelDidChange() {}

    /// The view, where it is one; null for none.
    std::shared_ptr<CVMacOverview> view() const;

  private:
    bool hasSection(std::int64_t section) const;
    bool hasObject(const platform::IndexPath& path) const;
    /// None for a row that is no object of the model.
    std::optional<platform::IndexPath> modelPath(const IndexPath& path) const;
    void bind();
    void loadModel();
    void showState();

    ModelPtr model_;
    std::unique_ptr<OverviewModelBinding> binding_;
    bool movedElsewhere_ = false;
};

}  // namespace corvane
