// One box for whatever kind of value a record field, an archive root or a choice may hold.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/platform/Archivable.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/SharedText.h"
#include "corvane/platform/URL.h"

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>
#include <vector>

namespace corvane::platform {

class Value;

/// Lets maps keyed by Value be searched with plain text.
struct ValueLess {
    using is_transparent = void;
    bool operator()(const Value& a, const Value& b) const;
    bool operator()(const Value& a, std::string_view b) const;
    bool operator()(std::string_view a, const Value& b) const;
};

/// An ordered list or a keyed map inside a Value. `growable` only chooses the class name an archive
/// gives it; it is not part of equality.
struct ValueList {
    std::vector<Value> items;
    bool growable = false;
};
struct ValueMap {
    std::map<Value, Value, ValueLess> items;
    bool growable = false;
};

/// A regular value. Lists, maps, texts and bytes are immutable and shared between copies; records
/// are shared by reference and equal only to themselves. Booleans, integers and reals compare and
/// hash as the numbers they are, so 3 equals 3.0 and true equals 1. A value that was moved from may
/// only be assigned to or destroyed.
class Value {
  public:
    enum class Kind {
        Null,
        Boolean,
        Integer,
        Real,
        Text,
        URL,
        Moment,
        Day,
        Time,
        Data,
        List,
        Map,
        Object
    };

    Value() = default;
    Value(std::nullptr_t) {}
    template <std::same_as<bool> T>  // keeps pointers from converting to a flag
    Value(T flag) : box_(flag) {}
    template <std::integral T>
    requires(!std::same_as<T, bool>) Value(T number) : box_(static_cast<std::int64_t>(number)) {
        if constexpr (std::unsigned_integral<T> && sizeof(T) == sizeof(std::uint64_t)) {
            if (number > std::uint64_t{INT64_MAX}) box_ = std::uint64_t{number};
        }
    }
    Value(double number) : box_(number) {}
    Value(const char* text) : Value(std::string_view(text)) {}
    Value(std::string_view text) : box_(SharedText(text)) {}
    Value(const std::string& text) : Value(std::string_view(text)) {}
    Value(SharedText text) {
        if (!text.isAbsent()) box_ = std::move(text);
    }
    Value(platform::URL url) : box_(std::move(url)) {}
    Value(platform::Instant instant) : box_(instant) {}
    Value(EXDateOnly day) : box_(day) {}
    Value(EXTimeOnly time) : box_(time) {}
    Value(Bytes data) : box_(std::make_shared<const Bytes>(std::move(data))) {}
    Value(ValueList list) : box_(std::make_shared<const ValueList>(std::move(list))) {}
    Value(ValueMap map) : box_(std::make_shared<const ValueMap>(std::move(map))) {}
    template <std::derived_from<Archivable> T>
    Value(std::shared_ptr<T> object) {
        if (object) box_ = std::shared_ptr<Archivable>(std::move(object));
    }
    template <class T>
    Value(std::optional<T> value) : Value(value ? Value(std::move(*value)) : Value()) {}

    Kind kind() const { return largeInteger() ? Kind::Integer : static_cast<Kind>(box_.index()); }
    bool isNull() const { return box_.index() == 0; }
    bool isNumber() const { return kind() >= Kind::Boolean && kind() <= Kind::Real; }

    /// Numeric readings of a number: a real is truncated towards zero and clamped to 64 bits, NaN
    /// is 0, a flag is 0 or 1. Anything that is not a number reads as 0 or false. An integer above
    /// INT64_MAX is clamped where it is read as signed; one below 0 that is read as unsigned keeps
    /// its 64 bits, since that is how some programs store large unsigned ones.
    std::int64_t integerValue() const;
    std::uint64_t unsignedValue() const;
    double realValue() const;
    bool booleanValue() const;

    /// The text; none where the box holds another kind. Lives as long as any copy of the value.
    std::optional<std::string_view> text() const {
        auto* text = sharedText();
        return text ? text->get() : std::nullopt;
    }

    /// The content, or null where the box holds another kind.
    const SharedText* sharedText() const { return std::get_if<SharedText>(&box_); }
    const std::uint64_t* largeInteger() const {  ///< an integer above INT64_MAX
        return std::get_if<std::uint64_t>(&box_);
    }
    const platform::URL* url() const { return std::get_if<platform::URL>(&box_); }
    const platform::Instant* instant() const { return std::get_if<platform::Instant>(&box_); }
    const EXDateOnly* day() const { return std::get_if<EXDateOnly>(&box_); }
    const EXTimeOnly* time() const { return std::get_if<EXTimeOnly>(&box_); }
    const Bytes* data() const { return content<Bytes>(); }
    const ValueList* list() const { return content<ValueList>(); }
    const ValueMap* map() const { return content<ValueMap>(); }
    std::shared_ptr<Archivable> object() const;

    /// Says that the record, if there is one, will be looked at, copied or released soon.
    void prefetchRecord() const {
        auto* object = std::get_if<std::shared_ptr<Archivable>>(&box_);
        if (!object) return;
        // Its count lies in front of it, where it was made with its count.
        const auto* record = reinterpret_cast<const char*>(object->get());
        platform::prefetch(record - 2 * sizeof(void*));
        platform::prefetch(record);
    }

    /// Says that the record, URL or text, if there is one, will be looked at soon.
    void prefetchContent() const {
        if (auto* url = std::get_if<URL>(&box_)) {
            platform::prefetch(url->sharedText().identity());
        } else if (auto* text = std::get_if<SharedText>(&box_)) {
            platform::prefetch(text->identity());
        } else {
            prefetchRecord();
        }
    }

    /// The record as a T, or null where the box holds anything else.
    template <class T>
    std::shared_ptr<T> objectAs() const {
        auto* object = std::get_if<std::shared_ptr<Archivable>>(&box_);
        if (!object) return nullptr;
        if constexpr (std::is_final_v<T>) {  // a comparison instead of a search through bases
            const Archivable& held = **object;
            return typeid(held) == typeid(T) ? std::static_pointer_cast<T>(*object) : nullptr;
        } else {
            return std::dynamic_pointer_cast<T>(*object);
        }
    }

    /// The map's entry under a text key; null where this is no map or has no such key.
    const Value* find(std::string_view key) const;

    std::size_t hash() const;

    /// Total order: numbers by amount (NaN first), then other kinds by kind and content.
    friend std::strong_ordering operator<=>(const Value& a, const Value& b);
    friend bool operator==(const Value& a, const Value& b) { return (a <=> b) == 0; }

  private:
    template <class T>
    const T* content() const {
        auto* shared = std::get_if<std::shared_ptr<const T>>(&box_);
        return shared ? shared->get() : nullptr;
    }

    // In the order of Kind; the last is an Integer too, always above INT64_MAX.
    std::variant<std::monostate, bool, std::int64_t, double, SharedText, platform::URL,
                 platform::Instant, EXDateOnly, EXTimeOnly, std::shared_ptr<const Bytes>,
                 std::shared_ptr<const ValueList>, std::shared_ptr<const ValueMap>,
                 std::shared_ptr<Archivable>, std::uint64_t>
        box_;
};

}  // namespace corvane::platform

template <>
struct std::hash<corvane::platform::Value> {
    std::size_t operator()(const corvane::platform::Value& value) const noexcept {
        return value.hash();
    }
};
