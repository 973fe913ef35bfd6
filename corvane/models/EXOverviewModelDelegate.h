// What an overview model tells and asks the controller that shows it.
#pragma once

#include "corvane/models/EXOverviewModelState.h"
#include "corvane/platform/IndexPath.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::views {
class View;
}

namespace corvane {

class EXOverviewModel;

/// Every operation is optional: an empty one is not called. All are called on the thread that
/// drives the model, and may do anything with the model, even reset, reload or drop it; so may
/// they replace themselves. Held by its controller; the model holds it weakly.
struct EXOverviewModelDelegate {
    using IndexPaths = std::vector<platform::IndexPath>;
    using Confirmation = std::function<void()>;  ///< called when the user confirms; may be empty

    /// Of a state that the model did not have already.
    std::function<void(EXOverviewModel& model, EXOverviewModelState state)>
        overviewModelDidTransitionToState;
    std::function<void(EXOverviewModel& model)> didReloadDataForOverviewModel;
    std::function<void(EXOverviewModel& model)> didResetOverviewModel;
    std::function<void(EXOverviewModel& model)> didUpdateTitleForOverviewModel;

    /// After the change. Inserted objects stand at the paths, removed ones stood there.
    std::function<void(EXOverviewModel& model, const IndexPaths& indexPaths, bool userDriven)>
        overviewModelDidInsertObjectsAtIndexPaths;
    std::function<void(EXOverviewModel& model, const IndexPaths& indexPaths, bool userDriven)>
        overviewModelDidRemoveObjectsAtIndexPaths;

    // The actions are the titles of buttons.

    std::function<void(EXOverviewModel& model, const std::string& title, const std::string& message,
                       const std::string& defaultAction)>
        overviewModelShowAlertWithTitle;
    std::function<void(EXOverviewModel& model, const std::string& title, const std::string& message,
                       const std::string& confirmAction, const std::string& cancelAction,
                       const Confirmation& confirmation)>
        overviewModelShowConfirmationWithTitle;

    /// Asked for by a view, such as the button of a row, next to which the question belongs.
    std::function<void(EXOverviewModel& model, const std::string& title, const std::string& message,
                       const std::string& confirmAction, const std::string& cancelAction,
                       const std::shared_ptr<views::View>& sender,
                       const Confirmation& confirmation)>
        overviewModelShowConfirmationWithTitleFromSender;
};

}  // namespace corvane
