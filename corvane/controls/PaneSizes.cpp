#include "corvane/controls/PaneSizes.h"

#include <algorithm>
#include <cstddef>

namespace corvane {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Who takes what the others leave.
std::size_t takerOf(const std::vector<PaneSize>& panes) {
    std::size_t lastShown = kNone;
    for (std::size_t i = panes.size(); i-- > 0;) {
        if (panes[i].collapsed) continue;
        if (panes[i].stretches) return i;
        if (lastShown == kNone) lastShown = i;
    }
    return lastShown;
}

}  // namespace

std::vector<double> paneSizesIn(double room, const std::vector<PaneSize>& panes) {
    std::vector<double> sizes(panes.size(), 0);
    const std::size_t taker = takerOf(panes);
    if (taker == kNone) return sizes;
    room = std::max(0.0, room);
    double minima = 0;
    double others = 0;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        if (panes[i].collapsed) continue;
        minima += panes[i].minimum;
        if (i != taker) others += sizes[i] = std::max(panes[i].minimum, panes[i].wanted);
    }
    if (minima > room) {
        for (std::size_t i = 0; i < panes.size(); ++i)
            sizes[i] = panes[i].collapsed ? 0 : panes[i].minimum * room / minima;
        return sizes;
    }
    double missing = panes[taker].minimum - (room - others);
    for (const bool stretching : {true, false}) {
        for (std::size_t i = panes.size(); i-- > 0 && missing > 0;) {
            if (i == taker || panes[i].collapsed || panes[i].stretches != stretching) continue;
            const double given = std::min(missing, sizes[i] - panes[i].minimum);
            sizes[i] -= given;
            others -= given;
            missing -= given;
        }
    }
    sizes[taker] = room - others;
    return sizes;
}

}  // namespace corvane
