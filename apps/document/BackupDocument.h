// The user's tasks with all that they refer to, as a backup document holds them: values without a
// link to a file. docs/formats/backup-document.md describes the document.
#pragma once

#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/URL.h"

#include "apps/document/XMLNode.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::backup {

using platform::Instant;
using platform::URL;

using Text = std::optional<std::string>;  ///< UTF-8; may be empty, which is not absent
using Code = std::optional<std::int16_t>;
using Number = std::optional<std::int64_t>;
using Flag = std::optional<bool>;
using Day = std::optional<EXDateOnly>;
using Time = std::optional<EXTimeOnly>;
using Moment = std::optional<Instant>;  ///< a document has whole seconds
using Reference = URL;                  ///< the `uri` of another record; empty for none

/// What a document has at some place and this version does not know. It is written again.
struct Unknown {
    struct Element {
        std::size_t after = 0;  ///< how many known elements stand before it
        XMLNode node;

        friend bool operator==(const Element&, const Element&) = default;
    };

    XMLAttributes attributes;
    std::vector<Element> elements;
    std::string name;  ///< in place of a code's name, and no code has it

    bool isEmpty() const { return attributes.empty() && elements.empty() && name.empty(); }
    friend bool operator==(const Unknown&, const Unknown&) = default;
};

/// What all records have. A record is a regular value; copies are independent of each other.
struct Record {
    URL uri;  ///< the record's identity; contexts have none
    Moment userCreated;
    Moment userModified;

    Unknown unknown;
    /// By the number of a field or collection among those of its kind of record; in order.
    std::vector<std::pair<std::size_t, Unknown>> unknownOfParts;

    friend bool operator==(const Record&, const Record&) = default;
};

struct Contributor : Record {
    Text nameRaw;
    Text nameCollation;
    Text firstNameRaw;
    Text lastName;
    Text organization;

    friend bool operator==(const Contributor&, const Contributor&) = default;
};

struct Category : Record {
    Text nameRaw;
    Text nameCollation;
    Code colorRaw;
    Code indicatorRaw;
    Text notes;

    friend bool operator==(const Category&, const Category&) = default;
};

struct Portfolio : Record {
    Text nameRaw;
    Text nameCollation;
    Text notes;

    friend bool operator==(const Portfolio&, const Portfolio&) = default;
};

/// The membership of a project or task in a category.
struct Context : Record {
    Flag primary;
    Reference category;

    friend bool operator==(const Context&, const Context&) = default;
};

struct Project : Record {
    Text nameRaw;
    Text nameCollation;
    Text shortName;
    Text notes;
    Text checklist;
    Reference portfolio;
    Code priorityRaw;
    Code statusRaw;
    Moment statusChanged;
    Day startRaw;
    Day dueRaw;
    Flag general;  ///< the project of tasks without another; its name is a title to look up

    std::vector<Context> contexts;

    friend bool operator==(const Project&, const Project&) = default;
};

struct Action : Record {
    Text titleRaw;
    Text notes;
    Number position;
    Code statusRaw;
    Moment statusChanged;

    friend bool operator==(const Action&, const Action&) = default;
};

struct Attachment : Record {
    Text titleRaw;
    Code typeRaw;
    Text url;

    friend bool operator==(const Attachment&, const Attachment&) = default;
};

struct Comment : Record {
    Text text;

    friend bool operator==(const Comment&, const Comment&) = default;
};

struct Task : Record {
    Text titleRaw;
    Text titleCollation;
    Text notes;
    Number position;
    Flag starredRaw;
    Number starredPosition;
    Code priorityRaw;
    Code statusRaw;
    Moment statusChanged;
    Reference projectRaw;
    Day dueRaw;
    Day startRaw;
    Code repeatRaw;
    Flag repeatAfterCompletion;
    Day repeatUntilRaw;
    Code customRepeatFrequencyRaw;
    Number customRepeatIntervalRaw;
    Number customRepeatOccurrencesRaw;
    Day reminderDateRaw;
    Time reminderTimeRaw;
    Day secondReminderDateRaw;
    Time secondReminderTimeRaw;
    Reference contributor;
    Code sourceRaw;
    Text sourceIdentifier;
    Flag nextInProject;

    std::vector<Context> contexts;
    std::vector<Action> actions;
    std::vector<Attachment> attachments;
    std::vector<Comment> comments;

    friend bool operator==(const Task&, const Task&) = default;
};

/// The document. Records stand in the order in which the application shows them.
struct BackupDocument : Record {
    std::vector<Contributor> contributors;
    std::vector<Category> categories;
    std::vector<Portfolio> portfolios;
    std::vector<Project> projects;
    std::vector<Task> tasks;

    friend bool operator==(const BackupDocument&, const BackupDocument&) = default;
};

}  // namespace corvane::backup
