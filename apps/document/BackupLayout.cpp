#include "apps/document/BackupLayout.h"

#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGCorvaneBackupConstants.h"
#include "corvane/formats/HGEntityNames.h"

#include <algorithm>

namespace corvane::backup {

namespace {

using Constants = HGCorvaneBackupConstants;

template <class T>
EXValue valueOf(const std::optional<T>& member) {
    return EXValue(member);
}
EXValue valueOf(const Text& member) {
    return member ? EXValue(*member) : EXValue();
}
EXValue valueOf(const Reference& member) {
    return member.absoluteString().empty() ? EXValue() : EXValue(member.absoluteString());
}
EXValue valueOf(const Day& member) {
    // 0 means "no day" wherever days are stored.
    return member && member->integerValue() != 0 ? EXValue(*member) : EXValue();
}

void assign(Text& member, const EXValue& value) {
    member = value.text();
}
void assign(Reference& member, const EXValue& value) {
    member = Reference(value.text().value_or(""));
}
void assign(Code& member, const EXValue& value) {
    member = static_cast<std::int16_t>(value.integerValue());
}
void assign(Number& member, const EXValue& value) {
    member = value.integerValue();
}
void assign(Flag& member, const EXValue& value) {
    member = value.booleanValue();
}
void assign(Day& member, const EXValue& value) {
    member = *value.day();
}
void assign(Time& member, const EXValue& value) {
    member = *value.time();
}
void assign(Moment& member, const EXValue& value) {
    member = *value.instant();
}

/// The record to which a member belongs, and the member, told by a pointer to it.
template <auto Member>
struct Access;
template <class OwnerType, class Type, Type OwnerType::*Member>
struct Access<Member> {
    static const Type& in(const Record& owner) {
        return static_cast<const OwnerType&>(owner).*Member;
    }
    static Type& in(Record& owner) { return static_cast<OwnerType&>(owner).*Member; }
};

template <auto Member>
constexpr Part field(std::string_view name, EXXMLType type,
                     const EXXMLMapping& (*mapping)() = nullptr) {
    Part part{name, type, mapping};
    part.get = [](const Record& owner) { return valueOf(Access<Member>::in(owner)); };
    part.set = [](Record& owner, const EXValue& value) {
        auto& member = Access<Member>::in(owner);
        if (value.isNull()) {
            member = {};
        } else {
            assign(member, value);
        }
    };
    return part;
}

template <auto Member>
constexpr Part text(std::string_view name) {
    return field<Member>(name, EXXMLTypeString);
}
template <auto Member>
constexpr Part flag(std::string_view name) {
    return field<Member>(name, EXXMLTypeBool);
}
template <auto Member>
constexpr Part number(std::string_view name) {
    return field<Member>(name, EXXMLTypeInt64);
}
template <auto Member>
constexpr Part day(std::string_view name) {
    return field<Member>(name, EXXMLTypeDateOnly);
}
template <auto Member>
constexpr Part timeOfDay(std::string_view name) {
    return field<Member>(name, EXXMLTypeTimeOnly);
}
template <auto Member>
constexpr Part moment(std::string_view name) {
    return field<Member>(name, EXXMLTypeDate);
}
template <auto Member>
constexpr Part code(std::string_view name, const EXXMLMapping& (*mapping)()) {
    return field<Member>(name, EXXMLTypeEnum, mapping);
}

template <auto Member>
constexpr Part collection(std::string_view name, const RecordLayout& records) {
    Part part{name};
    part.records = &records;
    part.add = [](Record& owner) -> Record& { return Access<Member>::in(owner).emplace_back(); };
    part.count = [](const Record& owner) { return Access<Member>::in(owner).size(); };
    part.at = [](const Record& owner, std::size_t index) -> const Record& {
        return Access<Member>::in(owner)[index];
    };
    return part;
}

// What every record ends with, before its collections.
constexpr Part kCreated = moment<&Record::userCreated>(HGBackupElementUserCreated);
constexpr Part kModified = moment<&Record::userModified>(HGBackupElementUserModified);

constexpr Part kContributorParts[] = {
    text<&Contributor::nameRaw>(HGContributorNameRawKey),
    text<&Contributor::nameCollation>(HGContributorNameCollationKey),
    text<&Contributor::firstNameRaw>(HGContributorFirstNameRawKey),
    text<&Contributor::lastName>(HGContributorLastNameKey),
    text<&Contributor::organization>(HGContributorOrganizationKey),
    kCreated,
    kModified,
};
constexpr RecordLayout kContributor{HGBackupElementContributor, Identity::Required,
                                    kContributorParts};

constexpr Part kCategoryParts[] = {
    text<&Category::nameRaw>(HGCategoryNameRawKey),
    text<&Category::nameCollation>(HGCategoryNameCollationKey),
    code<&Category::colorRaw>(HGCategoryColorRawKey, Constants::colorMapping),
    code<&Category::indicatorRaw>(HGCategoryIndicatorRawKey, Constants::indicatorMapping),
    text<&Category::notes>(HGCategoryNotesKey),
    kCreated,
    kModified,
};
constexpr RecordLayout kCategory{HGBackupElementCategory, Identity::Required, kCategoryParts};

// The vocabulary has no keys of its own for portfolios; they are named as projects are.
constexpr Part kPortfolioParts[] = {
    text<&Portfolio::nameRaw>(HGProjectNameRawKey),
    text<&Portfolio::nameCollation>(HGProjectNameCollationKey),
    text<&Portfolio::notes>(HGProjectNotesKey),
    kCreated,
    kModified,
};
constexpr RecordLayout kPortfolio{HGBackupElementPortfolio, Identity::Required, kPortfolioParts};

constexpr Part kContextParts[] = {
    flag<&Context::primary>(HGTaskContextPrimaryKey),
    text<&Context::category>(HGTaskContextCategoryKey),
    kCreated,
    kModified,
};
constexpr RecordLayout kProjectContext{HGBackupElementProjectContext, Identity::None,
                                       kContextParts};
constexpr RecordLayout kTaskContext{HGBackupElementTaskContext, Identity::None, kContextParts};

constexpr Part kProjectParts[] = {
    text<&Project::nameRaw>(HGProjectNameRawKey),
    text<&Project::nameCollation>(HGProjectNameCollationKey),
    text<&Project::shortName>(HGProjectShortNameKey),
    text<&Project::notes>(HGProjectNotesKey),
    text<&Project::checklist>(HGProjectChecklistKey),
    text<&Project::portfolio>(HGProjectPortfolioKey),
    code<&Project::priorityRaw>(HGProjectPriorityRawKey, Constants::priorityMapping),
    code<&Project::statusRaw>(HGProjectStatusRawKey, Constants::projectStatusMapping),
    moment<&Project::statusChanged>(HGProjectStatusChangedKey),
    day<&Project::startRaw>(HGProjectStartRawKey),
    day<&Project::dueRaw>(HGProjectDueRawKey),
    flag<&Project::general>(HGProjectGeneralKey),
    kCreated,
    kModified,
    collection<&Project::contexts>(HGBackupElementProjectContexts, kProjectContext),
};
constexpr RecordLayout kProject{HGBackupElementProject, Identity::Required, kProjectParts};

// Nor for actions, attachments and comments; where they have what tasks have, it has that name.
constexpr Part kActionParts[] = {
    text<&Action::titleRaw>(HGTaskTitleRawKey),
    text<&Action::notes>(HGTaskNotesKey),
    number<&Action::position>(HGTaskPositionKey),
    code<&Action::statusRaw>(HGTaskStatusRawKey, Constants::actionStatusMapping),
    moment<&Action::statusChanged>(HGTaskStatusChangedKey),
    kCreated,
    kModified,
};
constexpr RecordLayout kAction{HGBackupElementAction, Identity::Optional, kActionParts};

constexpr Part kAttachmentParts[] = {
    text<&Attachment::titleRaw>(HGTaskTitleRawKey),
    code<&Attachment::typeRaw>("typeRaw", Constants::attachmentTypeMapping),
    text<&Attachment::url>("url"),
    kCreated,
    kModified,
};
constexpr RecordLayout kAttachment{HGBackupElementAttachment, Identity::Optional, kAttachmentParts};

constexpr Part kCommentParts[] = {
    text<&Comment::text>("text"),
    kCreated,
    kModified,
};
constexpr RecordLayout kComment{HGBackupElementComment, Identity::Optional, kCommentParts};

constexpr Part kTaskParts[] = {
    text<&Task::titleRaw>(HGTaskTitleRawKey),
    text<&Task::titleCollation>(HGTaskTitleCollationKey),
    text<&Task::notes>(HGTaskNotesKey),
    number<&Task::position>(HGTaskPositionKey),
    flag<&Task::starredRaw>(HGTaskStarredRawKey),
    number<&Task::starredPosition>(HGTaskStarredPositionKey),
    code<&Task::priorityRaw>(HGTaskPriorityRawKey, Constants::priorityMapping),
    code<&Task::statusRaw>(HGTaskStatusRawKey, Constants::taskStatusMapping),
    moment<&Task::statusChanged>(HGTaskStatusChangedKey),
    text<&Task::projectRaw>(HGTaskProjectRawKey),
    day<&Task::dueRaw>(HGTaskDueRawKey),
    day<&Task::startRaw>(HGTaskStartRawKey),
    code<&Task::repeatRaw>(HGTaskRepeatRawKey, Constants::taskRepeatMapping),
    flag<&Task::repeatAfterCompletion>(HGTaskRepeatAfterCompletionKey),
    day<&Task::repeatUntilRaw>(HGTaskRepeatUntilRawKey),
    code<&Task::customRepeatFrequencyRaw>(HGTaskCustomRepeatFrequencyRawKey,
                                          Constants::customRepeatFrequencyMapping),
    number<&Task::customRepeatIntervalRaw>(HGTaskCustomRepeatIntervalRawKey),
    number<&Task::customRepeatOccurrencesRaw>(HGTaskCustomRepeatOccurrencesRawKey),
    day<&Task::reminderDateRaw>(HGTaskReminderDateRawKey),
    timeOfDay<&Task::reminderTimeRaw>(HGTaskReminderTimeRawKey),
    day<&Task::secondReminderDateRaw>(HGTaskSecondReminderDateRawKey),
    timeOfDay<&Task::secondReminderTimeRaw>(HGTaskSecondReminderTimeRawKey),
    text<&Task::contributor>(HGTaskContributorKey),
    code<&Task::sourceRaw>(HGTaskSourceRawKey, Constants::taskSourceMapping),
    text<&Task::sourceIdentifier>(HGTaskSourceIdentifierKey),
    flag<&Task::nextInProject>(HGTaskNextInProjectKey),
    kCreated,
    kModified,
    collection<&Task::contexts>(HGBackupElementTaskContexts, kTaskContext),
    collection<&Task::actions>(HGBackupElementActions, kAction),
    collection<&Task::attachments>(HGBackupElementAttachments, kAttachment),
    collection<&Task::comments>(HGBackupElementComments, kComment),
};
constexpr RecordLayout kTask{HGBackupElementTask, Identity::Required, kTaskParts};

constexpr Part kDocumentParts[] = {
    kCreated,
    kModified,
    collection<&BackupDocument::contributors>(HGBackupElementContributors, kContributor),
    collection<&BackupDocument::categories>(HGBackupElementCategories, kCategory),
    collection<&BackupDocument::portfolios>(HGBackupElementPortfolios, kPortfolio),
    collection<&BackupDocument::projects>(HGBackupElementProjects, kProject),
    collection<&BackupDocument::tasks>(HGBackupElementTasks, kTask),
};
constexpr RecordLayout kDocument{kRootElement, Identity::None, kDocumentParts};

}  // namespace

const RecordLayout& documentLayout() {
    return kDocument;
}

std::pair<Record*, const RecordLayout*> findRecord(BackupDocument& document, const URL& uri) {
    for (const Part& part : kDocumentParts) {
        for (std::size_t i = 0; part.isCollection() && i < part.count(document); ++i) {
            // The document may be changed, and so may what is in it.
            auto& record = const_cast<Record&>(part.at(document, i));
            if (record.uri == uri) return {&record, part.records};
        }
    }
    return {nullptr, nullptr};
}

void setField(Record& record, const RecordLayout& layout, std::size_t part, const EXValue& value) {
    layout.parts[part].set(record, value);
    for (auto& [index, unknown] : record.unknownOfParts)
        if (index == part) unknown.name.clear();
    std::erase_if(record.unknownOfParts, [](const auto& entry) { return entry.second.isEmpty(); });
}

const Unknown* unknownOfPart(const Record& record, std::size_t part) {
    auto found = std::find_if(record.unknownOfParts.begin(), record.unknownOfParts.end(),
                              [&](const auto& entry) { return entry.first == part; });
    return found == record.unknownOfParts.end() ? nullptr : &found->second;
}

bool isWritten(const Record& record, const RecordLayout& layout, std::size_t part) {
    if (unknownOfPart(record, part)) return true;
    const Part& described = layout.parts[part];
    return described.isCollection() ? described.count(record) > 0 : !described.get(record).isNull();
}

bool comesBack(const EXValue& value) {
    if (const auto* day = value.day()) {
        return EXDateOnly::dateOnlyFromString(day->isoString()) == *day;
    }
    if (const auto* time = value.time()) {
        return EXTimeOnly::timeOnlyFromString(time->isoString()) == *time;
    }
    return true;
}

}  // namespace corvane::backup
