#include "corvane/platform/PropertyListValue.h"

#include "corvane/platform/PropertyListReader.h"
#include "corvane/platform/PropertyListWriter.h"
#include "corvane/platform/TextEncoding.h"

#include <cmath>
#include <limits>
#include <vector>

namespace corvane::platform {

namespace {

using Object = PropertyListObject;
using Ref = PropertyListWriter::Ref;

constexpr std::size_t kWeightOfOne = 16;

/// UTF-16 takes up to twice the bytes; of objects without content, marker, references and offset
/// take less than their weight.
constexpr std::size_t kLargestFile = 2 * kPropertyListWeight + 1024;

/// What is left of the limits.
class Budget {
  public:
    bool take(std::size_t count, std::size_t contentBytes = 0) {
        if (count > left_ / kWeightOfOne) return false;
        left_ -= count * kWeightOfOne;
        if (contentBytes > left_) return false;
        left_ -= contentBytes;
        return true;
    }

  private:
    std::size_t left_ = kPropertyListWeight;
};

/// Bytes of the text as a reader gets it: what is no UTF-8 may grow to U+FFFD for each byte.
std::size_t sizeOfText(std::string_view text) {
    return isUTF8(text) ? text.size() : 3 * text.size();
}

/// Not at the very ends of the range, which the file's reals meet only roughly.
bool canBeRead(Instant instant) {
    return instantFromReferenceSeconds(secondsSinceReferenceDate(instant)).has_value();
}

bool fits(const Value& value, unsigned depth, Budget& budget);

bool fitsMap(const ValueMap& map, unsigned depth, Budget& budget) {
    for (const auto& [key, item] : map.items)
        if (!key.text() || !fits(key, 0, budget) || !fits(item, depth, budget)) return false;
    return true;
}

bool fits(const Value& value, unsigned depth, Budget& budget) {
    switch (value.kind()) {
        case Value::Kind::Boolean:
        case Value::Kind::Integer:
        case Value::Kind::Real:
            return budget.take(1);
        case Value::Kind::Moment:
            return canBeRead(*value.instant()) && budget.take(1);
        case Value::Kind::Text:
            return budget.take(1, sizeOfText(*value.text()));
        case Value::Kind::Data:
            return budget.take(1, value.data()->size());
        case Value::Kind::List:
            if (depth == 0 || !budget.take(1)) return false;
            for (const Value& item : value.list()->items)
                if (!fits(item, depth - 1, budget)) return false;
            return true;
        case Value::Kind::Map:
            return depth > 0 && budget.take(1) && fitsMap(*value.map(), depth - 1, budget);
        default:
            return false;
    }
}

/// REQUIRES: isPropertyListValue for whatever is added.
class Composer {
  public:
    Ref add(const Value& value) {
        switch (value.kind()) {
            case Value::Kind::Boolean:
                return writer_.addBoolean(value.booleanValue());
            case Value::Kind::Integer:
                return value.largeInteger() ? writer_.addUnsigned(*value.largeInteger())
                                            : writer_.addInteger(value.integerValue());
            case Value::Kind::Real:
                return addReal(value.realValue());
            case Value::Kind::Moment:
                return writer_.addDate(secondsSinceReferenceDate(*value.instant()));
            case Value::Kind::Text:
                return writer_.addText(*value.text());
            case Value::Kind::Data:
                return writer_.addData(*value.data());
            case Value::Kind::List:
                return addList(*value.list());
            default:
                return addMap(*value.map());
        }
    }

    Bytes file(Ref top) const {
        BytesSink sink(writer_.fileSize());
        writer_.write(top, sink);
        return sink.take();
    }

  private:
    Ref addReal(double number) {
        const bool inRange = std::abs(number) <= std::numeric_limits<float>::max();
        const auto narrow = inRange ? static_cast<float>(number) : 0;
        return inRange && narrow == number ? writer_.addFloat(narrow) : writer_.addReal(number);
    }

