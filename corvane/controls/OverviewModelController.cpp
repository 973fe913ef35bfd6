#include "corvane/controls/OverviewModelController.h"

#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/OverviewModelBinding.h"
#include "corvane/models/EXOverviewModel.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <utility>

namespace corvane {

OverviewModelController::OverviewModelController(ModelPtr model) : model_(std::move(model)) {}

OverviewModelController::~OverviewModelController() = default;

std::shared_ptr<CVMacOverview> OverviewModelController::view() const {
    return std::dynamic_pointer_cast<CVMacOverview>(overview());
}

void OverviewModelController::setModel(ModelPtr model) {
    if (model == model_) return;
    if (model_) model_->setActive(false);
    model_ = std::move(model);
    bind();
    const auto view = this->view();
    if (!view) return;
    view->reloadTitles();
    // One that has yet to be loaded takes the rows of the one before away first.
    if (view->overviewTable()->dataLoaded()) view->overviewTable()->reloadData();
    if (view->window()) loadModel();
}

void OverviewModelController::bind() {
    binding_.reset();
    if (!model_) return showState();
    // Another controller may come to show something in the view.
    binding_ = std::make_unique<OverviewModelBinding>(model_, [this] {
        const auto shown = this->view();
        return shown ? shown->overviewTable() : nullptr;
    });
    binding_->didChangeState = [this] { showState(); };
    binding_->didChangeObjects = [this] { modelDidChange(); };
    binding_->didChangeTitle = [this] {
        if (const auto shown = this->view()) shown->reloadTitles();
    };
    showState();
}

void OverviewModelController::loadModel() {
    const ModelPtr model = model_;
    if (!model) return;
    model->setActive(true);
    if (model->state() == EXOverviewModelStateInitial) model->reloadData();
}

void OverviewModelController::showState() {
    if (const auto view = this->view()) view->overviewTable()->setEmptyText(emptyText());
}

std::string OverviewModelController::emptyText() const {
    switch (model_ ? model_->state() : EXOverviewModelStateInitial) {
        case EXOverviewModelStateLoading:
            return EXLocalizable::localize("ListLoading");
        case EXOverviewModelStateEmpty:
            return EXLocalizable::localize("ListEmpty");
        case EXOverviewModelStateError:
            return model_->errorMessage().value_or("");
        default:
            return {};
    }
}

// The screen.

void OverviewModelController::overviewDidLoad() {
    bind();
}

void OverviewModelController::overviewWillAppear() {
    loadModel();
}

void OverviewModelController::overviewDidDisappear() {
    if (model_) model_->setActive(false);
}

OverviewModelController::Text OverviewModelController::overviewTitle() const {
    return model_ ? model_->title() : std::nullopt;
}

// What there is.

bool OverviewModelController::hasSection(std::int64_t section) const {
    return model_ && section >= 0 && section < model_->numberOfSections();
}

std::optional<platform::IndexPath> OverviewModelController::modelPath(const IndexPath& path) const {
    const auto place = binding_ ? binding_->modelPathForRow(path) : path.toNSIndexPath();
    return place && hasObject(*place) ? place : std::nullopt;
}

bool OverviewModelController::hasObject(const platform::IndexPath& path) const {
    return hasSection(path.section) && path.item >= 0 &&
           path.item < model_->numberOfObjectsInSection(path.section);
}

EXObject OverviewModelController::objectAtIndexPath(const IndexPath& path) const {
    const auto place = modelPath(path);
    return place ? model_->objectAtIndexPath(*place) : EXObject();
}

std::int64_t OverviewModelController::numberOfSectionsInOverview() const {
    return model_ ? model_->numberOfSections() : 0;
}

OverviewModelController::Text OverviewModelController::titleForHeaderInOverviewSection(
    std::int64_t section) const {
    return hasSection(section) ? model_->titleForSection(section) : std::nullopt;
}

std::int64_t OverviewModelController::numberOfRowsInOverviewSection(std::int64_t section) const {
    return hasSection(section) ? model_->numberOfObjectsInSection(section) : 0;
}

OverviewModelController::Text OverviewModelController::dragableTextForOverviewRowAtIndexPath(
    const IndexPath& path) const {
    const auto place = modelPath(path);
    return place ? model_->titleForObjectAtIndexPath(*place) : std::nullopt;
}

// Changing it.

bool OverviewModelController::overviewCanEditRowAtIndexPath(const IndexPath& path) const {
    return modelPath(path).has_value();
}

bool OverviewModelController::overviewCanMoveRowAtIndexPath(const IndexPath& path) const {
    const auto place = modelPath(path);
    return place && model_->canMoveObjectAtIndexPath(*place);
}

OverviewModelController::IndexPath
OverviewModelController::overviewTargetIndexPathForMoveFromRowAtIndexPath(
    const IndexPath& path, IndexPath proposed) const {
    const auto place = modelPath(path);
    if (!place) return proposed;
    return model_->targetIndexPathForMoveFromIndexPath(*place, proposed.toNSIndexPath());
}

void OverviewModelController::overviewMoveRowAtIndexPath(const IndexPath& path,
                                                         const IndexPath& target) {
    const ModelPtr model = model_;
    // The table has moved the row already, but its object is still where it was.
    if (!model || !binding_) return;
    const auto before = binding_->modelPathBeforeMove(path, target);
    const auto after = binding_->modelPathForRow(target);
    if (!hasObject(before) || !after) return;
    const EXObject object = model->objectAtIndexPath(before);
    binding_->whileTableIsAhead([&] { model->moveObjectAtIndexPath(before, *after); });
    const bool isThere = hasObject(*after) && model->objectAtIndexPath(*after) == object;
    if (!isThere) movedElsewhere_ = true;
}

void OverviewModelController::overviewCommitMovingRows() {
    const auto view = this->view();
    if (std::exchange(movedElsewhere_, false) && view) view->overviewTable()->reloadData();
}

void OverviewModelController::overviewCommitEditingStyle(CVMacTableViewEditingStyle style,
                                                         const IndexPath& path) {
    if (style != CVMacTableViewEditingStyle::Delete) return;
    const auto view = this->view();
    const auto cell = view ? view->overviewTable()->cellForRowAtIndexPath(path) : nullptr;
    // A row that was never filled in is no object yet.
    if (cell && cell->placeholderCell())
        return view->overviewTable()->deleteRowsAtIndexPaths({path}, 0);
    const ModelPtr model = model_;
    const auto place = modelPath(path);
    if (place && model->canDeleteObjectAtIndexPath(*place)) model->deleteObjectAtIndexPath(*place);
}

}  // namespace corvane
