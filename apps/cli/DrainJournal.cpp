#include "apps/cli/DrainJournal.h"

#include "corvane/platform/FileMoves.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"

#include "apps/cli/TaskFormat.h"
#include "apps/cli/TextHash.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cerrno>
#include <span>

namespace corvane::cli {

namespace {

using nlohmann::ordered_json;
using platform::Durability;
using platform::Error;
using platform::URL;

constexpr int kVersion = 1;

/// The content; empty for a missing file, none where it cannot be read.
std::optional<std::string> textOrEmpty(const std::string& path, Error& error) {
    auto content = platform::readTextFile(path, &error);
    if (!content && error.code == ENOENT) return "";
    return content;
}

/// Missing is as good as removed. A directory is nothing that a drain has left.
std::optional<Error> removeIfThere(const std::string& path) {
    if (platform::isDirectory(path)) {
        return Error::fromErrno("cannot remove '" + path + "'", EISDIR);
    }
    auto error = platform::removeFile(path);
    return error && error->code == ENOENT ? std::nullopt : error;
}

std::string hashText(const std::string& content) {
    return fmt::format("{:016x}", stableHash(content));
}

}  // namespace

DrainJournal::DrainJournal(std::string list, URL queueDirectory, StepHook afterStep)
    : list_(std::move(list)),
      next_(list_ + ".drain-next"),
      journal_(list_ + ".drain-journal"),
      queue_(std::move(queueDirectory)),
      afterStep_(std::move(afterStep)) {}

std::optional<Error> DrainJournal::recover(std::vector<std::string>& lines) {
    Error error;
    auto text = textOrEmpty(journal_, error);
    if (!text) return error;
    if (text->empty()) return removeIfThere(next_);
    auto entry = read(error);
    if (!entry) return error;
    if (auto failure = finish()) return failure;
    lines = std::move(entry->lines);
    return std::nullopt;
}

std::optional<Error> DrainJournal::commit(const std::vector<std::string>& batches,
                                          const std::vector<std::string>& lines) {
    Error error;
    const auto wanted = contentWith(lines, error);
    if (!wanted) return error;
    Entry entry{queue_, {}, lines};
    for (const std::string& name : batches) {
        auto batch = platform::readTextFile(*queue_.appendingPathComponent(name).path(), &error);
        if (!batch) return error;
        entry.batches.push_back({name, hashText(*batch)});
    }
    auto failure = writeNext(*wanted);
    if (failure) return abandoned(failure);
    after(Step::NextWritten);
    const std::string journal = written(entry);
    failure =
        platform::replaceFile(journal_, std::as_bytes(std::span(journal)), Durability::Synced);
    if (failure) return abandoned(failure);
    after(Step::Committed);
    return std::nullopt;
}

std::optional<Error> DrainJournal::abandoned(std::optional<Error> reason) const {
    // A journal may be there although it could not be synced, and then it counts.
    Error error;
    bool committed = platform::readTextFile(journal_, &error) || error.code != ENOENT;
    if (!committed) (void)removeIfThere(next_);  // else the next drain does it
    return reason;
}

std::optional<Error> DrainJournal::finish() {
    Error error;
    auto entry = read(error);
    if (!entry) return error;
    if (auto failure = place(entry->lines)) return failure;
    after(Step::Placed);
    if (auto failure = clearQueue(*entry)) return failure;
    after(Step::QueueCleared);
    if (auto failure = platform::removeFile(journal_)) return failure;
    after(Step::Closed);
    return std::nullopt;
}

std::string DrainJournal::written(const Entry& entry) const {
    ordered_json batches = ordered_json::array();
    for (const Batch& batch : entry.batches) {
        const URL file = entry.queue.appendingPathComponent(batch.fileName);
        batches.push_back({{"file", file.absoluteString()}, {"hash", batch.contentHash}});
    }
    return ordered_json{{"version", kVersion},
                        {"queue", entry.queue.absoluteString()},
                        {"batches", batches},
                        {"lines", entry.lines}}
               .dump(2, ' ', false, ordered_json::error_handler_t::replace) +
           "\n";
}

std::optional<DrainJournal::Entry> DrainJournal::read(Error& error) const {
    auto text = platform::readTextFile(journal_, &error);
    if (!text) return std::nullopt;
    try {
        const auto json = ordered_json::parse(*text);
        Entry entry{URL(json.at("queue").get<std::string>()),
                    {},
                    json.at("lines").get<std::vector<std::string>>()};
        for (const auto& batch : json.at("batches")) {
            const URL file(batch.at("file").get<std::string>());
            entry.batches.push_back({file.lastPathComponent(), batch.at("hash")});
        }
        if (json.at("version") == kVersion) return entry;
    } catch (const ordered_json::exception&) {
        // Told below: to guess what it said could lose a task or bring it twice.
    }
    error = {"corvane", 1, "cannot read '" + journal_ + "': not a journal of a drain"};
    return std::nullopt;
}

std::optional<std::string> DrainJournal::contentWith(const std::vector<std::string>& lines,
                                                     Error& error) const {
    auto content = textOrEmpty(list_, error);
    if (!content) return std::nullopt;
    return TaskFormat::of(list_).contentWithEntries(std::move(*content), lines, list_, error);
}

std::optional<Error> DrainJournal::writeNext(const std::string& content) const {
    // In place: what is half written is either forgotten or, once committed, written again.
    return platform::writeFileLike(list_, next_, std::as_bytes(std::span(content)));
}

std::optional<Error> DrainJournal::place(const std::vector<std::string>& lines) const {
    Error error;
    auto prepared = platform::readTextFile(next_, &error);
    if (!prepared) return error.code == ENOENT ? std::nullopt : std::optional(error);
    // The user may have changed the list since.
    const auto wanted = contentWith(lines, error);
    if (!wanted) return error;
    if (*prepared != *wanted) {
        if (auto failure = writeNext(*wanted)) return failure;
    }
    return platform::moveFile(next_, list_);
}

std::optional<Error> DrainJournal::clearQueue(const Entry& entry) const {
    // The container may have been moved since.
    for (const URL& queue : {entry.queue, queue_}) {
        for (const Batch& batch : entry.batches) {
            auto path = queue.appendingPathComponent(batch.fileName).path().value_or("");
            Error error;
            auto content = textOrEmpty(path, error);
            if (!content) return error;
            if (hashText(*content) != batch.contentHash) continue;
            if (auto failure = removeIfThere(path)) return failure;
        }
        auto path = queue.path().value_or("");
        if (!platform::isDirectory(path)) continue;
        if (auto error = platform::syncDirectory(path)) return error;
    }
    return std::nullopt;
}

void DrainJournal::after(Step step) const {
    if (afterStep_) afterStep_(step);
}

}  // namespace corvane::cli
