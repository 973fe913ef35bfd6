#include "apps/cli/Conversion.h"

#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include "apps/cli/DocumentIndex.h"
#include "apps/cli/QueuedTask.h"
#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/TaskCodes.h"
#include "apps/cli/TextOutput.h"
#include "apps/cli/TodoDocument.h"
#include "apps/document/BackupLayout.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace corvane::cli {

namespace {

using backup::Part;
using backup::Record;
using backup::RecordLayout;

/// What follows from other fields, or from the order of the records.
constexpr std::array kDerivedFields{HGTaskTitleCollationKey, HGProjectNameCollationKey,
                                    HGTaskPositionKey};

/// Fields whose first code, like a flag that is false, says what their absence says.
constexpr std::array kFieldsWithoutNews{HGTaskRepeatRawKey, HGTaskSourceRawKey};

template <std::size_t Size>
bool contains(const std::array<std::string_view, Size>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool saysNothing(const Part& field, const EXValue& value) {
    if (value.isNull() || contains(kDerivedFields, field.name)) return true;
    bool without = field.type == EXXMLTypeBool || contains(kFieldsWithoutNews, field.name);
    return without && value.integerValue() == 0;
}

/// Compares the records of a document with those that came of it.
class Comparison {
  public:
    Comparison(const BackupDocument& whole, const BackupDocument& held)
        : whole_(whole),
          held_(held),
          general_(generalProject(whole)),
          wholeIndex_(whole),
          heldIndex_(held) {}

    std::vector<std::string> losses() {
        for (const Part& part : backup::documentLayout().parts)
            if (part.isCollection()) compareAll(part);
        return std::move(losses_);
    }

  private:
    using ByName = std::unordered_map<std::string, const Record*>;

    void compareAll(const Part& collection) {
        const RecordLayout& layout = *collection.records;
        const bool isTasks = layout.element == HGBackupElementTask;
        ByName counterparts;
        for (std::size_t i = 0; !isTasks && i < collection.count(held_); ++i) {
            const Record& held = collection.at(held_, i);
            counterparts.emplace(nameOf(held, layout), &held);
        }
        for (std::size_t i = 0; i < collection.count(whole_); ++i) {
            const Record& record = collection.at(whole_, i);
            if (isTasks) {
                compare(record, collection.at(held_, i), layout);
            } else {
                compare(record, counterparts, layout);
            }
        }
    }

    /// The general project needs no tasks to be there.
    void compare(const Record& record, ByName& counterparts, const RecordLayout& layout) {
        const std::string name = nameOf(record, layout);
        auto found = counterparts.find(&record == general_ ? name : heldName(name));
        if (found == counterparts.end()) {
            lose(layout, name, "is left out");
        } else if (!found->second) {
            lose(layout, name, "becomes one with another");
        } else {
            compare(record, *std::exchange(found->second, nullptr), layout);
        }
    }

    void compare(const Record& record, const Record& held, const RecordLayout& layout) {
        const auto missing = missingIn(record, held, layout);
        if (missing.empty()) return;
        lose(layout, nameOf(record, layout), fmt::format("loses {}", fmt::join(missing, ", ")));
    }

    void lose(const RecordLayout& layout, std::string_view name, std::string_view what) {
        losses_.push_back(fmt::format("the {} '{}' {}", layout.element, onOneLine(name), what));
    }

    static const Part* fieldNamed(const RecordLayout& layout, std::string_view name) {
        auto found = std::find_if(layout.parts.begin(), layout.parts.end(),
                                  [&](const Part& part) { return part.name == name; });
        return found == layout.parts.end() ? nullptr : &*found;
    }

    static std::string nameOf(const Record& record, const RecordLayout& layout) {
        if (layout.element == HGBackupElementContributor) {
            return cli::nameOf(static_cast<const backup::Contributor&>(record));
        }
        const Part* field = fieldNamed(layout, HGTaskTitleRawKey);
        if (!field) field = fieldNamed(layout, HGProjectNameRawKey);
        return std::string(field->get(record).text().value_or(""));
    }

    std::vector<std::string> missingIn(const Record& record, const Record& held,
                                       const RecordLayout& layout) const {
        std::vector<std::string> missing;
        for (const Part& part : layout.parts) {
            if (part.isCollection()) {
                addMissingRecords(missing, part, record, held);
            } else if (const EXValue value = valueIn(record, part, layout);
                       !saysNothing(part, value) && !isHeld(part, value, held)) {
                missing.push_back(label(part.name));
            }
        }
        if (!record.unknown.isEmpty() || !record.unknownOfParts.empty()) {
            missing.emplace_back("what this version does not know");
        }
        return missing;
    }

    /// What a field with a reference refers to; null for nothing.
    static EXValue referred(const DocumentIndex& index, std::string_view field,
                            const EXValue& value) {
        const backup::Reference uri(value.text().value_or(""));
        auto nameIn = [](const auto* record) {
            return record ? EXValue(heldName(record->nameRaw.value_or(""))) : EXValue();
        };
        if (field == HGTaskProjectRawKey) return nameIn(index.project(uri));
        if (field == HGProjectPortfolioKey) return nameIn(index.portfolio(uri));
        return value;
    }

    /// A task without status is actionable, which a list cannot say of every one.
    static EXValue valueIn(const Record& record, const Part& field, const RecordLayout& layout) {
        EXValue value = field.get(record);
        const bool isStatus =
            field.name == HGTaskStatusRawKey && layout.element == HGBackupElementTask;
        return isStatus && value.isNull() ? EXValue(kActionableStatus) : value;
    }

    bool isHeld(const Part& field, const EXValue& value, const Record& held) const {
        return referred(wholeIndex_, field.name, value) ==
               referred(heldIndex_, field.name, field.get(held));
    }

    void addMissingRecords(std::vector<std::string>& missing, const Part& part,
                           const Record& record, const Record& held) const {
        const std::size_t count = part.count(record);
        if (part.count(held) < count) {
            missing.push_back(counted(count - part.count(held), part.records->element));
        } else if (count > 0 &&
                   categoryIn(wholeIndex_, part, record) != categoryIn(heldIndex_, part, held)) {
            missing.emplace_back("category");
        }
    }

    /// Only contexts are held at all, and one at most.
    static std::string categoryIn(const DocumentIndex& index, const Part& contexts,
                                  const Record& record) {
        const auto& context = static_cast<const backup::Context&>(contexts.at(record, 0));
        const auto* category = index.category(context.category);
        return category ? heldName(category->nameRaw.value_or("")) : "";
    }

    /// "statusRaw" is the stored form of what people call the status.
    static std::string label(std::string_view field) {
        constexpr std::string_view kStored = "Raw";
        if (field.ends_with(kStored)) field.remove_suffix(kStored.size());
        return std::string(field);
    }

    const BackupDocument& whole_;
    const BackupDocument& held_;
    const backup::Project* const general_;
    const DocumentIndex wholeIndex_;
    const DocumentIndex heldIndex_;
    std::vector<std::string> losses_;
};

void fillCollation(backup::Text& collation, const backup::Text& text) {
    collation = EXLocalizable::collationForString(text);
}

}  // namespace

ConvertedList listOf(const BackupDocument& document) {
    ConvertedList list;
    for (const auto& task : taskProxiesOf(document))
        list.content += queuedTaskOf(*task, {}).line.text() + "\n";
    list.losses = Comparison(document, documentOf(TodoFile(list.content))).losses();
    return list;
}

void fillCollations(BackupDocument& document) {
    for (auto& record : document.contributors)
        fillCollation(record.nameCollation, nameOf(record));
    for (auto& record : document.categories)
        fillCollation(record.nameCollation, record.nameRaw);
    for (auto& record : document.portfolios)
        fillCollation(record.nameCollation, record.nameRaw);
    for (auto& record : document.projects)
        if (!record.general) fillCollation(record.nameCollation, record.nameRaw);
    for (auto& record : document.tasks)
        fillCollation(record.titleCollation, record.titleRaw);
}

}  // namespace corvane::cli
