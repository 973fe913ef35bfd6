#include "corvane/controls/OverviewModelBinding.h"

#include "corvane/models/EXOverviewModel.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/OptionalCall.h"
#include "corvane/views/EXMacAlertController.h"
#include "corvane/views/View.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using platform::IndexPath;
using Paths = std::vector<CVIndexPath>;

void tell(const std::function<void()>& notice) {
    if (notice) callOperation(notice);
}

/// How many objects stand above each placeholder of a section.
using Above = std::vector<RowCache::Index>;

CVIndexPath rowOf(const IndexPath& path, const Above& above) {
    const auto placeholders = std::count_if(
        above.begin(), above.end(), [&](RowCache::Index count) { return count <= path.item; });
    return {path.section, path.item + placeholders};
}

Above objectsAbovePlaceholders(const CVMacTableView& table, RowCache::Index section) {
    Above above;
    RowCache::Index objects = 0;
    if (!table.rows().hasSection(section)) return above;
    for (const auto& cell : table.rows().sections()[static_cast<std::size_t>(section)].cells) {
        if (cell && cell->placeholderCell()) {
            above.push_back(objects);
        } else {
            ++objects;
        }
    }
    return above;
}

}  // namespace

OverviewModelBinding::OverviewModelBinding(ModelPtr model, TableQuestion table)
    : model_(std::move(model)),
      table_(std::move(table)),
      delegate_(std::make_shared<EXOverviewModelDelegate>()),
      self_(std::make_shared<OverviewModelBinding*>(this)) {
    followLoading();
    followObjects();
    passQuestions();
    model_->setDelegate(delegate_);
}

OverviewModelBinding::~OverviewModelBinding() {
    *self_ = nullptr;
}

void OverviewModelBinding::whileTableIsAhead(const std::function<void()>& change) {
    const Self self = self_;
    const bool before = std::exchange(tableIsAhead_, true);
    change();
    if (*self) tableIsAhead_ = before;
}

// Loading.

void OverviewModelBinding::followLoading() {
    delegate_->overviewModelDidTransitionToState = [self = self_](EXOverviewModel&,
                                                                  EXOverviewModelState state) {
        if (*self) (*self)->stateDidChange(state);
    };
    const auto reload = [self = self_](EXOverviewModel&) {
        if (*self) (*self)->reload();
    };
    delegate_->didReloadDataForOverviewModel = reload;
    delegate_->didResetOverviewModel = reload;
    delegate_->didUpdateTitleForOverviewModel = [self = self_](EXOverviewModel&) {
        if (*self) tell((*self)->didChangeTitle);
    };
}

void OverviewModelBinding::stateDidChange(EXOverviewModelState state) {
    const bool wasLoading = std::exchange(loading_, state == EXOverviewModelStateLoading);
    if (loading_) return tell(didChangeState);
    // A reload that succeeded and a reset are told of in a moment. Of data that were fetched
    // elsewhere, and of a failure, there is no other notice.
    const bool isTold =
        state == EXOverviewModelStateInitial || (wasLoading && state != EXOverviewModelStateError);
    if (!isTold) reload();
}

void OverviewModelBinding::reload() {
    const Self self = self_;
    const auto table = table_();
    if (table && table->dataLoaded()) table->reloadData();
    if (*self) tell(didChangeState);
    if (*self) tell(didChangeObjects);
}

// Objects.

void OverviewModelBinding::followObjects() {
    const auto follow = [self = self_](Change change) {
        return [self, change](EXOverviewModel&, const IndexPaths& paths, bool userDriven) {
            if (*self) (*self)->apply(change, paths, userDriven);
        };
    };
    delegate_->overviewModelDidInsertObjectsAtIndexPaths = follow(Change::Insert);
    delegate_->overviewModelDidRemoveObjectsAtIndexPaths = follow(Change::Remove);
}

void OverviewModelBinding::apply(Change change, const IndexPaths& paths, bool userDriven) {
    const Self self = self_;
    const auto table = table_();
    if (!table || !table->dataLoaded() || tableIsAhead_) return tell(didChangeObjects);
    switch (relationAfter(change, paths, userDriven)) {
        case Relation::TableIsBehind:
            if (change == Change::Insert) {
                table->insertRowsAtIndexPaths(rowsFor(change, paths), 0);
            } else {
                table->deleteRowsAtIndexPaths(rowsFor(change, paths), 0);
            }
            break;
        case Relation::TableIsAhead:
            refillSections(paths);
            break;
        case Relation::Unknown:
            return reload();
    }
    if (*self) tell(didChangeState);
    if (*self) tell(didChangeObjects);
}

void OverviewModelBinding::refillSections(const IndexPaths& paths) {
    // The table has as many rows as there are objects, but the model may have another order.
    std::set<Index> sections;
    for (const IndexPath& path : paths)
        sections.insert(path.section);
    IndexPaths objects;
    for (const Index section : sections)
        for (Index item = 0; item < model_->numberOfObjectsInSection(section); ++item)
            objects.push_back({section, item});
    table_()->reloadRowsAtIndexPaths(rowsFor(Change::Remove, objects), 0);
}

