// Keeps a table in step with an overview model: the rows are the model's objects.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/models/EXOverviewModelDelegate.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace corvane {

class CVMacTableView;
class EXOverviewModel;

/// The delegate of the model for as long as it lives. Objects that come and go become rows that
/// come and go; where the table does not have the rows that the model had before, it is loaded
/// anew. What the model asks the user is shown on the table's window. Whoever is the table's data
/// source answers from the model.
///
/// Holds the model, and asks for the table whenever it needs it, since whoever has both may lose
/// the table; may be dropped from any notice. One thread.
class OverviewModelBinding {
  public:
    using ModelPtr = std::shared_ptr<EXOverviewModel>;
    using Index = std::int64_t;

    /// Null for no table at the moment.
    using TableQuestion = std::function<std::shared_ptr<CVMacTableView>()>;

    /// REQUIRES: a model.
    OverviewModelBinding(ModelPtr model, TableQuestion table);
    ~OverviewModelBinding();
    OverviewModelBinding(const OverviewModelBinding&) = delete;
    OverviewModelBinding& operator=(const OverviewModelBinding&) = delete;

    const ModelPtr& model() const { return model_; }

    /// Which object a row of the table is: rows behind one that is just being filled in are one
    /// further than their objects. None for that one.
    std::optional<platform::IndexPath> modelPathForRow(const CVIndexPath& path) const;

    /// The same for where a row was that the table has just moved.
    platform::IndexPath modelPathBeforeMove(const CVIndexPath& from, const CVIndexPath& to) const;

    /// Runs a change of the model that the table has made already, such as a move.
    void whileTableIsAhead(const std::function<void()>& change);

    // After the table has followed; may be left empty.

    std::function<void()> didChangeObjects;
    std::function<void()> didChangeState;
    std::function<void()> didChangeTitle;

  private:
    using IndexPaths = EXOverviewModelDelegate::IndexPaths;
    using Self = std::shared_ptr<OverviewModelBinding*>;
    enum class Change { Insert, Remove };
    enum class Relation { TableIsBehind, TableIsAhead, Unknown };

    void followLoading();
    void followObjects();
    void passQuestions();
    void stateDidChange(EXOverviewModelState state);
    void apply(Change change, const IndexPaths& paths, bool userDriven);
    void refillSections(const IndexPaths& paths);
    Relation relationAfter(Change change, const IndexPaths& paths, bool userDriven) const;
    void reload();
    /// Where the objects stand in the table, which has yet to get new ones.
    std::vector<CVIndexPath> rowsFor(Change change, const IndexPaths& paths) const;

    ModelPtr model_;
    TableQuestion table_;
    std::shared_ptr<EXOverviewModelDelegate> delegate_;
    Self self_;  ///< leads to null once the binding is gone
    bool loading_ = false;
    bool tableIsAhead_ = false;
};

}  // namespace corvane
