#include "corvane/models/EXDetailModelSectionDescriptor.h"

#include <algorithm>
#include <stdexcept>

namespace corvane {

std::int64_t EXDetailModelSectionDescriptor::numberOfFields() const {
    return static_cast<std::int64_t>(fieldDescriptors_.size());
}

auto EXDetailModelSectionDescriptor::descriptorForFieldAtIndex(std::int64_t index) const
    -> const FieldDescriptor& {
    // A negative index becomes one beyond every end.
    return fieldDescriptors_.at(static_cast<std::size_t>(index));
}

void EXDetailModelSectionDescriptor::addFieldDescriptor(FieldDescriptor descriptor) {
    if (!descriptor) throw std::invalid_argument("a section has no place for a null field");
    fieldDescriptors_.push_back(std::move(descriptor));
}

std::optional<std::int64_t> EXDetailModelSectionDescriptor::indexForFieldDescriptor(
    const EXDetailModelFieldDescriptor* descriptor) const {
    auto found = std::find_if(fieldDescriptors_.begin(), fieldDescriptors_.end(),
                              [&](const auto& held) { return held.get() == descriptor; });
    if (found == fieldDescriptors_.end()) return std::nullopt;
    return found - fieldDescriptors_.begin();
}

}  // namespace corvane
