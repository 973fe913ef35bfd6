#include "apps/cli/FieldChange.h"

#include "corvane/dates/EXTimeOnlyCommandParser.h"
#include "corvane/formats/EXXMLScanner.h"
#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGEntityNames.h"

#include "apps/cli/Conversion.h"
#include "apps/cli/DocumentChange.h"
#include "apps/cli/Failure.h"
#include "apps/cli/RecordsByName.h"
#include "apps/cli/TypedDay.h"
#include "apps/document/BackupLayout.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <map>

namespace corvane::cli {

namespace {

using backup::Part;
using backup::Record;
using backup::RecordLayout;

std::string lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

Failure notAValue(const Part& field, const std::string& value, std::string_view wanted) {
    return Failure(fmt::format("'{}' is no value of {}: it is {}", value, field.name, wanted));
}

/// Codes go by the names that the document has for them, in any letter case.
EXValue codeNamed(const Part& field, const std::string& value) {
    // Beyond the longest mapping.
    constexpr std::int64_t kEnd = 64;
    std::vector<std::string> names;
    for (std::int64_t code = 0; code < kEnd; ++code) {
        const auto name = field.mapping().objectForKey(code);
        if (!name) continue;
        if (lowered(*name) == lowered(value)) return EXValue(code);
        names.push_back(*name);
    }
    throw notAValue(field, value, fmt::format("one of {}", fmt::join(names, ", ")));
}

EXValue flagNamed(const Part& field, const std::string& value) {
    static const std::map<std::string, bool> kWords{{"true", true},   {"yes", true}, {"1", true},
                                                    {"false", false}, {"no", false}, {"0", false}};
    auto word = kWords.find(lowered(value));
    if (word == kWords.end()) throw notAValue(field, value, "true or false");
    return EXValue(word->second);
}

EXValue numberIn(const Part& field, const std::string& value) {
    std::int64_t number = 0;
    const char* end = value.data() + value.size();
    const auto [stop, problem] = std::from_chars(value.data(), end, number);
    if (problem != std::errc() || stop != end) throw notAValue(field, value, "a whole number");
    return EXValue(number);
}

EXValue momentIn(const Part& field, const std::string& value) {
    const auto moment = EXXMLScanner::isoDateFormatter().dateFromString(value);
    if (!moment) throw notAValue(field, value, "a moment such as 2024-03-05T08:30:00Z");
    return EXValue(*moment);
}

EXValue valueFrom(const Part& field, const std::string& value) {
    if (value.empty()) return {};
    switch (field.type) {
        case EXXMLTypeBool:
            return flagNamed(field, value);
        case EXXMLTypeInt64:
            return numberIn(field, value);
        case EXXMLTypeDate:
            return momentIn(field, value);
        case EXXMLTypeDateOnly:
            if (const auto day = typedDay(value)) return EXValue(*day);
            throw notAValue(field, value, "a day such as 2024-03-05 or a weekday");
        case EXXMLTypeTimeOnly:
            if (const auto time = EXTimeOnlyCommandParser::timeOnlyFromString(value)) {
                return EXValue(*time);
            }
            throw notAValue(field, value, "a time of day such as 8:30");
        case EXXMLTypeEnum:
            return codeNamed(field, value);
        default:
            return EXValue(value);
    }
}

/// A record and the fields that it has.
class Target {
  public:
    Target(BackupDocument& document, const backup::URL& uri) : document_(document), uri_(uri) {
        find();
        if (!record_) {
            throw Failure(fmt::format("there is no record '{}'", uri.absoluteString()));
        }
    }

    void set(const std::string& field, const std::string& value) {
        if (field == HGTaskContextCategoryKey && hasContexts()) {
            setCategory(value);
        } else {
            const std::size_t part = partNamed(field);
            EXValue meant = isReference(part) ? referenceTo(part, value)
                                              : valueFrom(layout_->parts[part], value);
            requireNamed(part, value);
            backup::setField(*record_, *layout_, part, meant);
            if (layout_->parts[part].name == HGTaskStatusRawKey) noteStatusChange();
        }
        record_->userModified = nowInSeconds();
    }

  private:
    /// Again whenever other records have been made, which may move this one.
    void find() { std::tie(record_, layout_) = backup::findRecord(document_, uri_); }

    std::size_t partNamed(const std::string& field) const {
        const auto& parts = layout_->parts;
        for (const std::string& name : {field, field + "Raw"}) {
            auto found = std::find_if(parts.begin(), parts.end(), [&](const Part& part) {
                return part.name == name && !part.isCollection();
            });
            if (found != parts.end()) return static_cast<std::size_t>(found - parts.begin());
        }
        throw Failure(fmt::format("a {} has no '{}'", layout_->element, field));
    }

    void requireNamed(std::size_t part, const std::string& value) const {
        const std::string_view name = layout_->parts[part].name;
        bool isName = name == HGTaskTitleRawKey || name == HGProjectNameRawKey;
        if (isName && value.find_first_not_of(" \t\r\n") == value.npos) {
            throw Failure(fmt::format("a {} needs a {}", layout_->element,
                                      name == HGTaskTitleRawKey ? "title" : "name"));
        }
    }

    void noteStatusChange() {
        for (std::size_t part = 0; part < layout_->parts.size(); ++part)
            if (layout_->parts[part].name == HGTaskStatusChangedKey) {
                backup::setField(*record_, *layout_, part, EXValue(nowInSeconds()));
            }
    }

    bool isReference(std::size_t part) const {
        const std::string_view name = layout_->parts[part].name;
        return name == HGTaskProjectRawKey || name == HGTaskContributorKey ||
               name == HGProjectPortfolioKey;
    }

    EXValue referenceTo(std::size_t part, const std::string& name) {
        if (name.empty()) return {};
        const std::string_view field = layout_->parts[part].name;
        RecordsByName records(document_);
        const backup::URL uri = field == HGTaskProjectRawKey ? records.project(name).first.uri
                                : field == HGTaskContributorKey
                                    ? records.contributor(name).first.uri
                                    : records.portfolio(name).first.uri;
        find();
        return EXValue(uri.absoluteString());
    }

    bool hasContexts() const {
        return layout_->element == HGBackupElementTask ||
               layout_->element == HGBackupElementProject;
    }

    std::vector<backup::Context>& contexts() {
        return layout_->element == HGBackupElementTask
                   ? static_cast<backup::Task*>(record_)->contexts
                   : static_cast<backup::Project*>(record_)->contexts;
    }

    /// The other categories stay; the one named becomes the primary one.
    void setCategory(const std::string& name) {
        std::erase_if(contexts(), [](const auto& context) { return context.primary == true; });
        if (name.empty()) return;
        const backup::URL uri = RecordsByName(document_).category(name).first.uri;
        find();
        std::erase_if(contexts(), [&](const auto& context) { return context.category == uri; });
        backup::Context context;
        context.primary = true;
        context.category = uri;
        contexts().insert(contexts().begin(), context);
    }

    BackupDocument& document_;
    const backup::URL uri_;
    Record* record_ = nullptr;
    const RecordLayout* layout_ = nullptr;
};

}  // namespace

void setField(BackupDocument& document, const backup::URL& uri, const std::string& field,
              const std::string& value) {
    Target(document, uri).set(field, value);
    fillCollations(document);
}

}  // namespace corvane::cli
