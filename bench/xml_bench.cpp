// Writing the elements of a document of tasks, against a C library's streaming writer; exporting
// the tasks as CSV, against exchanging a file for the same bytes in one piece: as the export does
// it and, because that leaves the bytes to the system's memory, once more until they are on the
// disk.
#include "corvane/formats/EXCSVWriter.h"
#include "corvane/formats/EXXMLScanner.h"
#include "corvane/formats/EXXMLWriter.h"
#include "corvane/formats/HGBackupElements.h"
#include "corvane/formats/HGCorvaneBackupConstants.h"
#include "corvane/formats/HGEntityNames.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Files.h"

#include "bench/ExampleRepository.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <libxml/xmlwriter.h>
#include <map>
#include <unordered_map>

namespace corvane::bench {
namespace {

using Constants = HGCorvaneBackupConstants;

/// With texts of its own, so that no writer has to copy them, and with what is exported in one
/// place: how long records take to come from all over the memory is not what is measured here.
struct Task {
    std::string uri, title, notes, project;
    std::optional<EXDateOnly> due;
    std::shared_ptr<HGTaskProxy> proxy;
};
using Tasks = std::vector<Task>;

constexpr platform::Instant kChanged{std::chrono::sys_days{std::chrono::year{2024} / 3 / 5}};

const Tasks& tasks(benchmark::State& state) {
    static std::map<std::int64_t, Tasks> all;
    auto [entry, isNew] = all.try_emplace(state.range(0));
    if (!isNew) return entry->second;
    const auto repository = exampleRepository(static_cast<int>(state.range(0)));
    // In the order in which they were made and lie in memory, as those of a document do.
    std::map<std::pair<std::size_t, std::string>, std::shared_ptr<HGTaskProxy>> inOrder;
    for (const auto& [uri, task] : repository->taskProxies().value()) {
        const std::string text(uri.absoluteString());
        inOrder.emplace(std::pair(text.size(), text), task);
    }
    for (const auto& [uri, task] : inOrder)
        entry->second.push_back({uri.second, std::string(task->title().value_or("")),
                                 std::string(task->notes().value_or("")),
                                 std::string(task->projectName().value_or("")), task->due(), task});
    return entry->second;
}

std::string filePath() {
    return (std::filesystem::temp_directory_path() / "corvane-xml-bench").native();
}

void report(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(filePath()));
    state.SetBytesProcessed(state.iterations() * size);
    std::filesystem::remove(filePath());
}

void write(EXXMLWriter& w, const Task& task, std::int64_t position) {
    const auto& proxy = *task.proxy;
    w.writeStartElement(HGBackupElementTask, {{"id", task.uri}});
    w.writeElementWithCDATAContent(HGTaskTitleRawKey, task.title);
    w.writeElementWithCDATAContent(HGTaskNotesKey, task.notes);
    w.writeElementWithInt64Content(HGTaskPositionKey, position);
    w.writeElementWithBoolContent(HGTaskStarredRawKey, proxy.starred());
    w.writeElementWithEnumContent(HGTaskStatusRawKey, proxy.status(),
                                  &Constants::taskStatusMapping());
    w.writeElementWithEnumContent(HGTaskPriorityRawKey, proxy.priority(),
                                  &Constants::priorityMapping());
    w.writeElementWithDateContent(HGTaskStatusChangedKey, kChanged + std::chrono::hours(position));
    w.writeElementWithDateOnlyContent(HGTaskDueRawKey, proxy.due());
    w.writeElementWithStringContent(HGTaskProjectRawKey, task.project);
    w.writeEndElement(HGBackupElementTask);
}

void elementsToFile(benchmark::State& state) {
    const auto& all = tasks(state);
    for (auto _ : state) {
        EXXMLWriter writer(filePath());
        writer.openAutoCreating(true);
        writer.writeStartElement(HGBackupElementTasks);
        std::int64_t position = 0;
        for (const auto& task : all)
            write(writer, task, position++);
        writer.writeEndElement(HGBackupElementTasks);
        if (!writer.close()) state.SkipWithError("cannot write");
    }
    report(state);
}

/// The library's own calls, with the texts of numbers, days and dates made in the same way.
class LibxmlWriter {
  public:
    explicit LibxmlWriter(const std::string& path)
        : writer_(xmlNewTextWriterFilename(path.c_str(), 0)) {
        xmlTextWriterStartDocument(writer_, nullptr, "UTF-8", nullptr);
    }
    ~LibxmlWriter() {
        xmlTextWriterEndDocument(writer_);
        xmlFreeTextWriter(writer_);
    }

    void start(std::string_view name) { xmlTextWriterStartElement(writer_, text(name)); }
    void end() { xmlTextWriterEndElement(writer_); }
    void attribute(std::string_view name, const std::string& value) {
        xmlTextWriterWriteAttribute(writer_, text(name), text(value));
    }
    void element(std::string_view name, const std::string& content) {
        xmlTextWriterWriteElement(writer_, text(name), text(content));
    }
    void cdataElement(std::string_view name, const std::string& content) {
        start(name);
        if (!content.empty()) xmlTextWriterWriteCDATA(writer_, text(content));
        end();
    }

