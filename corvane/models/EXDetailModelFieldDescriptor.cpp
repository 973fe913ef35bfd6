#include "corvane/models/EXDetailModelFieldDescriptor.h"

#include <utility>

namespace corvane {

EXDetailModelFieldDescriptor::EXDetailModelFieldDescriptor(const Text& type, Text title, Text key)
    : title_(std::move(title)), key_(std::move(key)) {
    setType(type);
}

void EXDetailModelFieldDescriptor::setType(const Text& type) {
    type_ = type.value_or(std::string(EXDetailModelFieldTypeString));
}

}  // namespace corvane
