// The row in which something new is typed: which one it is, and when it is given up.
#pragma once

#include "corvane/table/RowCache.h"

#include <functional>
#include <memory>

namespace corvane {

/// A placeholder that loses the focus is given up in the next turn of the main run loop, so that a
/// commit of the same turn can save it. Main thread.
class PlaceholderLife {
  public:
    using CellPtr = RowCache::CellPtr;

    /// Is called with the cell that is given up; not after this object has gone.
    explicit PlaceholderLife(std::function<void(const CellPtr&)> giveUp);

    const CellPtr& cell() const { return cell_; }  ///< null for none
    void remember(const CellPtr& cell) { cell_ = cell; }
    void forget(const CellPtr& cell);

    /// Each call stands for itself: a second one for the same cell finds it gone.
    void scheduleCancellation(const CellPtr& cell);
    void committed(const CellPtr& cell);

  private:
    using GiveUp = std::function<void(const CellPtr&)>;
    std::shared_ptr<const GiveUp> giveUp_;
    CellPtr cell_;
};

}  // namespace corvane
