#include "apps/cli/PreferenceText.h"

#include "corvane/platform/PropertyListValue.h"
#include "corvane/platform/TextEncoding.h"
#include "corvane/platform/UserDefaults.h"

#include "apps/cli/ArchiveJson.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace corvane::cli {

namespace {

using nlohmann::ordered_json;

// From JSON ---------------------------------------------------------------------------------------

EXValue valueFromJson(const ordered_json& json, unsigned depth);

EXValue listFromJson(const ordered_json& json, unsigned depth) {
    platform::ValueList list;
    for (const auto& item : json) {
        list.items.push_back(valueFromJson(item, depth));
        if (list.items.back().isNull()) return {};
    }
    return list;
}

EXValue mapFromJson(const ordered_json& json, unsigned depth) {
    platform::ValueMap map;
    for (const auto& [key, item] : json.items()) {
        EXValue value = valueFromJson(item, depth);
        if (value.isNull()) return {};
        map.items.insert_or_assign(key, std::move(value));
    }
    return map;
}

/// Null where a part of it is null, for which settings have no place, or lies too deep.
EXValue valueFromJson(const ordered_json& json, unsigned depth) {
    switch (json.type()) {
        case ordered_json::value_t::boolean:
            return json.get<bool>();
        case ordered_json::value_t::number_integer:
            return json.get<std::int64_t>();
        case ordered_json::value_t::number_unsigned:
            return json.get<std::uint64_t>();
        case ordered_json::value_t::number_float:
            return json.get<double>();
        case ordered_json::value_t::string:
            return json.get_ref<const std::string&>();
        case ordered_json::value_t::array:
            return depth > 0 ? listFromJson(json, depth - 1) : EXValue();
        case ordered_json::value_t::object:
            return depth > 0 ? mapFromJson(json, depth - 1) : EXValue();
        default:
            return {};
    }
}

std::optional<EXPreferenceValue> dictionaryFromText(const std::string& text) {
    const auto json = ordered_json::parse(text, nullptr, false);
    if (!json.is_object()) return std::nullopt;
    const EXValue value = valueFromJson(json, platform::kPropertyListDepth);
    if (value.isNull() || !platform::UserDefaults::canStore(value)) return std::nullopt;
    return value;
}

// From other text ---------------------------------------------------------------------------------

template <class Number>
bool parse(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    return failure == std::errc() && stop == end;
}

template <class Number>
std::optional<EXPreferenceValue> numberFromText(std::string_view text) {
    Number number{};
    return parse(text, number) ? std::optional<EXPreferenceValue>(number) : std::nullopt;
}

/// Whether the text is exactly these numbers, with commas between them.
template <class... Numbers>
bool parseNumbers(std::string_view text, Numbers&... numbers) {
    std::size_t left = sizeof...(numbers);
    const auto parseNext = [&](auto& number) {
        const auto comma = --left > 0 ? text.find(',') : text.size();
        if (comma == text.npos || !parse(text.substr(0, comma), number)) return false;
        text.remove_prefix(std::min(comma + 1, text.size()));
        return true;
    };
    return (parseNext(numbers) && ...);
}

std::optional<EXPreferenceValue> rectFromText(std::string_view text) {
    std::array<float, 4> r{};
    if (!parseNumbers(text, r[0], r[1], r[2], r[3])) return std::nullopt;
    for (float number : r)
        if (!std::isfinite(number)) return std::nullopt;
    return EXPreferenceRect(r[0], r[1], r[2], r[3]);
}

std::optional<EXPreferenceValue> keyComboFromText(std::string_view text) {
    std::int64_t code = 0;
    std::uint64_t modifiers = 0;
    if (!parseNumbers(text, code, modifiers)) return std::nullopt;
    return EXPreferenceKeyCombo(code, modifiers);
}

// To JSON -----------------------------------------------------------------------------------------

ordered_json jsonOf(const EXPreferenceValue& value) {
    if (const auto* rect = std::get_if<EXPreferenceRect>(&value)) {
        return {{EXPreferenceRectXKey, rect->x()},
                {EXPreferenceRectYKey, rect->y()},
                {EXPreferenceRectWidthKey, rect->width()},
                {EXPreferenceRectHeightKey, rect->height()}};
    }
    if (const auto* combo = std::get_if<EXPreferenceKeyCombo>(&value)) {
        return {{EXPreferenceKeyComboCodeKey, combo->code()},
                {EXPreferenceKeyComboModifiersKey, combo->modifiers()}};
    }
    // Whatever a dictionary holds, in the form in which archives are shown.
    const auto text =
        archiveJson(std::get<EXValue>(value), std::numeric_limits<std::size_t>::max() / 1024);
    return text ? ordered_json::parse(*text, nullptr, false) : ordered_json();
}

}  // namespace

std::string preferenceText(const EXPreferenceValue& value) {
    if (isNone(value)) return "";
    if (const auto* rect = std::get_if<EXPreferenceRect>(&value)) {
        return fmt::format("{},{},{},{}", static_cast<float>(rect->x()),
                           static_cast<float>(rect->y()), static_cast<float>(rect->width()),
                           static_cast<float>(rect->height()));
    }
    if (const auto* combo = std::get_if<EXPreferenceKeyCombo>(&value))
        return fmt::format("{},{}", combo->code(), combo->modifiers());
    if (const auto text = std::get<EXValue>(value).text()) return onOneLine(*text);
    return jsonOf(value).dump();
}

std::optional<EXPreferenceValue> preferenceFromText(const std::string& text,
                                                    EXPreferenceType type) {
    if (!platform::isUTF8(text)) return std::nullopt;
    switch (type) {
        case EXPreferenceTypeBool:
            if (text != "true" && text != "false") return std::nullopt;
            return EXValue(text == "true");
        case EXPreferenceTypeUInt:
            return numberFromText<std::uint64_t>(text);
        case EXPreferenceTypeInt:
            return numberFromText<std::int64_t>(text);
        case EXPreferenceTypeString:
            return EXValue(text);
        case EXPreferenceTypeDictionary:
            return dictionaryFromText(text);
        case EXPreferenceTypeRect:
            return rectFromText(text);
        case EXPreferenceTypeKeyCombo:
            return keyComboFromText(text);
    }
    return std::nullopt;
}

std::string preferenceSyntax(EXPreferenceType type) {
    switch (type) {
        case EXPreferenceTypeBool:
            return "true or false";
        case EXPreferenceTypeUInt:
            return "a whole number from 0 on";
        case EXPreferenceTypeInt:
            return "a whole number";
        case EXPreferenceTypeString:
            return "a text in UTF-8";
        case EXPreferenceTypeDictionary:
            return "a JSON object without nulls";
        case EXPreferenceTypeRect:
            return "four numbers: X,Y,WIDTH,HEIGHT";
        case EXPreferenceTypeKeyCombo:
            return "two whole numbers: CODE,MODIFIERS";
    }
    return "";
}

std::string preferencesJson(const EXPreferences& preferences,
                            const EXPreferences::Descriptors& descriptors) {
    ordered_json json = ordered_json::object();
    for (const auto& descriptor : descriptors)
        json[descriptor->key()] = jsonOf(preferences.valueForKey(descriptor->key()));
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace corvane::cli
