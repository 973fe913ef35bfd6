// The queue through which companions hand new tasks to the main application: both its ends.
#pragma once

#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/URL.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// A directory of the shared container with one archive file a batch; any number of processes may
/// add while one polls. There is no state but the files, so each operation may be called from any
/// thread; the poll and clear operations belong to the main application alone.
class HGInsertQueue {
  public:
    using TaskProxies = std::vector<std::shared_ptr<HGTaskProxy>>;

    /// The process's queue, in the container in force at the first call.
    static HGInsertQueue& shared();

    /// A queue in the default container in force now.
    HGInsertQueue();

    HGInsertQueue(const HGInsertQueue&) = delete;
    HGInsertQueue& operator=(const HGInsertQueue&) = delete;

    /// "task-proxies-2024-03-05-14h07m09s123.archive": the present moment in UTC, to the
    /// millisecond.
    std::string taskProxiesFileName() const;

    /// That name in the queue directory of the container now in force; absent without a container.
    std::optional<std::string> taskProxiesFilePath() const;

    /// Writes the tasks as one batch. Once it returns true, the batch survives a power cut; a
    /// concurrent poll sees it whole or not at all. False when it could not be written, as before
    /// the main application has ever polled: only polling creates the queue directory. `error`,
    /// where given, then tells why. Without tasks it is a batch of none; null ones are passed over
    /// when it is taken out.
    ///
    /// Two batches of one millisecond have the same name, and the later replaces the earlier.
    bool addTaskProxies(const TaskProxies& taskProxies, platform::Error* error = nullptr) const;

    /// Every entry of the queue directory (made when missing), oldest first, equal ages by name.
    /// Absent when there is none, or the directory cannot be made.
    std::optional<std::vector<platform::URL>> allTaskProxiesFileURLs() const;

    /// Takes everything out of the queue: returns the tasks, oldest batch first, and deletes the
    /// files. A file that cannot be read is deleted all the same; one that cannot be deleted is
    /// reported on the console, and its tasks will come again.
    TaskProxies pollAllTaskProxies() const;

    /// What a poll has read, one entry a file, in queue order.
    struct Batch {
        std::string fileName;
        TaskProxies taskProxies;
    };

    /// The same for a receiver that must not lose a task even if it is killed meanwhile: the files
    /// are deleted only after `store` has returned true. Where it returns false, the queue stays as
    /// it was. Returns what `store` did; true, without calling it, when the queue is empty.
    bool pollAllTaskProxies(
        const std::function<bool(const std::vector<Batch>& batches)>& store) const;

    /// Deletes every entry without reading it.
    void clear() const;

  private:
    std::optional<platform::URL> directoryUrl_;
};

}  // namespace corvane
