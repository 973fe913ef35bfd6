// Reading and writing repositories as keyed archives, against a C library that reads and writes the
// property list underneath as a tree of untyped nodes.
#include "corvane/bridge/SharedArchiveClasses.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include "bench/ExampleRepository.h"

#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include <climits>
#include <filesystem>
#include <malloc.h>
#include <map>

namespace corvane::bench {
namespace {

using platform::Bytes;

const std::string& fileOf(int tasks) {
    static std::map<int, std::string> files;
    auto [entry, isNew] = files.try_emplace(tasks);
    if (isNew) entry->second = exampleRepositoryFile(tasks);
    return entry->second;
}

const HGSharedRepository& repositoryOf(int tasks) {
    static std::map<int, std::shared_ptr<HGSharedRepository>> repositories;
    auto& repository = repositories[tasks];
    if (!repository) repository = exampleRepository(tasks);
    return *repository;
}

void report(benchmark::State& state) {
    const auto tasks = state.range(0);
    const auto size = std::filesystem::file_size(fileOf(static_cast<int>(tasks)));
    state.SetItemsProcessed(state.iterations() * tasks);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void fileToRecords(benchmark::State& state) {
    const std::string& path = fileOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto root = platform::KeyedUnarchiver::unarchiveFile(path, sharedArchiveClasses());
        if (root.isNull()) state.SkipWithError("unreadable");
        state.PauseTiming();
        root = nullptr;
        state.ResumeTiming();
    }
    report(state);
}

void fileToTreeOfLibplist(benchmark::State& state) {
    const std::string& path = fileOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const Bytes file = platform::readFile(path).value();
        plist_t tree = nullptr;
        plist_from_bin(reinterpret_cast<const char*>(file.data()),
                       static_cast<std::uint32_t>(file.size()), &tree);
        if (!tree) state.SkipWithError("unreadable");
        state.PauseTiming();
        plist_free(tree);
        state.ResumeTiming();
    }
    report(state);
}

void recordsToBytes(benchmark::State& state) {
    const auto& repository = repositoryOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        if (!platform::KeyedArchiver::archivedData(repository)) state.SkipWithError("cannot write");
    report(state);
}

void recordsToFile(benchmark::State& state) {
    const auto& repository = repositoryOf(static_cast<int>(state.range(0)));
    const std::string path = fileOf(static_cast<int>(state.range(0))) + ".copy";
    for (auto _ : state)
        if (platform::KeyedArchiver::archiveToFile(repository, path))
            state.SkipWithError("cannot write");
    std::filesystem::remove(path);
    report(state);
}

void treeToBytesOfLibplist(benchmark::State& state) {
    const Bytes file = platform::readFile(fileOf(static_cast<int>(state.range(0)))).value();
    plist_t tree = nullptr;
    plist_from_bin(reinterpret_cast<const char*>(file.data()),
                   static_cast<std::uint32_t>(file.size()), &tree);
    for (auto _ : state) {
        char* bytes = nullptr;
        std::uint32_t length = 0;
        plist_to_bin(tree, &bytes, &length);
        if (!bytes) state.SkipWithError("cannot write");
        plist_to_bin_free(bytes);
    }
    plist_free(tree);
    report(state);
}

// First, as it is slower by times in memory that others have used. Serialising grows quadratically
// there; a larger tree would take minutes.
BENCHMARK(treeToBytesOfLibplist)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(fileToRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(fileToTreeOfLibplist)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(recordsToBytes)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(recordsToFile)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvane::bench

int main(int count, char** arguments) {
    // Rounds of every size then find the memory of the round before, instead of only the small.
    ::mallopt(M_TRIM_THRESHOLD, INT_MAX);
    ::mallopt(M_MMAP_THRESHOLD, 32 << 20);  // the most
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
