#include "corvane/table/PlaceholderLife.h"

#include "corvane/platform/RunLoop.h"

#include <utility>

namespace corvane {

PlaceholderLife::PlaceholderLife(std::function<void(const CellPtr&)> giveUp)
    : giveUp_(std::make_shared<const GiveUp>(std::move(giveUp))) {}

void PlaceholderLife::forget(const CellPtr& cell) {
    if (cell_ == cell) cell_ = nullptr;
}

void PlaceholderLife::scheduleCancellation(const CellPtr& cell) {
    auto& loop = platform::mainRunLoop();
    if (cell_ && cell_ != cell) loop.cancelCalls(cell_.get());
    cell_ = cell;
    // The call keeps the cell, so that no other one comes by its address, which is the owner.
    loop.callAfterDelay(0, cell.get(), [cell, weak = std::weak_ptr<const GiveUp>(giveUp_)] {
        if (const auto giveUp = weak.lock()) (*giveUp)(cell);
    });
}

void PlaceholderLife::committed(const CellPtr& cell) {
    platform::mainRunLoop().cancelCalls(cell.get());
    forget(cell);
}

}  // namespace corvane
