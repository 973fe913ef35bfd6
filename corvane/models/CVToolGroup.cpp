#include "corvane/models/CVToolGroup.h"

#include <stdexcept>

namespace corvane {

void CVToolGroup::addTool(std::shared_ptr<CVTool> tool) {
    if (!tool) throw std::invalid_argument("a group has no place for a null tool");
    tools_.push_back(std::move(tool));
}

const std::shared_ptr<CVTool>& CVToolGroup::toolAtIndex(std::int64_t index) const {
    // A negative index becomes one beyond every end.
    return tools_.at(static_cast<std::size_t>(index));
}

}  // namespace corvane
