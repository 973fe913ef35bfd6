#include "apps/cli/Drain.h"

#include "corvane/bridge/HGInsertQueue.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/platform/Console.h"
#include "corvane/vocabulary/HGLocalizable.h"

#include "apps/cli/Failure.h"
#include "apps/cli/TaskFormat.h"
#include "apps/cli/TextOutput.h"

#include <algorithm>
#include <iterator>

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
    std::vector<std::string> entries;
    std::vector<std::string> warnings;
};

Poll pollOf(const Batches& batches, const TaskFormat& format) {
    const auto generalNames = generalProjectNames();
    Poll poll;
    for (const auto& batch : batches) {
        if (batch.taskProxies.empty()) {
            poll.warnings.push_back("dropped '" + batch.fileName +
                                    "' from the queue: there is no task in it");
            continue;
        }
        poll.batches.push_back(batch.fileName);
        Intake intake = format.intakeOf(batch, generalNames);
        std::move(intake.entries.begin(), intake.entries.end(), std::back_inserter(poll.entries));
        std::move(intake.warnings.begin(), intake.warnings.end(),
                  std::back_inserter(poll.warnings));
    }
    return poll;
}

/// Puts the queue's tasks into the list. Gives the entries that were added.
std::vector<std::string> add(DrainJournal& journal, const TaskFormat& format) {
    Poll poll;
    std::optional<platform::Error> error;
    HGInsertQueue().pollAllTaskProxies([&](const Batches& batches) {
        poll = pollOf(batches, format);
        if (!poll.entries.empty()) error = journal.commit(poll.batches, poll.entries);
        return !error;
    });
    failOn(error);
    for (const std::string& warning : poll.warnings)
        platform::currentConsole().writeLine("corvane: " + onOneLine(warning));
    if (poll.entries.empty()) return {};
    if (auto failure = journal.finish()) {
        throw Failure(failure->message + "; nothing is lost, drain again to complete it");
    }
    return poll.entries;
}

}  // namespace

Drained drainQueue(const std::string& list, DrainJournal::StepHook afterStep) {
    const auto queue = HGSharedContainer::defaultContainer().insertQueueDirectoryURL();
    if (!queue) throw Failure("there is no container");
    DrainJournal journal(list, *queue, std::move(afterStep));
    Drained drained;
    failOn(journal.recover(drained.completed));
    drained.added = add(journal, TaskFormat::of(list));
    return drained;
}

}  // namespace corvane::cli
