// An overview model of many tasks, a hundred to a section unless the name says otherwise, against
// plain lists that are walked by hand.
#include "corvane/bridge/HGTaskProxyManager.h"
#include "corvane/platform/URL.h"

#include "apps/overviews/ProxyTasksModel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace corvane::bench {
namespace {

using overviews::ProxyTasksModel;
using platform::IndexPath;

constexpr std::int64_t kTasksOfSection = 100;

/// A manager whose inbox has that many tasks in so many sections.
struct Lists {
    Lists(std::int64_t tasks, std::int64_t sections) {
        for (std::int64_t section = 0; section < sections; ++section) {
            auto& list = tasksOfSections.emplace_back();
            for (std::int64_t row = 0; row < tasks / sections; ++row)
                list.push_back(std::make_shared<HGTaskProxy>(
                    platform::URL("t:" + std::to_string(section * tasks + row))));
        }
        HGTaskProxyModel::TaskProxyLists lists;
        for (const auto& list : tasksOfSections)
            lists.push_back(std::make_shared<HGTaskProxyList>(list, "list", "A list"));
        manager.reloadTaskProxyModels(
            HGTaskProxyModels{{std::string(HGSharedInfoTaskProxyModelInboxKey),
                               std::make_shared<HGTaskProxyModel>(std::move(lists))}});
        model = std::make_shared<ProxyTasksModel>(manager, &HGTaskProxyManager::inboxModel);
        model->reloadData();
    }

    std::vector<HGTaskProxyList::TaskProxies> tasksOfSections;
    HGTaskProxyManager manager;
    std::shared_ptr<ProxyTasksModel> model;
};

/// Made once for each shape, as the benchmarks leave it unchanged.
Lists& lists(std::int64_t tasks, std::int64_t sections) {
    static std::map<std::pair<std::int64_t, std::int64_t>, std::unique_ptr<Lists>> made;
    auto& found = made[{tasks, sections}];
    if (!found) found = std::make_unique<Lists>(tasks, sections);
    return *found;
}

Lists& listsFor(const benchmark::State& state) {
    return lists(state.range(0), state.range(0) / kTasksOfSection);
}

void countTasks(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0) *
                            static_cast<std::int64_t>(sizeof(IndexPath)));
}

void reload(benchmark::State& state) {
    auto& model = *listsFor(state).model;
    for (auto _ : state)
        model.reloadData();
    countTasks(state);
}

void copyOfLists(benchmark::State& state) {
    const auto& tasks = listsFor(state).tasksOfSections;
    for (auto _ : state) {
        auto copy = tasks;
        benchmark::DoNotOptimize(copy);
    }
    countTasks(state);
}

/// Of a model whose sections are all empty, which is the one that has to look at them all.
void isEmpty(benchmark::State& state) {
    const auto& model = *lists(0, state.range(0)).model;
    for (auto _ : state)
        benchmark::DoNotOptimize(model.isEmpty());
    countTasks(state);
}

void allIndexPaths(benchmark::State& state) {
    const auto& model = *listsFor(state).model;
    for (auto _ : state)
        benchmark::DoNotOptimize(model.indexPathsForAllObjects());
    countTasks(state);
}

void indexPathsByHand(benchmark::State& state) {
    const auto& tasks = listsFor(state).tasksOfSections;
    for (auto _ : state) {
        std::vector<IndexPath> paths;
        paths.reserve(static_cast<std::size_t>(state.range(0)));
        for (std::size_t section = 0; section < tasks.size(); ++section)
            for (std::size_t row = 0; row < tasks[section].size(); ++row)
                paths.push_back(
                    {static_cast<std::int64_t>(section), static_cast<std::int64_t>(row)});
        benchmark::DoNotOptimize(paths);
    }
    countTasks(state);
}

/// The last one, for which every section is asked.
void indexPathOfObject(benchmark::State& state) {
    const Lists& made = listsFor(state);
    const EXObject last = made.tasksOfSections.back().back();
    for (auto _ : state)
        benchmark::DoNotOptimize(made.model->indexPathOfObject(last));
    countTasks(state);
}

void searchOfLists(benchmark::State& state) {
    const auto& tasks = listsFor(state).tasksOfSections;
    const auto last = tasks.back().back();
    for (auto _ : state)
        for (const auto& list : tasks)
            benchmark::DoNotOptimize(std::find(list.begin(), list.end(), last));
    countTasks(state);
}

std::vector<EXObject> shuffled(const HGTaskProxyList::TaskProxies& tasks) {
    std::vector<EXObject> objects(tasks.begin(), tasks.end());
    std::shuffle(objects.begin(), objects.end(), std::mt19937(7));
    return objects;
}

/// All in one section.
void sortedIndexPaths(benchmark::State& state) {
    const Lists& made = lists(state.range(0), 1);
    const auto objects = shuffled(made.tasksOfSections[0]);
    for (auto _ : state)
        benchmark::DoNotOptimize(made.model->sortedIndexPathsForSection(0, objects));
    countTasks(state);
}

void sortedPathsBySearch(benchmark::State& state) {
    const auto& tasks = lists(state.range(0), 1).tasksOfSections[0];
    const auto objects = shuffled(tasks);
    for (auto _ : state) {
        std::map<std::int64_t, std::int64_t> rows;
        for (std::size_t place = 0; place < objects.size(); ++place) {
            const auto found = std::find_if(tasks.begin(), tasks.end(), [&](const auto& task) {
                return task.get() == objects[place].identity();
            });
            rows[found - tasks.begin()] = static_cast<std::int64_t>(place);
        }
        benchmark::DoNotOptimize(rows);
    }
    countTasks(state);
}

BENCHMARK(reload)->Arg(10'000)->Arg(100'000);
BENCHMARK(copyOfLists)->Arg(10'000)->Arg(100'000);
BENCHMARK(isEmpty)->Arg(100)->Arg(1'000);
BENCHMARK(allIndexPaths)->Arg(10'000)->Arg(100'000);
BENCHMARK(indexPathsByHand)->Arg(10'000)->Arg(100'000);
BENCHMARK(indexPathOfObject)->Arg(10'000)->Arg(100'000);
BENCHMARK(searchOfLists)->Arg(10'000)->Arg(100'000);
BENCHMARK(sortedIndexPaths)->Arg(10'000)->Arg(100'000);
// At 100,000 it takes a hundred times as long.
BENCHMARK(sortedPathsBySearch)->Arg(10'000);

}  // namespace
}  // namespace corvane::bench

BENCHMARK_MAIN();
