// Calls of operations that a protocol leaves open.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// Calls an operation through a copy, so that it may replace itself meanwhile.
/// REQUIRES: it is not empty.
template <class Result, class... Parameters, class... Arguments>
Result callOperation(const std::function<Result(Parameters...)>& operation,
                     Arguments&&... arguments) {
    const std::function<Result(Parameters...)> copy = operation;
    return copy(std::forward<Arguments>(arguments)...);
}

/// Calls a notice of the object, where there is an object and it wants the notice.
template <class Object, class... Parameters, class... Arguments>
void notify(const std::shared_ptr<Object>& object,
            std::function<void(Parameters...)> Object::*notice, Arguments&&... arguments) {
    if (object && (*object).*notice)
        callOperation((*object).*notice, std::forward<Arguments>(arguments)...);
}

/// What the object answers, or the fallback where there is none or it does not answer.
template <class Object, class Result, class... Parameters, class... Arguments>
Result ask(const std::shared_ptr<Object>& object,
           std::function<Result(Parameters...)> Object::*question, Result fallback,
           Arguments&&... arguments) {
    if (!object || !((*object).*question)) return fallback;
    return callOperation((*object).*question, std::forward<Arguments>(arguments)...);
}

}  // namespace corvane
