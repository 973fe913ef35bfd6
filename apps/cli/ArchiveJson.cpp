#include "apps/cli/ArchiveJson.h"

#include "corvane/platform/ArchivedRecord.h"

#include "apps/cli/JsonOutput.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

namespace corvane::cli {

namespace {

using nlohmann::ordered_json;
using platform::ArchivedRecord;
using platform::Value;
using Kind = Value::Kind;

// Shorter texts are repeated where they are met, which reads better than a reference.
constexpr std::size_t kLongText = 256;

constexpr std::size_t kBudgetPerByte = 64;
constexpr std::size_t kBudgetBase = 16 << 20;
constexpr std::size_t kCostOfNode = 8;
constexpr std::size_t kCostOfLevel = 4;  // the indentation of an object's lines

/// What tells an object of the archive from its equals; null for values that are simply repeated.
const void* identityOf(const Value& value) {
    switch (value.kind()) {
        case Kind::Text:
            return value.text()->size() > kLongText ? value.text()->data() : nullptr;
        case Kind::URL: {
            const std::string_view text = value.url()->absoluteString();
            return text.size() > kLongText ? text.data() : nullptr;
        }
        case Kind::Data:
            return value.data()->empty() ? nullptr : value.data();
        case Kind::List:
            return value.list()->items.empty() ? nullptr : value.list();
        case Kind::Map:
            return value.map()->items.empty() ? nullptr : value.map();
        case Kind::Object:
            return value.object().get();
        default:
            return nullptr;
    }
}

std::string base64(const platform::Bytes& bytes) {
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group = group << 8 |
                    (i + j < bytes.size() ? std::to_integer<std::uint32_t>(bytes[i + j]) : 0);
        for (std::size_t j = 0; j < 4; ++j)
            text += i + j <= bytes.size() ? kDigits[group >> (18 - 6 * j) & 63] : '=';
    }
    return text;
}

ordered_json realJson(double number) {
    if (std::isfinite(number)) return number;
    return {{"$real", std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf"}};
}

/// Whether the keys of a map can be those of a JSON object, next to the ones that begin with "$".
bool arePlainKeys(const platform::ValueMap& map) {
    for (const auto& [key, value] : map.items)
        if (!key.text() || key.text()->size() > kLongText || key.text()->starts_with('$'))
            return false;
    return true;
}

bool arePlainKeys(const std::vector<ArchivedRecord::Field>& fields) {
    std::set<std::string_view> seen;
    for (const auto& field : fields) {
        const std::string_view key = field.key.view();
        if (key.starts_with('$') || !seen.insert(key).second) return false;
    }
    return true;
}

/// Appends without a search for the key, which would make large objects slow.
void addMember(ordered_json& object, std::string key, ordered_json value) {
    using Members = ordered_json::object_t::Container;
    static_cast<Members&>(object.get_ref<ordered_json::object_t&>())
        .emplace_back(std::move(key), std::move(value));
}

class Writer {
  public:
    explicit Writer(std::size_t budget) : budget_(budget) {}

    std::optional<ordered_json> write(const Value& root) {
        count(root);
        ordered_json json = jsonOf(root);
        if (exhausted_) return std::nullopt;
        return json;
    }

  private:
    /// Visits everything once, and notes what is met a second time.
    void count(const Value& value) {
        if (const void* identity = identityOf(value); identity && !met_.insert(identity).second) {
            numbers_.try_emplace(identity, 0);
            return;
        }
        forEachPart(value, [this](const Value& part) { count(part); });
    }

    static void forEachPart(const Value& value, const auto& visit) {
        if (value.list()) {
            for (const Value& item : value.list()->items)
                visit(item);
        } else if (value.map()) {
            for (const auto& [key, item] : value.map()->items) {
                visit(key);
                visit(item);
            }
        } else if (auto record = value.objectAs<ArchivedRecord>()) {
            for (const auto& field : record->fields())
                visit(field.value);
        }
    }

    ordered_json jsonOf(const Value& value) {
        if (!charge(depth_ * kCostOfLevel)) return nullptr;
        ++depth_;
        ordered_json json = referenceOrJson(value);
        --depth_;
        return json;
    }

    ordered_json referenceOrJson(const Value& value) {
        auto numbered = numbers_.find(identityOf(value));
        if (numbered == numbers_.end()) return plainJson(value);
        std::size_t& number = numbered->second;
        if (number != 0) return {{"$ref", number}};
        number = ++lastNumber_;
        return numberedJson(value, number);
    }

    /// The first of several that are one: what refers to it needs the number.
    ordered_json numberedJson(const Value& value, std::size_t number) {
        ordered_json json{{"$id", number}};
        ordered_json plain = plainJson(value);
        if (!plain.is_object()) {
            addMember(json, value.kind() == Kind::List ? "$list" : "$text", std::move(plain));
            return json;
        }
        for (auto& [key, member] : plain.get_ref<ordered_json::object_t&>())
            addMember(json, key, std::move(member));
        return json;
    }

    ordered_json plainJson(const Value& value) {
        switch (value.kind()) {
            case Kind::Null:
                return nullptr;
            case Kind::Boolean:
                return value.booleanValue();
            case Kind::Integer:
                if (value.largeInteger()) return *value.largeInteger();
                return value.integerValue();
            case Kind::Real:
                return realJson(value.realValue());
            case Kind::Text:
                return text(*value.text());
            case Kind::URL:
                return {{"$url", text(value.url()->absoluteString())}};
            case Kind::Moment:
                return {{"$date", isoText(*value.instant())}};
            case Kind::Day:
                return {{"$class", EXDateOnly::kArchiveClassName},
                        {EXDateOnly::kEncodedValueKey, value.day()->integerValue()},
                        {"$day", value.day()->isoString()}};
            case Kind::Time:
                return value.time()->integerValue();
            case Kind::Data:
                return charge(value.data()->size()) ? ordered_json{{"$data", base64(*value.data())}}
                                                    : ordered_json();
            case Kind::List:
                return listJson(*value.list());
            case Kind::Map:
                return mapJson(*value.map());
            case Kind::Object:
                return recordJson(*value.objectAs<ArchivedRecord>());
        }
        return nullptr;
    }

    ordered_json listJson(const platform::ValueList& list) {
        ordered_json json = ordered_json::array();
        for (const Value& item : list.items)
            json.push_back(jsonOf(item));
        return json;
    }

    ordered_json mapJson(const platform::ValueMap& map) {
        if (!arePlainKeys(map)) {
            ordered_json pairs = ordered_json::array();
            for (const auto& [key, item] : map.items)
                pairs.push_back(ordered_json::array({jsonOf(key), jsonOf(item)}));
            return ordered_json{{"$map", std::move(pairs)}};
        }
        ordered_json json = ordered_json::object();
        for (const auto& [key, item] : map.items)
            addMember(json, text(*key.text()), jsonOf(item));
        return json;
    }

    ordered_json recordJson(const ArchivedRecord& record) {
        ordered_json json{{"$class", text(record.archiveClassName())}};
        const bool plain = arePlainKeys(record.fields());
        ordered_json pairs = ordered_json::array();
        for (const auto& field : record.fields()) {
            std::string key = text(field.key.view());
            ordered_json item = jsonOf(field.value);
            if (plain) {
                addMember(json, std::move(key), std::move(item));
            } else {
                pairs.push_back(ordered_json::array({std::move(key), std::move(item)}));
            }
        }
        if (!plain) json["$fields"] = std::move(pairs);
        return json;
    }

    /// The text, or nothing when there has been too much already.
    std::string text(std::string_view content) {
        return std::string(charge(content.size()) ? content : std::string_view());
    }

    bool charge(std::size_t size) {
        size += kCostOfNode;
        exhausted_ = exhausted_ || size > budget_;
        if (!exhausted_) budget_ -= size;
        return !exhausted_;
    }

    std::size_t budget_;
    bool exhausted_ = false;
    std::size_t depth_ = 0;
    std::set<const void*> met_;
    std::unordered_map<const void*, std::size_t> numbers_;  ///< of what is met again; 0 at first
    std::size_t lastNumber_ = 0;
};

}  // namespace

std::optional<std::string> archiveJson(const Value& root, std::size_t archiveSize) {
    auto json = Writer(kBudgetBase + kBudgetPerByte * archiveSize).write(root);
    if (!json) return std::nullopt;
    return json->dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace corvane::cli
