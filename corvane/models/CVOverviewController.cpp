#include "corvane/models/CVOverviewController.h"

#include "corvane/models/CVOverview.h"

#include <utility>

namespace corvane {

double CVOverviewController::heightForHeaderInNavigationSection(std::int64_t) const {
    return overview_ ? overview_->navigationSectionHeaderHeight() : 0;
}

double CVOverviewController::heightForHeaderInOverviewSection(std::int64_t) const {
    return overview_ ? overview_->overviewSectionHeaderHeight() : 0;
}

void CVOverviewController::overviewDidExitSearch() {
    // The view must outlast the call, whatever it does with its controller.
    if (const auto overview = overview_) overview->hideOverviewSearchBar();
}

void CVOverviewController::setOverview(std::shared_ptr<CVOverview> overview) {
    overview_ = std::move(overview);
}

}  // namespace corvane
