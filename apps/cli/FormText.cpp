#include "apps/cli/FormText.h"

#include "corvane/formats/EXXMLScanner.h"

#include "apps/cli/Failure.h"
#include "apps/cli/FieldText.h"
#include "apps/cli/TextOutput.h"
#include "apps/cli/TypedWords.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace corvane::cli {

namespace {

using nlohmann::ordered_json;
using platform::IndexPath;
using Section = EXDetailModelSectionDescriptor;
using Field = EXDetailModelFieldDescriptor;

/// The key without "Raw".
std::string nameOf(const Field& field) {
    std::string name = field.key().value_or("");
    if (name.ends_with("Raw")) name.resize(name.size() - 3);
    return name;
}

std::string isoTextOf(const EXValue& value) {
    if (const auto* instant = value.instant())
        return EXXMLScanner::isoDateFormatter().stringFromDate(*instant);
    if (const auto* day = value.day()) return day->isoString();
    return value.time() ? value.time()->isoString() : "";
}

std::optional<std::string> choiceTitle(const Field& field, const EXValue& value) {
    const auto& choices = field.choiceList();
    const auto path = choices ? choices->indexPathForItemWithValue(value) : std::nullopt;
    return path ? choices->titleForItemAtIndexPath(path) : std::nullopt;
}

/// As people read it; empty for none.
std::string valueText(const Field& field, const EXValue& value) {
    if (value.isNull()) return "";
    if (field.formatter()) return field.formatter()->stringForValue(value).value_or("");
    if (const auto title = choiceTitle(field, value)) return *title;
    if (const auto text = value.text()) return onOneLine(*text);
    if (field.type() == EXDetailModelFieldTypeBool) return value.booleanValue() ? "yes" : "no";
    if (value.isNumber()) return std::to_string(value.integerValue());
    return isoTextOf(value);
}

ordered_json jsonOf(const EXValue& value) {
    switch (value.kind()) {
        case EXValue::Kind::Null:
            return nullptr;
        case EXValue::Kind::Boolean:
            return value.booleanValue();
        case EXValue::Kind::Integer:
            return value.integerValue();
        case EXValue::Kind::Real:
            return value.realValue();
        case EXValue::Kind::Text:
            return std::string(*value.text());
        default:
            return isoTextOf(value);
    }
}

template <class Visit>
void forEachChoice(const Field& field, const Visit& visit) {
    if (!field.choiceList()) return;
    for (const auto& section : field.choiceList()->sections())
        for (std::int64_t i = 0; i < section->itemCount(); ++i)
            visit(*section->itemAtIndex(i));
}

// A field of the form or of its footer, with its value.
struct Entry {
    const Field& field;
    EXValue value;
    bool editable;
};

std::vector<Entry> entriesOf(const TaskDetailModel& form, std::int64_t section) {
    std::vector<Entry> entries;
    for (std::int64_t row = 0; row < form.numberOfFieldsInSection(section); ++row) {
        const IndexPath path{section, row};
        entries.push_back({*form.descriptorForFieldAtIndexPath(path),
                           form.valueForFieldAtIndexPath(path),
                           form.canEditFieldAtIndexPath(path)});
    }
    return entries;
}

std::vector<Entry> footerEntriesOf(const TaskDetailModel& form) {
    std::vector<Entry> entries;
    const auto& footer = *form.footerSectionDescriptor();
    for (std::int64_t i = 0; i < footer.numberOfFields(); ++i)
        entries.push_back(
            {*footer.descriptorForFieldAtIndex(i), form.valueForFooterFieldAtIndex(i), false});
    return entries;
}

/// Calls with the title and the entries of each section, of the footer last.
template <class Visit>
void forEachSection(const TaskDetailModel& form, const Visit& visit) {
    for (std::int64_t section = 0; section < form.numberOfSections(); ++section)
        visit(form.titleForSection(section).value_or(""), entriesOf(form, section));
    visit(form.footerSectionDescriptor()->title().value_or(""), footerEntriesOf(form));
}

std::string lineOf(const Entry& entry) {
    std::string value = valueText(entry.field, entry.value);
    if (value.empty()) value = valueText(entry.field, entry.field.defaultValue());
    const bool stands = !valueText(entry.field, entry.value).empty();
    if (value.empty()) value = entry.field.placeholder().value_or("");
    std::string line =
        fmt::format("  {:<23}  {:<17}  {}", nameOf(entry.field), entry.field.title().value_or(""),
                    stands || value.empty() ? value : "(" + value + ")");
    if (!entry.editable) line += value.empty() ? "[read only]" : "  [read only]";
    line.erase(line.find_last_not_of(' ') + 1);
    std::string choices;
    forEachChoice(entry.field, [&](const EXChoiceListItem& item) {
        choices += (choices.empty() ? "" : ", ") + item.title().value_or("");
    });
    return line + "\n" + (choices.empty() ? "" : fmt::format("{:46}one of {}\n", "", choices));
}

ordered_json jsonOf(const Entry& entry) {
    const Field& field = entry.field;
    ordered_json json = {
        {"field", nameOf(field)},
        {"title", field.title().value_or("")},
        {"type", field.type().substr(std::string_view("EXDetailModelFieldType").size())},
        {"value", jsonOf(entry.value)},
        {"default", jsonOf(field.defaultValue())},
        {"editable", entry.editable}};
    forEachChoice(field, [&](const EXChoiceListItem& item) {
        json["choices"].push_back(
            {{"title", item.title().value_or("")}, {"value", jsonOf(item.value())}});
    });
    return json;
}

}  // namespace

