#include "corvane/platform/Value.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace corvane::platform {

namespace {

// Every finite double of at least this magnitude lies outside 64 bits.
constexpr double kTwoTo63 = 9223372036854775808.0;
constexpr double kTwoTo64 = 2 * kTwoTo63;

std::strong_ordering compareReals(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(b) <=> std::isnan(a);
    return a < b   ? std::strong_ordering::less
           : a > b ? std::strong_ordering::greater
                   : std::strong_ordering::equal;
}

// Exact also where the integer has no double of its own.
std::strong_ordering compareIntegerToReal(std::int64_t a, double b) {
    if (std::isnan(b)) return std::strong_ordering::greater;
    if (b >= kTwoTo63) return std::strong_ordering::less;
    if (b < -kTwoTo63) return std::strong_ordering::greater;
    auto whole = static_cast<std::int64_t>(b);
    if (a != whole) return a <=> whole;
    return compareReals(0.0, b - static_cast<double>(whole));
}

std::strong_ordering compareIntegerToReal(std::uint64_t a, double b) {
    if (std::isnan(b) || b < kTwoTo63) return std::strong_ordering::greater;
    if (b >= kTwoTo64) return std::strong_ordering::less;
    return a <=> static_cast<std::uint64_t>(b);  // reals of this size are whole
}

std::strong_ordering compareIntegerToReal(const Value& a, double b) {
    return a.largeInteger() ? compareIntegerToReal(*a.largeInteger(), b)
                            : compareIntegerToReal(a.integerValue(), b);
}

std::strong_ordering reversed(std::strong_ordering order) {
    return 0 <=> order;
}

template <class Range, class Compare>
std::strong_ordering compareRanges(const Range& a, const Range& b, Compare compare) {
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(), compare);
}

std::strong_ordering compareEntries(const std::pair<const Value, Value>& a,
                                    const std::pair<const Value, Value>& b) {
    auto order = a.first <=> b.first;
    return order == 0 ? a.second <=> b.second : order;
}

std::strong_ordering compareNumbers(const Value& a, const Value& b) {
    bool realA = a.kind() == Value::Kind::Real;
    bool realB = b.kind() == Value::Kind::Real;
    if (realA && realB) return compareReals(a.realValue(), b.realValue());
    if (realA) return reversed(compareIntegerToReal(b, a.realValue()));
    if (realB) return compareIntegerToReal(a, b.realValue());
    if (!a.largeInteger() || !b.largeInteger()) {
        auto order = a.integerValue() <=> b.integerValue();  // a large one is clamped here
        return order == 0 ? !!a.largeInteger() <=> !!b.largeInteger() : order;
    }
    return *a.largeInteger() <=> *b.largeInteger();
}

std::strong_ordering compareSameKind(const Value& a, const Value& b) {
    switch (a.kind()) {
        case Value::Kind::Text:
            return *a.text() <=> *b.text();
        case Value::Kind::URL:
            return *a.url() <=> *b.url();
        case Value::Kind::Moment:
            return *a.instant() <=> *b.instant();
        case Value::Kind::Day:
            return a.day()->integerValue() <=> b.day()->integerValue();
        case Value::Kind::Time:
            return a.time()->integerValue() <=> b.time()->integerValue();
        case Value::Kind::Data:
            return *a.data() <=> *b.data();
        case Value::Kind::List:
            return compareRanges(a.list()->items, b.list()->items, std::compare_three_way{});
        case Value::Kind::Map:
            return compareRanges(a.map()->items, b.map()->items, compareEntries);
        case Value::Kind::Object:
            return a.object() <=> b.object();
        default:
            return std::strong_ordering::equal;
    }
}

std::size_t mix(std::size_t seed, std::size_t hash) {
    return seed ^ (hash + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2));
}

