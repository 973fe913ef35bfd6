#include "apps/cli/TaskFormat.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/FileMoves.h"
#include "corvane/platform/MappedFile.h"

#include "apps/cli/DocumentIntake.h"
#include "apps/cli/Failure.h"
#include "apps/cli/TextOutput.h"
#include "apps/cli/TodoDocument.h"
#include "apps/document/BackupFile.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

using backup::BackupDocument;

class TodoFormat final : public TaskFormat {
  public:
    std::string emptyContent() const override { return {}; }

    TaskSource read(std::string_view content, const std::string&) const override {
        const TodoFile list(content);
        return {documentOf(list), list.problems(), lossesOf(list)};
    }

    Intake intakeOf(const HGInsertQueue::Batch& batch,
                    const GeneralProjectNames& generalProjectNames) const override {
        Intake intake;
        for (const auto& task : batch.taskProxies) {
            const QueuedTask queued = queuedTaskOf(*task, generalProjectNames);
            intake.entries.push_back(queued.line.text());
            for (const std::string& lost : queued.lost) {
                intake.warnings.push_back(
                    fmt::format("'{}' loses {}", onOneLine(queued.line.title), lost));
            }
        }
        return intake;
    }

    std::optional<std::string> contentWithEntries(std::string content,
                                                  std::span<const std::string> entries,
                                                  const std::string&,
                                                  platform::Error&) const override {
        return contentWithLines(std::move(content), entries);
    }

    std::string shownEntry(const std::string& entry) const override { return entry; }
};

class DocumentFormat final : public TaskFormat {
  public:
    std::string emptyContent() const override {
        return backup::textOfBackupDocument({}, nullptr).value_or("");
    }

    TaskSource read(std::string_view content, const std::string& name) const override {
        platform::Error error;
        auto document = backup::parseBackupDocument(content, name, &error);
        if (!document) throw Failure(error);
        return {std::move(*document), {}, {}};
    }

    Intake intakeOf(const HGInsertQueue::Batch& batch,
                    const GeneralProjectNames& generalProjectNames) const override {
        return documentIntakeOf(batch, generalProjectNames);
    }

    std::optional<std::string> contentWithEntries(std::string content,
                                                  std::span<const std::string> entries,
                                                  const std::string& name,
                                                  platform::Error& error) const override {
        auto document = content.empty() ? std::optional(BackupDocument())
                                        : backup::parseBackupDocument(content, name, &error);
        if (!document || !addEntries(*document, entries, error)) return std::nullopt;
        return backup::textOfBackupDocument(*document, &error);
    }

    std::string shownEntry(const std::string& entry) const override {
        return shownDocumentEntry(entry);
    }
};

}  // namespace

const TaskFormat& TaskFormat::of(std::string_view path) {
    static const TodoFormat list;
    static const DocumentFormat document;
    const auto resolved = platform::resolvedPath(std::string(path));
    if (backup::isBackupPath(resolved ? std::string_view(*resolved) : path)) return document;
    return list;
}

TaskSource readTaskSource(const std::string& path, const std::string& name) {
    platform::Error error;
    const auto file = platform::MappedFile::open(path, &error);
    if (!file) throw Failure(error);
    const auto bytes = file->bytes();
    return TaskFormat::of(path).read({reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                                     name);
}

void reportProblems(const TaskSource& source, const std::string& name, std::string_view fate) {
    for (const TodoFile::Problem& problem : source.problems) {
        platform::currentConsole().writeLine(
            fmt::format("corvane: {}:{}: {}; {}", name, problem.lineNumber, problem.reason, fate));
    }
}

BackupDocument readTasks(const std::string& path, const std::string& name) {
    TaskSource source = readTaskSource(path, name);
    reportProblems(source, name, "the line stays, but is not published");
    return std::move(source.document);
}

}  // namespace corvane::cli
