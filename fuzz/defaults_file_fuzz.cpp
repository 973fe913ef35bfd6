// Whatever the bytes, a settings file gives settings or nothing. What was read can be written,
// reads the same again, and loads as settings of every type.
#include "corvane/platform/PropertyListValue.h"
#include "corvane/preferences/EXPreferenceField.h"

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>

using namespace corvane;

namespace {

template <class Object>
void convert(const EXValue& stored) {
    const auto object = Object::fromUserDefaultsDictionary(stored);
    const auto again = Object::toUserDefaultsDictionary(object);
    if (again != Object::toUserDefaultsDictionary(Object::fromUserDefaultsDictionary(again)))
        std::abort();
}

template <class T>
void unbox(const EXValue& stored) {
    T value{};
    T again{};
    if (detail::unbox(stored, value) && !detail::unbox(detail::boxed(value), again)) std::abort();
}

void load(const EXValue& stored) {
    convert<EXPreferenceRect>(stored);
    convert<EXPreferenceKeyCombo>(stored);
    unbox<bool>(stored);
    unbox<std::uint64_t>(stored);
    unbox<std::int64_t>(stored);
    unbox<std::optional<std::string>>(stored);
    unbox<std::optional<EXPreferenceDictionary>>(stored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto root = platform::valueFromPropertyList(std::as_bytes(std::span(data, size)));
    if (!root) return 0;
    const auto file = platform::propertyListFromValue(*root);
    if (!file || platform::valueFromPropertyList(*file) != root) std::abort();
    load(*root);
    if (!root->map()) return 0;
    for (const auto& [key, value] : root->map()->items)
        load(value);
    return 0;
}
