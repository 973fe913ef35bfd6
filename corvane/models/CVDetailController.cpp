#include "corvane/models/CVDetailController.h"

#include "corvane/models/CVDetail.h"

#include <utility>

namespace corvane {

void CVDetailController::didInvokeCancelAction() {
    closeDetail();
}

void CVDetailController::didInvokeOkAction() {
    closeDetail();
}

void CVDetailController::setDetail(std::shared_ptr<CVDetail> detail) {
    detail_ = std::move(detail);
}

void CVDetailController::closeDetail() {
    // A closing form may let go of its controller, which owns it: it must outlast the call.
    if (const auto detail = detail_) detail->close();
}

}  // namespace corvane
