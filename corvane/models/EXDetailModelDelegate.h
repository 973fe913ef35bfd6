// What a detail model tells and asks the controller that shows its form.
#pragma once

#include "corvane/platform/IndexPath.h"

#include <functional>
#include <string>

namespace corvane {

class EXDetailModel;

/// Every operation is optional: an empty one is not called. All are called on the thread that
/// drives the model, and may do anything with the model, even reset or drop it; so may they replace
/// themselves. Held by its controller; the model holds it weakly.
struct EXDetailModelDelegate {
    using Confirmation = std::function<void()>;  ///< called when the user confirms; may be empty

    /// The field is to be shown anew.
    std::function<void(EXDetailModel& model, const platform::IndexPath& indexPath)>
        detailModelDidReloadFieldAtIndexPath;

    /// The form has no object any more and should be left.
    std::function<void(EXDetailModel& model)> didInvalidateDetailModel;

    // The actions are the titles of buttons.

    std::function<void(EXDetailModel& model, const std::string& title, const std::string& message,
                       const std::string& defaultAction)>
        detailModelShowAlertWithTitle;
    std::function<void(EXDetailModel& model, const std::string& title, const std::string& message,
                       const std::string& confirmAction, const std::string& cancelAction,
                       const Confirmation& confirmation)>
        detailModelShowConfirmationWithTitle;
};

}  // namespace corvane
