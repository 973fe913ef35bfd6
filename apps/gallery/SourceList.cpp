#include "apps/gallery/SourceList.h"

#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolGroup.h"
#include "corvane/models/CVToolManager.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/IconLabelCell.h"
#include "apps/gallery/Texts.h"

namespace corvane::gallery {

namespace {

std::shared_ptr<CVTool> toolAt(const CVIndexPath& path) {
    return CVToolManager::groupAtIndex(path.section())->toolAtIndex(path.row());
}

}  // namespace

std::shared_ptr<SourceList> SourceList::make() {
    std::shared_ptr<SourceList> made(new SourceList);
    made->table_->setDataSource(made);
    made->table_->setDelegate(made);
    made->table_->reloadData();
    return made;
}

SourceList::SourceList() : table_(std::make_shared<Table>()) {
    table_->setDebugName("Pages");
    table_->setAccessibilityName(localized("Pages"));
    table_->setBackgroundColor(NamedColors::mainAlternateBackgroundColor());
    table_->setRowSeparatorColor(NamedColors::mainAlternateBackgroundColor());
    table_->setClearSelectionOnBackgroundClick(false);
    tableViewDidSelectRowAtIndexPath = [this](Table&, const Path& path) {
        const auto tool = toolAt(path);
        if (const auto tell = didSelect) tell(*tool);
    };
}

bool SourceList::select(std::string_view identifier) {
    for (std::int64_t group = 0; group < CVToolManager::countGroups(); ++group) {
        const auto& tools = CVToolManager::groupAtIndex(group)->tools();
        for (std::size_t row = 0; row < tools.size(); ++row) {
            if (tools[row]->identifier() != identifier) continue;
            table_->performSelectRowAtIndexPath({group, static_cast<std::int64_t>(row)});
            return true;
        }
    }
    return false;
}

SourceList::CellPtr SourceList::tableViewCellForRowAtIndexPath(Table&, const Path& path,
                                                               const CellPtr&) {
    const auto tool = toolAt(path);
    auto cell = std::make_shared<IconLabelCell>(path);
    cell->show(tool->icon(), tool->label());
    return cell;
}

std::int64_t SourceList::numberOfSectionsInTableView(Table&) {
    return CVToolManager::countGroups();
}

std::optional<std::string> SourceList::tableViewTitleForHeaderInSection(Table&,
                                                                        std::int64_t section) {
    return CVToolManager::groupAtIndex(section)->label();
}

std::int64_t SourceList::tableViewNumberOfRowsInSection(Table&, std::int64_t section) {
    return CVToolManager::groupAtIndex(section)->countTools();
}

}  // namespace corvane::gallery
