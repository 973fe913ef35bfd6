#include "apps/cli/DocumentIntake.h"

#include "corvane/platform/Clock.h"

#include "apps/cli/DocumentIndex.h"
#include "apps/cli/Failure.h"
#include "apps/cli/RecordsByName.h"
#include "apps/cli/RepositoryBuilder.h"
#include "apps/cli/TextHash.h"
#include "apps/cli/TextOutput.h"
#include "apps/document/BackupFile.h"
#include "apps/document/BackupLayout.h"

#include <fmt/format.h>

#include <chrono>

namespace corvane::cli {

namespace {

using backup::Text;
using backup::URL;

Text textOf(std::optional<std::string_view> text) {
    return text ? Text(*text) : std::nullopt;
}

backup::Attachment attachmentOf(const HGAttachmentProxy& proxy) {
    backup::Attachment attachment;
    attachment.uri = proxy.uriRepresentation().value_or(URL());
    attachment.typeRaw = proxy.type();
    attachment.url = textOf(proxy.url());
    return attachment;
}

/// Whether a document can hold the due day.
bool hasDue(const HGTaskProxy& proxy) {
    return proxy.due() && backup::comesBack(EXValue(*proxy.due()));
}

/// A document with the task alone.
class EntryDocument {
  public:
    EntryDocument(const HGTaskProxy& proxy, const GeneralProjectNames& generalProjectNames)
        : records_(document_), proxy_(proxy) {
        task_.titleRaw = textOf(proxy.title());
        if (proxy.notes() && !proxy.notes()->empty()) task_.notes = textOf(proxy.notes());
        task_.statusRaw = proxy.status();
        task_.priorityRaw = proxy.priority();
        if (proxy.starred()) task_.starredRaw = true;
        if (hasDue(proxy)) task_.dueRaw = proxy.due();
        const auto project = proxy.projectName();
        if (project && !project->empty() && !generalProjectNames.contains(*project)) {
            task_.projectRaw = records_.project(*project).first.uri;
        }
        if (const auto name = proxy.contributorName(); name && !name->empty()) {
            task_.contributor = records_.contributor(*name).first.uri;
        }
        if (const auto name = proxy.categoryName(); name && !name->empty()) addContext(*name);
        for (const auto& attachment :
             proxy.attachmentProxies().value_or(HGTaskProxy::AttachmentProxies()))
            if (attachment) task_.attachments.push_back(attachmentOf(*attachment));
    }

    /// With what only the main application gives a task.
    std::string text(const URL& uri, platform::Instant created) {
        task_.uri = uri;
        task_.userCreated = std::chrono::floor<std::chrono::seconds>(created);
        document_.tasks = {task_};
        platform::Error error;
        const auto text = backup::textOfBackupDocument(document_, &error);
        if (!text) throw Failure(error);
        return *text;
    }

  private:
    void addContext(std::string_view name) {
        backup::Category& category = records_.category(name).first;
        // Companions give a category that they do not know neither color nor indicator.
        if (proxy_.categoryIconIndex() != 0) {
            category.colorRaw = proxy_.categoryColor();
            category.indicatorRaw = proxy_.categoryIndicator();
        }
        auto& context = task_.contexts.emplace_back();
        context.primary = true;
        context.category = category.uri;
    }

    BackupDocument document_;
    RecordsByName records_;
    const HGTaskProxy& proxy_;
    backup::Task task_;
};

/// Moves one task over, with its references.
void add(RecordsByName& records, const BackupDocument& entry, backup::Task task) {
    const DocumentIndex index(entry);
    if (const auto* contributor = index.contributor(task.contributor)) {
        task.contributor = records.contributor(nameOf(*contributor)).first.uri;
    }
    for (backup::Context& context : task.contexts) {
        const auto* known = index.category(context.category);
        if (!known) continue;
        auto [category, isNew] = records.category(known->nameRaw.value_or(""));
        if (isNew) {
            category.colorRaw = known->colorRaw;
            category.indicatorRaw = known->indicatorRaw;
        }
        context.category = category.uri;
    }
    if (const auto* known = index.project(task.projectRaw)) {
        auto [project, isNew] = records.project(known->nameRaw.value_or(""));
        if (isNew) project.contexts = task.contexts;
        task.projectRaw = project.uri;
    }
    records.add(task);
}

}  // namespace

Intake documentIntakeOf(const HGInsertQueue::Batch& batch,
                        const GeneralProjectNames& generalProjectNames) {
    const platform::Instant now = platform::currentClock().now();
    Intake intake;
    for (std::size_t i = 0; i < batch.taskProxies.size(); ++i) {
        const HGTaskProxy& task = *batch.taskProxies[i];
        // No other task has this URI: no queue has a file of this name twice in one microsecond.
        const auto hash = stableHash(
            fmt::format("{}\n{}\n{}", now.time_since_epoch().count(), batch.fileName, i));
        const URL uri(fmt::format("x-corvane-todo://task/{:016x}", hash));
        intake.entries.push_back(EntryDocument(task, generalProjectNames).text(uri, now));
        auto lose = [&](std::string_view what) {
            intake.warnings.push_back(
                fmt::format("'{}' loses {}", onOneLine(task.title().value_or("")), what));
        };
        if (task.repeat() != 0) lose("its repeat");  // the archive does not say which
        if (task.due() && !hasDue(task)) lose("the due day " + task.due()->isoString());
    }
    return intake;
}

bool addEntries(BackupDocument& document, std::span<const std::string> entries,
                platform::Error& error) {
    RecordsByName records(document);
    for (const std::string& text : entries) {
        const auto entry = backup::parseBackupDocument(text, "an entry of the journal", &error);
        if (!entry) return false;
        for (const backup::Task& task : entry->tasks)
            if (!records.knows(task.uri)) add(records, *entry, task);
    }
    return true;
}

std::string shownDocumentEntry(const std::string& entry) {
    const auto document = backup::parseBackupDocument(entry, "", nullptr);
    if (!document) return {};
    std::string lines;
    for (const auto& task : taskProxiesOf(*document))
        lines += (lines.empty() ? "" : " ") + queuedTaskOf(*task, {}).line.text();
    return lines;
}

}  // namespace corvane::cli
