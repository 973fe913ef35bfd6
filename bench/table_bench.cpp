// The table in its widget, against Qt's lists of the same rows: from nothing to the first picture,
// and what a user does to it, repainting included unless the name says "logic". Windows are drawn
// off-screen.
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/Window.h"

#include "HostedTable.h"
#include "OffscreenProgram.h"
#include "QtLists.h"
#include "TaskRecords.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace corvane::bench {
namespace {

/// Rows that a key goes through before it begins again at the top.
constexpr std::size_t kWalk = 2'000;
/// Steps of the wheel before it turns back.
constexpr std::size_t kTurns = 100;
constexpr std::int64_t kRange = 5'000;
constexpr int kKeptHeap = 32 << 20;  ///< the most that mallopt takes for large blocks

std::size_t rowsOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

/// That it painted as often as it was to.
void expectPainting(benchmark::State& state, std::size_t before) {
    if (paintedRows - before < static_cast<std::size_t>(state.iterations()))
        state.SkipWithError("not everything was painted");
}

template <class Subject>
void show(benchmark::State& state) {
    const std::size_t before = paintedRows;
    for (auto _ : state) {
        auto subject = std::make_unique<Subject>(rowsOf(state));
        settle();
        state.PauseTiming();
        subject.reset();
        settle();
        state.ResumeTiming();
    }
    expectPainting(state, before);
}

/// What is done, and what takes it back, which is not measured.
template <class Subject, void (Subject::*act)(), void (Subject::*takeBack)()>
void change(benchmark::State& state) {
    Subject subject(rowsOf(state));
    settle();
    const std::size_t before = paintedRows;
    for (auto _ : state) {
        (subject.*act)();
        settle();
        state.PauseTiming();
        (subject.*takeBack)();
        settle();
        state.ResumeTiming();
    }
    expectPainting(state, before);
}

template <class Subject>
void moveByOne(benchmark::State& state) {
    Subject subject(rowsOf(state));
    settle();
    const std::size_t before = paintedRows;
    for (auto _ : state) {
        subject.moveByOne();
        settle();
    }
    expectPainting(state, before);
}

template <class Subject>
void down(benchmark::State& state) {
    Subject subject(rowsOf(state));
    settle();
    const std::size_t before = paintedRows;
    std::size_t step = 0;
    for (auto _ : state) {
        if (step++ % kWalk == 0) {
            state.PauseTiming();
            subject.goToRow(0);
            state.ResumeTiming();
        }
        subject.down();
        settle();
    }
    expectPainting(state, before);
}

template <class Subject>
void wheel(benchmark::State& state) {
    Subject subject(rowsOf(state));
    settle();
    const std::size_t before = paintedRows;
    std::size_t step = 0;
    for (auto _ : state) {
        subject.wheel(step++ / kTurns % 2 == 0);
        settle();
    }
    expectPainting(state, before);
}

void rangeLogic(benchmark::State& state) {
    HostedTable subject(rowsOf(state));
    settle();
    auto& table = subject.table();
    const auto last = table.cellForRowAtIndexPath({0, kRange - 1});
    for (auto _ : state) {
        state.PauseTiming();
        subject.goToRow(0);
        state.ResumeTiming();
        table.selectRangeToCell(last);
    }
    if (table.allIndexPathsForSelectedRows().size() != static_cast<std::size_t>(kRange))
        state.SkipWithError("not the whole range was selected");
}

void extendLogic(benchmark::State& state) {
    HostedTable subject(rowsOf(state));
    settle();
    auto& table = subject.table();
    std::size_t step = 0;
    const auto begin = [&] {
        step = 0;
        subject.goToRow(0);
        const auto end = table.cellForRowAtIndexPath({0, kRange - 1});
        table.selectRangeToCell(end);
        end->window()->makeFirstResponder(end);
        settle();
    };
    begin();
    for (auto _ : state) {
        if (step == kWalk) {
            state.PauseTiming();
            begin();
            state.ResumeTiming();
        }
        subject.extendDown();
        ++step;
    }
    if (table.allIndexPathsForSelectedRows().size() != static_cast<std::size_t>(kRange) + step)
        state.SkipWithError("the range did not grow");
}

std::size_t heapInUse() {
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Of rows that nobody has looked at, but for the first few.
void heapPerRow(benchmark::State& state) {
    // What is made once, whatever the number of rows, is there before.
    {
        const HostedTable first(1);
        settle();
    }
    double bytes = 0;
    for (auto _ : state) {
        const std::size_t before = heapInUse();
        const HostedTable subject(rowsOf(state));
        settle();
        bytes = static_cast<double>(heapInUse() - before) / static_cast<double>(rowsOf(state));
    }
    state.counters["bytes_per_row"] = bytes;
}

template <class Function>
benchmark::internal::Benchmark* add(const std::string& name, Function* function) {
    return benchmark::RegisterBenchmark(name.c_str(), function)->Unit(benchmark::kMillisecond);
}

/// What the table and the list with a delegate are both put through.
template <class Subject>
void addComparison(const std::string& name) {
    add(name + "Show", show<Subject>)->Arg(10'000)->Arg(50'000);
    add(name + "Down", down<Subject>)->Arg(10'000);
    add(name + "Insert", change<Subject, &Subject::insertAtTop, &Subject::removeAtTop>)
        ->Arg(10'000);
    add(name + "Remove", change<Subject, &Subject::removeAtTop, &Subject::insertAtTop>)
        ->Arg(10'000);
    add(name + "Move", moveByOne<Subject>)->Arg(10'000);
    add(name + "Filter", change<Subject, &Subject::filterToTenth, &Subject::showAll>)->Arg(10'000);
    add(name + "Wheel", wheel<Subject>)->Arg(1'000)->Arg(10'000)->Arg(50'000);
}

void addAll() {
    addComparison<HostedTable>("table");
    addComparison<DelegateList>("delegateList");
    add("widgetListShow", show<WidgetList>)->Arg(10'000);
    add("tableRangeLogic", rangeLogic)->Arg(10'000);
    add("tableExtendLogic", extendLogic)->Arg(10'000);
    add("tableHeap", heapPerRow)->Arg(50'000)->Iterations(1);
}

}  // namespace
}  // namespace corvane::bench

int main(int argc, char** argv) {
    using namespace corvane;
    // What one benchmark frees, the next one gets without asking the system for pages again: how
    // often that happens would depend on which ones ran before.
    ::mallopt(M_TRIM_THRESHOLD, 8 * bench::kKeptHeap);
    ::mallopt(M_MMAP_THRESHOLD, bench::kKeptHeap);
    bench::OffscreenProgram program(argc, argv);
    bench::addAll();
    return program.runBenchmarks();
}
