// How queued tasks get into a list exactly once, even if the process is killed on the way.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/URL.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::cli {

/// Two files beside the list tell a later drain how far a killed one came:
///
///     FILE.drain-next  FILE.drain-journal
///     -                -                   nothing under way
///     present          -                   nothing was committed: forget it
///     present          present             committed, and the lines are not in the list yet
///     -                present             the lines are in the list; the queue may still have
///                                          the batches that they came from
///
/// The journal's appearance commits. From then on only these lines count, and the batches that it
/// names are done with. The lines come into the list by moving FILE.drain-next over it: its absence
/// is the mark that they are there.
///
/// For one process at a time: the caller holds the list's directory and the container.
class DrainJournal {
  public:
    /// What has just been done; for tests, which stop there.
    enum class Step { NextWritten, Committed, Placed, QueueCleared, Closed };
    using StepHook = std::function<void(Step)>;

    /// `list` is a resolved path; the list need not exist.
    DrainJournal(std::string list, platform::URL queueDirectory, StepHook afterStep = {});

    // What goes into a list are lines for most, but entries of another kind for a document: see
    // TaskFormat, which adds them.

    /// Completes what a killed drain had committed, and forgets what it had not. To be called
    /// before the queue is polled. Gives the lines of a drain that was completed.
    [[nodiscard]] std::optional<platform::Error> recover(std::vector<std::string>& lines);

    /// Promises that the lines, made of the tasks of the named batches, will be in the list. After
    /// an error nothing is promised.
    [[nodiscard]] std::optional<platform::Error> commit(const std::vector<std::string>& batches,
                                                        const std::vector<std::string>& lines);

    /// Keeps the promise. Lines that were written into the list since the commit stay. After an
    /// error the journal stays, for recover() to try again.
    [[nodiscard]] std::optional<platform::Error> finish();

  private:
    /// A file of the queue. Its content counts, because another batch may get the same name.
    struct Batch {
        std::string fileName;
        std::string contentHash;
    };
    struct Entry {
        platform::URL queue;
        std::vector<Batch> batches;
        std::vector<std::string> lines;
    };

    std::string written(const Entry& entry) const;
    std::optional<Entry> read(platform::Error& error) const;
    std::optional<std::string> contentWith(const std::vector<std::string>& lines,
                                           platform::Error& error) const;
    std::optional<platform::Error> writeNext(const std::string& content) const;
    std::optional<platform::Error> abandoned(std::optional<platform::Error> reason) const;
    std::optional<platform::Error> place(const std::vector<std::string>& lines) const;
    std::optional<platform::Error> clearQueue(const Entry& entry) const;
    void after(Step step) const;

    std::string list_;
    std::string next_;
    std::string journal_;
    platform::URL queue_;
    StepHook afterStep_;
};

}  // namespace corvane::cli
