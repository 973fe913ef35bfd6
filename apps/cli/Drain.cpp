#include "apps/cli/Drain.h"

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/platform/Console.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include "apps/cli/Failure.h"
#include "apps/cli/QueuedTask.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

using Batches = std::vector<HGInsertQueue::Batch>;

/// The names that companions give tasks without a project: that of the repository they know, and
/// this process's own, which differ where the languages do.
GeneralProjectNames generalProjectNames() {
    GeneralProjectNames names{HGLocalizable::localize("ProjectNone")};
    HGSharedRepository::restoreDefaultRepositoryFromSharedContainer();
    const auto general = HGSharedRepository::defaultRepository()->generalProjectProxy();
    if (general && general->name()) names.emplace(*general->name());
    return names;
}

/// What a poll brought, as the list gets it.
struct Poll {
    std::vector<std::string> batches;  ///< those with tasks
    std::vector<std::string> lines;
    std::vector<std::string> warnings;
};

Poll pollOf(const Batches& batches) {
    const auto generalNames = generalProjectNames();
    Poll poll;
    for (const auto& batch : batches) {
        if (batch.taskProxies.empty()) {
            poll.warnings.push_back("dropped '" + batch.fileName +
                                    "' from the queue: there is no task in it");
            continue;
        }
        poll.batches.push_back(batch.fileName);
        for (const auto& task : batch.taskProxies) {
            const QueuedTask queued = queuedTaskOf(*task, generalNames);
            poll.lines.push_back(queued.line.text());
            for (const std::string& lost : queued.lost) {
                poll.warnings.push_back(
                    fmt::format("'{}' loses {}", onOneLine(queued.line.title), lost));
            }
        }
    }
    return poll;
}

/// Puts the queue's tasks into the list. Gives the lines that were added.
std::vector<std::string> add(DrainJournal& journal) {
    Poll poll;
    std::optional<platform::Error> error;
    HGInsertQueue().pollAllTaskProxies([&](const Batches& batches) {
        poll = pollOf(batches);
        if (!poll.lines.empty()) error = journal.commit(poll.batches, poll.lines);
        return !error;
    });
    failOn(error);
    for (const std::string& warning : poll.warnings)
        platform::currentConsole().writeLine("corvane: " + warning);
    if (poll.lines.empty()) return {};
    if (auto failure = journal.finish()) {
        throw Failure(failure->message + "; nothing is lost, drain again to complete it");
    }
    return poll.lines;
}

}  // namespace

Drained drainQueue(const std::string& list, DrainJournal::StepHook afterStep) {
    const auto queue = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    if (!queue) throw Failure("there is no container");
    DrainJournal journal(list, *queue, std::move(afterStep));
    Drained drained;
    failOn(journal.recover(drained.completed));
    drained.added = add(journal);
    return drained;
}

}  // namespace corvane::cli