    Ref addList(const ValueList& list) {
        std::vector<Ref> items;
        for (const Value& item : list.items)
            items.push_back(add(item));
        return writer_.addArray(items);
    }

    Ref addMap(const ValueMap& map) {
        std::vector<Ref> keys, items;
        for (const auto& [key, item] : map.items) {
            keys.push_back(add(key));
            items.push_back(add(item));
        }
        return writer_.addDictionary(keys, items);
    }

    PropertyListWriter writer_;
};

class Decoder {
  public:
    explicit Decoder(const PropertyListReader& reader) : reader_(reader) {}

    /// Null, which no file of ours holds, where it cannot be read.
    Value read(std::uint64_t number, unsigned depth) {
        const Object object = reader_.object(number);
        switch (object.kind) {
            case Object::Kind::Boolean:
                return take(0) ? Value(object.integer != 0) : Value();
            case Object::Kind::Integer:
                return take(0) ? Value(object.integer) : Value();
            case Object::Kind::Real:
                return take(0) ? readReal(object) : Value();
            case Object::Kind::Date:
                return take(0) ? Value(instantFromReferenceSeconds(object.real)) : Value();
            case Object::Kind::ASCII:
            case Object::Kind::UTF16:
                return readText(object);
            case Object::Kind::Data:
                return readData(object);
            case Object::Kind::Array:
                return depth > 0 ? readArray(object, depth - 1) : Value();
            case Object::Kind::Dictionary:
                return depth > 0 ? readDictionary(object, depth - 1) : Value();
            default:
                return {};
        }
    }

  private:
    bool take(std::size_t contentBytes) { return budget_.take(1, contentBytes); }

    static Value readReal(const Object& object) {
        if (object.integer == 0) return object.real;
        return static_cast<std::uint64_t>(object.integer);
    }

    Value readText(const Object& object) {
        // Before it is converted, its size is known only roughly.
        if (object.count > kPropertyListWeight) return {};
        const SharedText text = PropertyListReader::text(object);
        return take(text.view().size()) ? Value(text) : Value();
    }

    Value readData(const Object& object) {
        if (!take(object.count)) return {};
        const auto* first = reinterpret_cast<const std::byte*>(object.payload);
        return Bytes(first, first + object.count);
    }

    Value readArray(const Object& array, unsigned depth) {
        ValueList list;
        if (!take(0)) return {};
        for (std::uint64_t i = 0; i < array.count; ++i) {
            list.items.push_back(read(reader_.reference(array, i), depth));
            if (list.items.back().isNull()) return {};
        }
        return list;
    }

    Value readDictionary(const Object& dictionary, unsigned depth) {
        ValueMap map;
        if (!take(0)) return {};
        for (std::uint64_t i = 0; i < dictionary.count; ++i) {
            Value key = read(reader_.reference(dictionary, i), 0);
            Value item = read(reader_.valueReference(dictionary, i), depth);
            if (!key.text() || item.isNull()) return {};
            map.items.insert_or_assign(std::move(key), std::move(item));
        }
        return map;
    }

    const PropertyListReader& reader_;
    Budget budget_;
};

}  // namespace

bool isPropertyListValue(const Value& value) {
    Budget budget;
    return fits(value, kPropertyListDepth, budget);
}

std::optional<Bytes> propertyListFromValue(const Value& value) {
    if (!isPropertyListValue(value)) return std::nullopt;
    Composer composer;
    const Ref top = composer.add(value);
    return composer.file(top);
}

std::optional<Value> valueFromPropertyList(std::span<const std::byte> file) {
    if (file.size() > kLargestFile) return std::nullopt;
    const auto reader = PropertyListReader::open(file);
    if (!reader) return std::nullopt;
    Value value = Decoder(*reader).read(reader->topObject(), kPropertyListDepth);
    return value.isNull() ? std::nullopt : std::optional(std::move(value));
}

}  // namespace corvane::platform
