#include "corvane/toolkit/EXComparator.h"

#include "corvane/platform/CaseFolding.h"

#include <compare>

namespace corvane {

namespace {

int numberOf(std::strong_ordering order) {
    return order < 0 ? -1 : order > 0;
}

template <class T>
int compareOptional(const std::optional<T>& a, const std::optional<T>& b) {
    return numberOf(a <=> b);  // in which none comes first
}

}  // namespace

int EXComparator::compareNumber(const EXValue& number, const EXValue& other) {
    if (!number.isNumber() || !other.isNumber())
        return numberOf(number.isNumber() <=> other.isNumber());
    return numberOf(number <=> other);
}

int EXComparator::compareString(std::optional<std::string_view> string,
                                std::optional<std::string_view> other) {
    return compareOptional(string, other);
}

int EXComparator::caseInsensitiveCompareString(std::optional<std::string_view> string,
                                               std::optional<std::string_view> other) {
    if (!string || !other) return compareOptional(string, other);
    return platform::compareIgnoringCase(*string, *other);
}

int EXComparator::compareURIRepresentation(const std::optional<platform::URL>& uri,
                                           const std::optional<platform::URL>& other) {
    return compareOptional(uri, other);
}

int EXComparator::compareDateOnly(std::optional<EXDateOnly> day, std::optional<EXDateOnly> other) {
    return compareOptional(day, other);
}

}  // namespace corvane