OverviewModelBinding::Relation OverviewModelBinding::relationAfter(Change change,
                                                                   const IndexPaths& paths,
                                                                   bool userDriven) const {
    const auto table = table_();
    if (table->numberOfSections() != model_->numberOfSections()) return Relation::Unknown;
    std::map<Index, Index> changes;
    for (const IndexPath& path : paths)
        ++changes[path.section];
    bool isBehind = true;
    bool isAhead = userDriven;
    for (const auto& [section, count] : changes) {
        if (section < 0 || section >= model_->numberOfSections()) return Relation::Unknown;
        const Index rows = table->numberOfRowsInSection(section) -
                           std::ssize(objectsAbovePlaceholders(*table, section));
        const Index objects = model_->numberOfObjectsInSection(section);
        isBehind = isBehind && objects == (change == Change::Insert ? rows + count : rows - count);
        isAhead = isAhead && objects == rows;
    }
    return isBehind  ? Relation::TableIsBehind
           : isAhead ? Relation::TableIsAhead
                     : Relation::Unknown;
}

std::vector<CVIndexPath> OverviewModelBinding::rowsFor(Change change,
                                                       const IndexPaths& paths) const {
    const auto table = table_();
    std::map<Index, Above> aboveBySection;
    for (const IndexPath& path : paths)
        if (!aboveBySection.contains(path.section))
            aboveBySection[path.section] = objectsAbovePlaceholders(*table, path.section);
    IndexPaths ascending = paths;
    std::sort(ascending.begin(), ascending.end());
    Paths rows;
    for (const IndexPath& path : ascending) {
        Above& above = aboveBySection[path.section];
        // A new row goes before a placeholder that has more rows above it, and pushes it down.
        for (Index& count : above)
            if (change == Change::Insert && path.item < count) ++count;
        rows.push_back(rowOf(path, above));
    }
    return rows;
}

std::optional<IndexPath> OverviewModelBinding::modelPathForRow(const CVIndexPath& path) const {
    const auto table = table_();
    const auto cell = table ? table->cellForRowAtIndexPath(path) : nullptr;
    if (cell && cell->placeholderCell()) return std::nullopt;
    IndexPath place = path.toNSIndexPath();
    if (!table || path.section() < 0 || path.section() >= model_->numberOfSections()) return place;
    // Each row of thousands may be asked for while there is no placeholder, or the usual one.
    const Index placeholders = table->numberOfRowsInSection(path.section()) -
                               model_->numberOfObjectsInSection(path.section());
    if (placeholders == 0) return place;
    const auto typed = table->placeholderCell();
    const bool isOnly = placeholders == 1 && typed && typed->placeholderCell() &&
                        typed->indexPath().section() == path.section();
    const Above above =
        isOnly ? Above{typed->indexPath().row()} : objectsAbovePlaceholders(*table, path.section());
    for (const Index count : above)
        if (count < place.item) --place.item;
    return place;
}

IndexPath OverviewModelBinding::modelPathBeforeMove(const CVIndexPath& from,
                                                    const CVIndexPath& to) const {
    const auto table = table_();
    IndexPath place = from.toNSIndexPath();
    if (!table) return place;
    Index placeholder = 0;
    for (const Index count : objectsAbovePlaceholders(*table, from.section())) {
        Index row = count + placeholder++;
        if (from.section() == to.section() && to.row() < row) --row;
        if (row < from.row()) --place.item;
    }
    return place;
}

// Questions.

void OverviewModelBinding::passQuestions() {
    const auto windowOfTable = [self = self_]() -> views::Window* {
        const auto shown = *self ? (*self)->table_() : nullptr;
        return shown ? shown->window() : nullptr;
    };
    delegate_->overviewModelShowAlertWithTitle =
        [windowOfTable](EXOverviewModel&, const std::string& title, const std::string& message,
                        const std::string& action) {
            EXMacAlertController::showAlertWithTitle(title, message, action, windowOfTable());
        };
    const auto confirm = [windowOfTable](
                             EXOverviewModel&, const std::string& title, const std::string& message,
                             const std::string& confirmAction, const std::string& cancelAction,
                             const EXOverviewModelDelegate::Confirmation& confirmed) {
        EXMacAlertController::showConfirmationWithTitle(title, message, confirmAction, cancelAction,
                                                        windowOfTable(), confirmed);
    };
    delegate_->overviewModelShowConfirmationWithTitle = confirm;
    delegate_->overviewModelShowConfirmationWithTitleFromSender =
        [confirm](EXOverviewModel& model, const std::string& title, const std::string& message,
                  const std::string& confirmAction, const std::string& cancelAction,
                  const std::shared_ptr<views::View>&,
                  const EXOverviewModelDelegate::Confirmation& confirmed) {
            confirm(model, title, message, confirmAction, cancelAction, confirmed);
        };
}

}  // namespace corvane
