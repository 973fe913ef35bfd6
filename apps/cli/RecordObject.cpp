#include "apps/cli/RecordObject.h"

#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGEntityNames.h"

#include "apps/cli/DocumentChange.h"
#include "apps/cli/DocumentIndex.h"
#include "apps/cli/RecordsByName.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <limits>

namespace corvane::cli {

using backup::Part;
using backup::Record;
using backup::URL;

namespace {

bool isReference(const Part& field) {
    return field.name == HGTaskProjectRawKey || field.name == HGTaskContributorKey ||
           field.name == HGProjectPortfolioKey;
}

bool isPrimary(const backup::Context& context) {
    return context.primary == true;
}

std::vector<backup::Context>* contextsOf(Record* record, const backup::RecordLayout* layout) {
    if (!record) return nullptr;
    if (layout->element == HGBackupElementTask) {
        return &static_cast<backup::Task*>(record)->contexts;
    }
    if (layout->element == HGBackupElementProject) {
        return &static_cast<backup::Project*>(record)->contexts;
    }
    return nullptr;
}

bool isOfType(const EXValue& value, EXXMLType type) {
    switch (type) {
        case EXXMLTypeBool:
            return value.isNumber();
        case EXXMLTypeInt64:
            return value.kind() == EXValue::Kind::Integer && !value.largeInteger();
        case EXXMLTypeEnum:
            return value.kind() == EXValue::Kind::Integer &&
                   value.integerValue() == static_cast<std::int16_t>(value.integerValue());
        case EXXMLTypeDate:
            return value.instant() != nullptr;
        case EXXMLTypeDateOnly:
            return value.day() != nullptr;
        case EXXMLTypeTimeOnly:
            return value.time() != nullptr;
        default:
            return value.text().has_value();
    }
}

}  // namespace

auto RecordObject::located() const -> Located {
    // Making other records moves those of the document, so that no place is kept.
    return own_.first ? own_ : backup::findRecord(document_, uri_);
}

std::string_view RecordObject::kind() const {
    const auto layout = located().second;
    return layout ? layout->element : std::string_view();
}

const Part* RecordObject::fieldForKey(std::string_view key) const {
    const auto layout = located().second;
    if (!layout) return nullptr;
    for (const std::string& name : {std::string(key), std::string(key) + "Raw"})
        for (const Part& part : layout->parts)
            if (part.name == name && !part.isCollection()) return &part;
    return nullptr;
}

bool RecordObject::isCategory(std::string_view key) const {
    const auto [record, layout] = located();
    return key == HGTaskContextCategoryKey && contextsOf(record, layout);
}

bool RecordObject::isName(std::string_view key) const {
    const Part* field = fieldForKey(key);
    return field ? isReference(*field) : isCategory(key);
}

std::optional<std::string> RecordObject::complaintAbout(const EXValue& value,
                                                        std::string_view key) const {
    const Part* field = fieldForKey(key);
    if (!field || (field->name != HGTaskTitleRawKey && field->name != HGProjectNameRawKey)) {
        return std::nullopt;
    }
    const std::string_view text = value.text().value_or("");
    if (text.find_first_not_of(" \t\r\n") != text.npos) return std::nullopt;
    return fmt::format("a {} needs a {}", kind(),
                       field->name == HGTaskTitleRawKey ? "title" : "name");
}

// Reading -----------------------------------------------------------------------------------------

EXValue RecordObject::valueForKey(std::string_view key) const {
    const Part* field = fieldForKey(key);
    if (!field) return isCategory(key) ? categoryName() : EXValue();
    const EXValue value = field->get(*located().first);
    return isReference(*field) ? nameOfRecord(URL(value.text().value_or(""))) : value;
}

EXValue RecordObject::nameOfRecord(const URL& uri) const {
    const auto [record, layout] = backup::findRecord(document_, uri);
    if (!record) return {};
    if (layout->element == HGBackupElementContributor) {
        return nameOf(static_cast<const backup::Contributor&>(*record));
    }
    const bool isGeneral = layout->element == HGBackupElementProject &&
                           static_cast<const backup::Project*>(record)->general == true;
    return isGeneral ? EXValue() : RecordObject(document_, uri).valueForKey(HGProjectNameRawKey);
}

EXValue RecordObject::categoryName() const {
    const auto [record, layout] = located();
    const auto& contexts = *contextsOf(record, layout);
    if (contexts.empty()) return {};
    auto primary = std::find_if(contexts.begin(), contexts.end(), isPrimary);
    return nameOfRecord((primary == contexts.end() ? contexts.begin() : primary)->category);
}

// Writing -----------------------------------------------------------------------------------------

void RecordObject::setValueForKey(const EXValue& value, std::string_view key) {
    const Part* field = fieldForKey(key);
    const bool names = isName(key);
    if (!field && !names) return;
    if (!value.isNull() && !isOfType(value, names ? EXXMLTypeString : field->type)) return;
    located().first->userModified = nowInSeconds();  // first: the field may be this one
    const std::string name(names ? value.text().value_or("") : "");
    if (!field) return setCategory(name);
    setField(*field, names ? referenceTo(*field, name) : value);
    if (field->name != HGTaskStatusRawKey) return;
    if (const Part* changed = fieldForKey(HGTaskStatusChangedKey)) {
        setField(*changed, EXValue(nowInSeconds()));
    }
}

void RecordObject::setField(const Part& field, const EXValue& value) {
    const auto [record, layout] = located();
    const auto index = static_cast<std::size_t>(&field - layout->parts.data());
    const auto* instant = value.instant();
    backup::setField(*record, *layout, index,
                     instant ? EXValue(std::chrono::floor<std::chrono::seconds>(*instant)) : value);
}

EXValue RecordObject::referenceTo(const Part& field, const std::string& name) {
    if (name.empty()) return {};
    RecordsByName records(document_);
    const URL uri = field.name == HGTaskProjectRawKey    ? records.project(name).first.uri
                    : field.name == HGTaskContributorKey ? records.contributor(name).first.uri
                                                         : records.portfolio(name).first.uri;
    return EXValue(uri.absoluteString());
}

/// The one named becomes the primary category in the place of what was; the others stay. So does
/// what else the document says of the membership, where there is one already.
void RecordObject::setCategory(const std::string& name) {
    const auto contexts = [this]() -> std::vector<backup::Context>& {
        const auto [record, layout] = located();
        return *contextsOf(record, layout);
    };
    // Where none is marked, the first one counts.
    if (!contexts().empty() && std::none_of(contexts().begin(), contexts().end(), isPrimary)) {
        contexts().front().primary = true;
    }
    if (name.empty()) {
        std::erase_if(contexts(), isPrimary);
        return;
    }
    const URL uri = RecordsByName(document_).category(name).first.uri;
    std::erase_if(contexts(), [&](const auto& context) {
        return isPrimary(context) && context.category != uri;
    });
    auto& held = contexts();
    auto context = std::find_if(held.begin(), held.end(),
                                [&](const auto& other) { return other.category == uri; });
    if (context == held.end()) {
        context = held.insert(held.begin(), backup::Context());
        context->category = uri;
    }
    context->primary = true;
}

}  // namespace corvane::cli