std::size_t hashNumber(const Value& value) {
    if (std::isnan(value.realValue())) return 0;  // all NaNs are equal, whatever their bits
    // A real that is a whole 64-bit number hashes as that number, since the two are equal.
    if (value == Value(value.integerValue()))
        return std::hash<std::int64_t>{}(value.integerValue());
    return std::hash<double>{}(value.realValue());
}

std::size_t hashBytes(const Bytes& bytes) {
    return std::hash<std::string_view>{}(
        {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::size_t hashContent(const Value& value) {
    switch (value.kind()) {
        case Value::Kind::Text:
            return std::hash<std::string_view>{}(*value.text());
        case Value::Kind::URL:
            return std::hash<URL>{}(*value.url());
        case Value::Kind::Moment:
            return std::hash<std::int64_t>{}(value.instant()->time_since_epoch().count());
        case Value::Kind::Day:
            return std::hash<std::int64_t>{}(value.day()->integerValue());
        case Value::Kind::Time:
            return std::hash<std::int64_t>{}(value.time()->integerValue());
        case Value::Kind::Data:
            return hashBytes(*value.data());
        case Value::Kind::Object:
            return std::hash<std::shared_ptr<Archivable>>{}(value.object());
        default:
            return 0;
    }
}

}  // namespace

bool ValueLess::operator()(const Value& a, const Value& b) const {
    return a < b;
}

bool ValueLess::operator()(const Value& a, std::string_view b) const {
    return a.text() ? *a.text() < b : a.kind() < Value::Kind::Text;
}

bool ValueLess::operator()(std::string_view a, const Value& b) const {
    return b.text() ? a < *b.text() : Value::Kind::Text < b.kind();
}

std::int64_t Value::integerValue() const {
    if (auto* flag = std::get_if<bool>(&box_)) return *flag;
    if (auto* integer = std::get_if<std::int64_t>(&box_)) return *integer;
    if (largeInteger()) return std::numeric_limits<std::int64_t>::max();
    auto* real = std::get_if<double>(&box_);
    if (!real || std::isnan(*real)) return 0;
    if (*real >= kTwoTo63) return std::numeric_limits<std::int64_t>::max();
    if (*real < -kTwoTo63) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(*real);
}

std::uint64_t Value::unsignedValue() const {
    if (largeInteger()) return *largeInteger();
    auto* real = std::get_if<double>(&box_);
    if (!real) return static_cast<std::uint64_t>(integerValue());
    if (*real >= kTwoTo64) return std::numeric_limits<std::uint64_t>::max();
    return *real > 0 ? static_cast<std::uint64_t>(*real) : 0;
}

double Value::realValue() const {
    if (auto* real = std::get_if<double>(&box_)) return *real;
    if (largeInteger()) return static_cast<double>(*largeInteger());
    return static_cast<double>(integerValue());
}

bool Value::booleanValue() const {
    return realValue() != 0;
}

std::shared_ptr<Archivable> Value::object() const {
    auto* object = std::get_if<std::shared_ptr<Archivable>>(&box_);
    return object ? *object : nullptr;
}

const Value* Value::find(std::string_view key) const {
    if (!map()) return nullptr;
    auto entry = map()->items.find(key);
    return entry == map()->items.end() ? nullptr : &entry->second;
}

std::strong_ordering operator<=>(const Value& a, const Value& b) {
    if (a.isNumber() && b.isNumber()) return compareNumbers(a, b);
    if (a.kind() != b.kind()) return a.kind() <=> b.kind();
    return compareSameKind(a, b);
}

std::size_t Value::hash() const {
    if (isNumber()) return hashNumber(*this);
    std::size_t seed = mix(0, static_cast<std::size_t>(kind()));
    if (list()) {
        for (const Value& item : list()->items)
            seed = mix(seed, item.hash());
        return seed;
    }
    if (map()) {
        for (const auto& [key, item] : map()->items)
            seed = mix(mix(seed, key.hash()), item.hash());
        return seed;
    }
    return mix(seed, hashContent(*this));
}

}  // namespace corvane::platform
