#include "corvane/formats/EXCSVWriter.h"
#include "corvane/formats/HGCorvaneBackupConstants.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/platform/FileMoves.h"

#include "apps/cli/Activity.h"
#include "apps/cli/DocumentCommands.h"
#include "apps/cli/DocumentIndex.h"
#include "apps/cli/Failure.h"
#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/TaskFormat.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

#include <variant>

namespace corvane::cli {

namespace {

constexpr const char* kFileNamePrefix = "Corvane-Tasks";

using Constants = HGCorvaneBackupConstants;

/// What a column shows: a text that the record holds, or a value made for it. All columns but those
/// of days have a text in every row, because the format leaves out the separator behind what is
/// missing at the start of a row.
using Shown = std::variant<std::string_view, EXValue>;

Shown textOf(std::optional<std::string_view> text) {
    return text.value_or("");
}

Shown nameOfCode(const EXXMLMapping& mapping, std::int16_t code) {
    return EXValue(mapping.objectForKey(code).value_or(fmt::format("{}", code)));
}

class TaskRows final : public EXKeyValueRows {
  public:
    explicit TaskRows(const BackupDocument& document)
        : document_(document), proxies_(taskProxiesOf(document)) {}

    static const std::vector<std::string>& columns() {
        static const std::vector<std::string> kColumns = [] {
            std::vector<std::string> names;
            for (const auto& [name, value] : columnsInOrder())
                names.emplace_back(name);
            return names;
        }();
        return kColumns;
    }

    std::size_t count() const override { return proxies_.size(); }

    EXValue valueForKey(std::string_view key, std::size_t index) const override {
        const auto shown = shownForKey(key, index);
        const auto* text = std::get_if<std::string_view>(&shown);
        return text ? EXValue(*text) : std::get<EXValue>(shown);
    }

    std::optional<std::string_view> heldTextForKey(std::string_view key,
                                                   std::size_t index) const override {
        const auto shown = shownForKey(key, index);
        const auto* text = std::get_if<std::string_view>(&shown);
        return text ? std::optional(*text) : std::nullopt;
    }

  private:
    using Column = Shown (*)(const HGTaskProxy&, const backup::Task&);

    Shown shownForKey(std::string_view key, std::size_t index) const {
        for (const auto& [name, shown] : columnsInOrder())
            if (name == key) return shown(*proxies_[index], document_.tasks[index]);
        return EXValue();
    }

    static const std::vector<std::pair<std::string_view, Column>>& columnsInOrder() {
        using P = const HGTaskProxy&;
        using T = const backup::Task&;
        static const std::vector<std::pair<std::string_view, Column>> kColumns{
            {HGTaskTitleKey, [](P p, T) { return textOf(p.title()); }},
            {HGTaskStatusKey,
             [](P p, T) { return nameOfCode(Constants::taskStatusMapping(), p.status()); }},
            {HGTaskPriorityKey,
             [](P p, T) { return nameOfCode(Constants::priorityMapping(), p.priority()); }},
            {HGTaskStarredKey, [](P p, T) { return textOf(p.starred() ? "true" : "false"); }},
            {HGTaskStartKey, [](P, T t) { return Shown(EXValue(t.startRaw)); }},
            {HGTaskDueKey, [](P p, T) { return Shown(EXValue(p.due())); }},
            {HGTaskRepeatKey,
             [](P p, T) { return nameOfCode(Constants::taskRepeatMapping(), p.repeat()); }},
            {"project", [](P p, T) { return textOf(p.projectName()); }},
            {HGTaskContextCategoryKey, [](P p, T) { return textOf(p.categoryName()); }},
            {HGTaskContributorKey, [](P p, T) { return textOf(p.contributorName()); }},
            {HGTaskNotesKey, [](P p, T) { return textOf(p.notes()); }},
        };
        return kColumns;
    }

    const BackupDocument& document_;
    const TaskProxies proxies_;
};

std::string exportTasks(const BackupDocument& document, const std::optional<std::string>& out) {
    const TaskRows rows(document);
    const auto path =
        out ? (EXCSVWriter::writeKeyValueRows(&rows, TaskRows::columns(), out) ? out : std::nullopt)
            : EXCSVWriter::pathToTemporaryFileWritingKeyValueRows(&rows, TaskRows::columns(),
                                                                  kFileNamePrefix);
    // The writer tells no reason.
    if (!path) {
        throw Failure(out ? fmt::format("cannot write '{}'", *out)
                          : "cannot write into the directory for temporary files");
    }
    return *path;
}

}  // namespace

void runExportCSV(const std::string& file, const std::optional<std::string>& out) {
    const auto tasksPath = platform::resolvedPath(file);
    if (tasksPath && out && platform::resolvedPath(*out) == tasksPath) {
        throw Failure(fmt::format("'{}' has the tasks; export them to another file", *out));
    }
    TaskSource source = readTaskSource(file, file);
    reportProblems(source, file, "the line is left out");
    runInActivity("Exporting tasks", [&] {
        const std::string path = exportTasks(source.document, out);
        print(fmt::format("Exported {} from {} to {}\n",
                          counted(source.document.tasks.size(), "task"), file, path));
    });
}

}  // namespace corvane::cli
