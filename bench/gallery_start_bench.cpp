// From the start of a program to its window's first picture: the gallery, and a bare window beside
// it. Windows are drawn off-screen.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

long long nanosecondsNow() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// The program says when it was done; 0 where it does not.
long long runToFirstPaint(const char* program) {
    const std::unique_ptr<FILE, int (*)(FILE*)> output(::popen(program, "r"), &::pclose);
    long long painted = 0;
    if (!output || std::fscanf(output.get(), "%lld", &painted) != 1) return 0;
    return painted;
}

void start(benchmark::State& state, const char* program) {
    const std::string command = std::string("exec '") + program + "' 2>/dev/null";
    for (auto _ : state) {
        const long long began = nanosecondsNow();
        const long long painted = runToFirstPaint(command.c_str());
        if (painted == 0) return state.SkipWithError("it paints nothing");
        state.SetIterationTime(static_cast<double>(painted - began) / 1e9);
    }
}

}  // namespace

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (const auto& [name, program] :
         {std::pair("galleryStart/firstPaint", CORVANE_GALLERY_WINDOW),
          std::pair("bareWindowStart/firstPaint", CORVANE_BARE_WINDOW)})
        benchmark::RegisterBenchmark(
            name, [program = program](benchmark::State& state) { start(state, program); })
            ->UseManualTime()
            ->Iterations(15)
            ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