std::string formText(const TaskDetailModel& form) {
    std::string text = form.title().value_or("") + "\n";
    forEachSection(form, [&](const std::string& title, const std::vector<Entry>& entries) {
        text += "\n" + title + "\n";
        for (const Entry& entry : entries)
            text += lineOf(entry);
    });
    return text;
}

std::string formJson(const TaskDetailModel& form) {
    ordered_json json;
    const auto& uri = form.uriRepresentation();
    json["uri"] = uri ? ordered_json(uri->absoluteString()) : ordered_json();
    json["title"] = form.title().value_or("");
    forEachSection(form, [&](const std::string& title, const std::vector<Entry>& entries) {
        auto& section = json["sections"].emplace_back(ordered_json{{"title", title}});
        for (const Entry& entry : entries)
            section["fields"].push_back(jsonOf(entry));
    });
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::optional<IndexPath> fieldNamed(const TaskDetailModel& form, std::string_view name) {
    for (std::int64_t section = 0; section < form.numberOfSections(); ++section) {
        for (std::int64_t row = 0; row < form.numberOfFieldsInSection(section); ++row) {
            const auto field = form.descriptorForFieldAtIndexPath({section, row});
            if (field->key() == name || nameOf(*field) == name) return IndexPath{section, row};
        }
    }
    return std::nullopt;
}

bool isFooterField(const TaskDetailModel& form, std::string_view name) {
    const auto& fields = form.footerSectionDescriptor()->fieldDescriptors();
    return std::any_of(fields.begin(), fields.end(),
                       [&](const auto& field) { return nameOf(*field) == name; });
}

EXValue valueFromText(const TaskDetailModel& form, const IndexPath& path, const std::string& text) {
    if (text.empty()) return {};
    const auto field = form.descriptorForFieldAtIndexPath(path);
    const std::string key = field->key().value_or("");
    if (const auto& formatter = field->formatter()) {
        if (const auto value = formatter->valueFromString(text)) return *value;
        throw Failure(fmt::format("'{}' is no value of {}", text, key));
    }
    EXValue chosen;
    forEachChoice(*field, [&](const EXChoiceListItem& item) {
        if (equalIgnoringCase(item.title().value_or(""), text)) chosen = item.value();
    });
    if (!chosen.isNull()) return chosen;
    const auto task = form.task();
    return task->isName(key) ? EXValue(text) : valueFromText(*task->fieldForKey(key), text);
}

}  // namespace corvane::cli
