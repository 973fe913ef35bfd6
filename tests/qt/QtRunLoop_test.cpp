#include "corvane/qt/QtRunLoop.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QPaintEvent>
#include <QTimer>
#include <QWidget>
#include <random>
#include <thread>

using namespace corvane;
using platform::RunLoop;
using qt::QtRunLoop;

namespace {

void processEvents() {
    // An event that came with another one is left for the next time.
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
}

void waitUntil(const std::function<bool()>& done) {
    while (!done())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// What a loop makes of calls that post and cancel others; every turn begins a line.
std::string logOf(RunLoop& loop, const std::function<void()>& runAll) {
    std::string log;
    std::mt19937 random(11);
    const int owners[3] = {};
    const std::function<void(int)> add = [&](int depth) {
        const RunLoop::Owner owner = random() % 2 ? &owners[random() % 3] : nullptr;
        loop.callAfterDelay(0, owner, [&, depth, number = random() % 1000] {
            log += std::to_string(number) + (loop.isInTurn() ? " " : "! ");
            if (random() % 4 == 0) loop.cancelCalls(&owners[random() % 3]);
            if (random() % 3 == 0) loop.callAtEndOfTurn([&] { log += "end "; });
            if (depth > 0) add(depth - 1);
            if (number % 7 == 0) throw std::runtime_error("seven");
        });
    };
    for (int i = 0; i < 200; ++i)
        add(static_cast<int>(random() % 5));
    runAll();
    return log;
}

}  // namespace

TEST(QtRunLoop, KeepsTurnsAsTheStandardLoopDoes) {
    platform::RecordingConsole console;
    const platform::ScopedConsole scope(console);
    platform::ManualRunLoop manual;
    const auto expected = logOf(manual, [&] { manual.advance(1); });
    QtRunLoop loop;
    EXPECT_EQ(logOf(loop, processEvents), expected);
    EXPECT_FALSE(loop.isInTurn());
    EXPECT_GT(expected.size(), 800u);
}

TEST(QtRunLoop, WaitsForDelaysAndOtherThreads) {
    QtRunLoop loop;
    std::string log;
    int owner = 0;
    loop.callAfterDelay(0.02, nullptr, [&] { log += "later, "; });
    loop.callAfterDelay(0.01, nullptr, [&] { log += "soon, "; });
    loop.callAfterDelay(0.015, &owner, [&] { log += "never, "; });
    loop.callAfterDelay(1e9, nullptr, [&] { log += "in years, "; });
    bool isPosted = false;
    std::jthread([&] { loop.post([&] { isPosted = true; }); }).join();
    loop.cancelCalls(&owner);
    waitUntil([&] { return log.ends_with("later, "); });
    EXPECT_EQ(log, "soon, later, ");
    EXPECT_TRUE(isPosted);
}

TEST(QtRunLoop, GoesOnInsideOfOtherLoopsAndBeforeWindowsArePainted) {
    struct Painted : QWidget {
        void paintEvent(QPaintEvent*) override { log += "painted, "; }
        std::string log;
    } widget;
    widget.show();
    processEvents();
    widget.log.clear();
    QtRunLoop loop;
    widget.update();
    loop.post([&] { widget.log += "in time, "; });
    processEvents();
    EXPECT_EQ(std::exchange(widget.log, ""), "in time, painted, ");
    QEventLoop menu;
    QTimer::singleShot(3000, &menu, &QEventLoop::quit);  // or it would wait for ever
    loop.post([&] {
        menu.exec();
        widget.log += "first, ";
    });
    loop.post([&] {
        widget.log += "second, ";
        menu.quit();
    });
    processEvents();
    EXPECT_EQ(widget.log, "second, first, ");
}

TEST(QtRunLoop, EndsTurnsInsideOfLoopsThatACallRuns) {
    QtRunLoop loop;
    std::string log;
    loop.post([&] {
        QEventLoop question;
        QTimer::singleShot(3000, &question, &QEventLoop::quit);  // or it would wait for ever
        QTimer::singleShot(0, &question, [&] {
            loop.callAtEndOfTurn([&] {
                log += "end of an event, ";
                if (log == "end of an event, ") question.quit();
            });
        });
        question.exec();
        log += "answered, ";
    });
    processEvents();
    EXPECT_EQ(log, "end of an event, answered, ");
}

TEST(QtRunLoop, ForgetsItsCallsWhenItGoes) {
    const auto held = std::make_shared<int>();
    {
        QtRunLoop loop;
        loop.post([held, &loop] { ADD_FAILURE() << "a call of a loop that has gone"; });
    }
    processEvents();
    EXPECT_EQ(held.use_count(), 1);
}
