// How much of a split view each pane gets. Plain arithmetic.
#pragma once

#include <vector>

namespace corvane {

struct PaneSize {
    double minimum = 0;
    double wanted = 0;
    bool stretches = false;
    bool collapsed = false;
};

/// In the order of the panes, with the room as their sum unless all are collapsed; collapsed ones
/// get nothing. See CVMacSplitView for who gives way to whom.
std::vector<double> paneSizesIn(double room, const std::vector<PaneSize>& panes);

}  // namespace corvane
