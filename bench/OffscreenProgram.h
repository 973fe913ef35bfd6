// What a benchmark of windows has around it: an application whose windows are drawn off-screen.
#pragma once

#include "corvane/platform/Console.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>

namespace corvane::bench {

/// Lives as long as the program does.
class OffscreenProgram {
  public:
    OffscreenProgram(int& argc, char** argv)
        : argc_(argc), argv_(argv), application_(drawnOffscreen(argc), argv) {
        QApplication::setStyle("fusion");
    }

    /// Those that were registered, as far as the command line wants them.
    int runBenchmarks() {
        benchmark::Initialize(&argc_, argv_);
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    }

  private:
    /// Nobody has to read what the library writes; making it is part of the work.
    class NoConsole final : public platform::Console {
      public:
        void writeLine(std::string_view line) override { benchmark::DoNotOptimize(line.data()); }
    };

    static int& drawnOffscreen(int& argc) {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        return argc;
    }

    int& argc_;
    char** argv_;
    QApplication application_;
    NoConsole console_;
    platform::ScopedConsole consoleScope_{console_};
    qt::QtRunLoop loop_;
    platform::ScopedMainRunLoop loopScope_{loop_};
    qt::QtTextMeasurer measurer_;
    views::ScopedTextMeasurer measurerScope_{measurer_};
};

}  // namespace corvane::bench
