// The states of an overview model.
#pragma once

#include <cstdint>

namespace corvane {

enum EXOverviewModelState : std::int16_t {
    EXOverviewModelStateInitial = 0,  ///< created or reset; holds no data
    EXOverviewModelStateLoading = 1,
    EXOverviewModelStateLoaded = 2,  ///< holds at least one object
    EXOverviewModelStateEmpty = 3,   ///< loaded, and there was nothing
    EXOverviewModelStateError = 4,   ///< the last load failed
};

}  // namespace corvane
