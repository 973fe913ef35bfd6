// A section of a form: a title and the fields below it, in order. A record of identity, held by
// shared pointers; one thread, that of the model.
#pragma once

#include "corvane/models/EXDetailModelFieldDescriptor.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

class EXDetailModelSectionDescriptor {
  public:
    using FieldDescriptor = std::shared_ptr<EXDetailModelFieldDescriptor>;

    EXDetailModelSectionDescriptor() = default;
    EXDetailModelSectionDescriptor(const EXDetailModelSectionDescriptor&) = delete;
    EXDetailModelSectionDescriptor& operator=(const EXDetailModelSectionDescriptor&) = delete;

    const std::optional<std::string>& title() const { return title_; }
    void setTitle(std::optional<std::string> title) { title_ = std::move(title); }

    const std::vector<FieldDescriptor>& fieldDescriptors() const { return fieldDescriptors_; }

    std::int64_t numberOfFields() const;

    /// Throws std::out_of_range where there is no such field.
    const FieldDescriptor& descriptorForFieldAtIndex(std::int64_t index) const;

    /// Puts it last. Adding null throws std::invalid_argument.
    void addFieldDescriptor(FieldDescriptor descriptor);

    /// The place of this very descriptor, not of one like it.
    std::optional<std::int64_t> indexForFieldDescriptor(
        const EXDetailModelFieldDescriptor* descriptor) const;

  private:
    std::optional<std::string> title_;
    std::vector<FieldDescriptor> fieldDescriptors_;
};

}  // namespace corvane
