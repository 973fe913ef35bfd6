// Logging to a file, against a plain synchronous logger of the library underneath that writes the
// same lines into a buffered file. Times are per message, for as many threads as the case tells.
#include "corvane/logging/EXLog.h"
#include "corvane/logging/Log.h"
#include "corvane/platform/LogDirectory.h"

#include <benchmark/benchmark.h>
#include <spdlog/logger.h>
#include <spdlog/sinks/basic_file_sink.h>

#include <chrono>
#include <filesystem>
#include <stdlib.h>
#include <string>
#include <thread>
#include <vector>

namespace corvane::bench {
namespace {

using logging::Level;

class Directory {
  public:
    Directory() { path_ = ::mkdtemp(path_.data()); }
    ~Directory() { std::filesystem::remove_all(path_); }
    const std::string& path() const { return path_; }

  private:
    std::string path_ = (std::filesystem::temp_directory_path() / "log-bench-XXXXXX").native();
};

double secondsOf(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Each thread calls with the numbers of its messages.
void onThreads(std::int64_t threads, int messages, const auto& logOne) {
    std::vector<std::jthread> running;
    for (std::int64_t thread = 0; thread < threads; ++thread)
        running.emplace_back([&, share = messages / threads] {
            for (int i = 0; i < share; ++i)
                logOne(i);
        });
}

void logOne(int i) {
    logging::log(Level::Information, "published {} tasks of {} in {:.3f} seconds", i, "todo.txt",
                 i * 0.001);
}

/// Until everything is in the file.
void logLine(benchmark::State& state) {
    constexpr int kMessages = 200'000;
    const Directory directory;
    const platform::ScopedLogDirectory inForce(directory.path());
    EXLog::sharedLog().addFileLogger();
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] {
                                   onThreads(state.range(0), kMessages, logOne);
                                   EXLog::sharedLog().flush();
                               }) /
                               kMessages);
    }
    EXLog::sharedLog().removeAllLoggers();
}

/// Until the callers may go on, as for a burst that the queue takes.
void callOfLogLine(benchmark::State& state) {
    constexpr int kMessages = 1000;
    const Directory directory;
    const platform::ScopedLogDirectory inForce(directory.path());
    EXLog::sharedLog().addFileLogger();
    for (auto _ : state) {
        const double time = secondsOf([] {
            for (int i = 0; i < kMessages; ++i)
                logOne(i);
        });
        EXLog::sharedLog().flush();
        state.SetIterationTime(time / kMessages);
    }
    EXLog::sharedLog().removeAllLoggers();
}

void synchronousLogLine(benchmark::State& state) {
    constexpr int kMessages = 200'000;
    const Directory directory;
    auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(directory.path() + "/log");
    spdlog::logger logger("log", sink);
    logger.set_pattern("%Y-%m-%d %H:%M:%S.%e%z %t %l %v");
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] {
                                   onThreads(state.range(0), kMessages, [&](int i) {
                                       logger.info("published {} tasks of {} in {:.3f} seconds", i,
                                                   "todo.txt", i * 0.001);
                                   });
                                   logger.flush();
                               }) /
                               kMessages);
    }
}

void maskedLogLine(benchmark::State& state) {
    const Directory directory;
    const platform::ScopedLogDirectory inForce(directory.path());
    EXLog::sharedLog().addFileLogger();
    int i = 0;
    for (auto _ : state) {
        logging::log(Level::Debug, "published {} tasks of {}", i, "todo.txt");
        benchmark::DoNotOptimize(++i);
    }
    EXLog::sharedLog().removeAllLoggers();
}

BENCHMARK(logLine)->ArgName("threads")->Arg(1)->Arg(8)->UseManualTime()->Iterations(10);
BENCHMARK(synchronousLogLine)->ArgName("threads")->Arg(1)->Arg(8)->UseManualTime()->Iterations(10);
BENCHMARK(callOfLogLine)->ArgName("threads")->Arg(1)->UseManualTime()->Iterations(1000);
BENCHMARK(maskedLogLine)->ArgName("threads")->Arg(1);

}  // namespace
}  // namespace corvane::bench

BENCHMARK_MAIN();