  private:
    /// REQUIRES: a text with a NUL behind it.
    static const xmlChar* text(std::string_view text) {
        return reinterpret_cast<const xmlChar*>(text.data());
    }

    xmlTextWriterPtr writer_;
};

void write(LibxmlWriter& w, const Task& task, std::int64_t position) {
    const auto& proxy = *task.proxy;
    const auto nameOf = [](const EXXMLMapping& mapping, std::int64_t code) {
        return mapping.objectForKey(code).value_or("");
    };
    const auto& iso = EXXMLScanner::isoDateFormatter();
    w.start(HGBackupElementTask);
    w.attribute("id", task.uri);
    w.cdataElement(HGTaskTitleRawKey, task.title);
    w.cdataElement(HGTaskNotesKey, task.notes);
    w.element(HGTaskPositionKey, std::to_string(position));
    w.element(HGTaskStarredRawKey, proxy.starred() ? "true" : "false");
    w.element(HGTaskStatusRawKey, nameOf(Constants::taskStatusMapping(), proxy.status()));
    w.element(HGTaskPriorityRawKey, nameOf(Constants::priorityMapping(), proxy.priority()));
    w.element(HGTaskStatusChangedKey, iso.stringFromDate(kChanged + std::chrono::hours(position)));
    w.element(HGTaskDueRawKey, EXDateOnly::stringFromDateOnly(proxy.due()).value_or(""));
    w.element(HGTaskProjectRawKey, task.project);
    w.end();
}

void elementsToFileOfLibxml2(benchmark::State& state) {
    const auto& all = tasks(state);
    for (auto _ : state) {
        std::filesystem::remove(filePath());
        LibxmlWriter writer(filePath());
        writer.start(HGBackupElementTasks);
        std::int64_t position = 0;
        for (const auto& task : all)
            write(writer, task, position++);
        writer.end();
    }
    report(state);
}

class Rows final : public EXKeyValueRows {
  public:
    explicit Rows(const Tasks& tasks) : tasks_(tasks) {}
    std::size_t count() const override { return tasks_.size(); }
    EXValue valueForKey(std::string_view key, std::size_t index) const override {
        if (key == HGTaskDueKey) return tasks_[index].due;
        return heldTextForKey(key, index);
    }
    std::optional<std::string_view> heldTextForKey(std::string_view key,
                                                   std::size_t index) const override {
        const auto& task = tasks_[index];
        if (key == HGTaskTitleKey) return task.title;
        if (key == HGTaskNotesKey) return task.notes;
        if (key == HGTaskProjectRawKey) return task.project;
        return std::nullopt;
    }

  private:
    const Tasks& tasks_;
};

struct UnreadConsole final : platform::Console {
    void writeLine(std::string_view) override {}
    bool showsTraces() const override { return false; }
};

bool exportRows(const Tasks& all) {
    UnreadConsole console;
    const platform::ScopedConsole scope(console);
    const Rows rows(all);
    const std::vector<std::string> keys{std::string(HGTaskTitleKey), std::string(HGTaskDueKey),
                                        std::string(HGTaskProjectRawKey),
                                        std::string(HGTaskNotesKey)};
    return EXCSVWriter::writeKeyValueRows(&rows, keys, filePath());
}

void rowsToCSV(benchmark::State& state) {
    const auto& all = tasks(state);
    for (auto _ : state)
        if (!exportRows(all)) state.SkipWithError("cannot write");
    report(state);
}

bool exchange(const platform::Bytes& bytes, bool isSynced) {
    const std::string path = filePath() + ".new";
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    bool isDone = ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    if (isSynced) isDone = ::fsync(file) == 0 && isDone;
    ::close(file);
    return std::rename(path.c_str(), filePath().c_str()) == 0 && isDone;
}

template <bool isSynced>
void bytesToFile(benchmark::State& state) {
    exportRows(tasks(state));
    const auto bytes = platform::readFile(filePath()).value();
    for (auto _ : state)
        if (!exchange(bytes, isSynced)) state.SkipWithError("cannot write");
    report(state);
}

/// Much of the time passes while the system works and the program waits.
void allSizes(benchmark::internal::Benchmark* benchmark) {
    for (int size : {1000, 10000, 100000})
        benchmark->Arg(size);
    benchmark->UseRealTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(elementsToFile)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(elementsToFileOfLibxml2)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(rowsToCSV)->Apply(allSizes);
BENCHMARK(bytesToFile<false>)->Name("bytesOfCSV")->Apply(allSizes);
BENCHMARK(bytesToFile<true>)->Name("syncedBytesOfCSV")->Apply(allSizes);

}  // namespace
}  // namespace corvane::bench

BENCHMARK_MAIN();
