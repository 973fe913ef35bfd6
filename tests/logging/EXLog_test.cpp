#include "corvane/logging/EXLog.h"

#include "corvane/logging/ForwardingConsole.h"
#include "corvane/logging/Log.h"
#include "corvane/platform/AppendFile.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/LogDirectory.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <fstream>
#include <sched.h>
#include <sstream>
#include <thread>

using namespace corvane;
using logging::Level, std::string;

struct Log : testing::Test {
    string logged() {
        theLog.flush();
        string all, line;  // each line as the first letter of its level and the text
        for (const auto& [name, content] : home.content()) {
            std::istringstream lines(name.starts_with("log/") ? content : "");
            while (std::getline(lines, line))
                all += line.erase(0, line.find(' ', 30) + 1).erase(1, 7) + "\n";
        }
        return all;
    }
    tests::TemporaryDirectory home;
    EXLog& theLog = EXLog::sharedLog();
    platform::ScopedLogDirectory directory{home / "log"};
    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    std::shared_ptr<void> end{nullptr, [this](void*) { theLog.removeAllLoggers(); }};
};

TEST_F(Log, LosesNothingHoweverTheProcessEnds) {
    for (int signal : {SIGTERM, SIGINT, SIGHUP, 0}) {  // 0: ignores one, and exits
        std::filesystem::remove_all(home / "log");
        auto* said = static_cast<std::atomic<int>*>(
            ::mmap(nullptr, 64, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
        auto speak = [=](int thread, int lines) {
            for (int i = 0; i < lines; said[thread] = ++i)
                logging::log(Level::Information, "{} {}", thread, i);
        };
        const int status = tests::runInChild([&] {
            static std::shared_ptr<void> last(nullptr, [&](void*) { speak(9, 1); });
            if (!signal) ::signal(SIGHUP, SIG_IGN);
            theLog.addFileLogger();
            std::vector<std::jthread> threads;
            for (int thread = 0; thread < 8; ++thread)
                threads.emplace_back(speak, thread, 3000);
            threads.clear();
            ::raise(signal ? signal : SIGHUP);
            speak(8, signal ? INT_MAX : 0);
            return std::exit(0), 0;
        });
        std::istringstream lines(logged());
        int found[10] = {}, thread = 0, number = 0;
        for (char level; lines >> level >> thread >> number;)
            EXPECT_EQ(number, found[thread]++);
        EXPECT_TRUE(std::equal(said, said + 10, found, std::less_equal<int>()));
        EXPECT_EQ(std::pair(status, found[9]), std::pair(-signal, signal ? 0 : 1));
    }
}

/// In a child: a system log of its own, where the kernel lets it have its own "/dev".
int systemLog() {
    const string user = "0 " + std::to_string(::getuid()),
                 group = "0 " + std::to_string(::getgid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return -1;
    for (auto [file, text] : {std::pair("setgroups", string("deny")),
                              {"uid_map", user + " 1"},
                              {"gid_map", group + " 1"}})
        std::ofstream(string("/proc/self/") + file) << text;
    const int log = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
    const sockaddr_un place{AF_UNIX, "/dev/log"};
    const bool isThere = ::mount("", "/dev", "tmpfs", 0, nullptr) == 0 &&
                         ::bind(log, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
    return isThere ? log : -1;
}

TEST_F(Log, TellsTheSystemLogHowImportantEachLineIs) {
    constexpr int kNone = 99;
    const int wrong = tests::runInChild([&] {
        const int log = systemLog();
        if (log < 0) return kNone;
        theLog.setLogLevel(logging::kUpToVerbose);
        theLog.addDefaultLoggers(), theLog.addDefaultLoggers();
        int received = 0;
        for (auto [level, priority] : {std::pair(Level::Error, 11),
                                       {Level::Warning, 12},
                                       {Level::Information, 14},
                                       {Level::Debug, 15},
                                       {Level::Verbose, 15}}) {
            logging::log(level, "%s\n{}", ++received), theLog.flush();
            char bytes[256];
            const auto size = ::recv(log, bytes, sizeof bytes, 0);
            const string line(bytes, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
            const string tail = fmt::format(" logging_tests[{}]: %s\\n{}", ::getpid(), received);
            if (!line.starts_with(fmt::format("<{}>", priority)) || !line.ends_with(tail) ||
                ::recv(log, bytes, sizeof bytes, 0) >= 0)
                return received;
        }
        return 0;
    });
    if (wrong == kNone) GTEST_SKIP() << "this system lets nobody have a system log of his own";
    EXPECT_EQ(wrong, 0) << "the number of the first line that did not come as it should";
}

TEST_F(Log, RollsByAgeAndRemovesOnlyItsOwnOldest) {
    std::filesystem::create_directory(home / "log");
    for (string name : {"00.log", "00Z 1.log", "60Z.log", "0Z.log", "00Z.log"})
        home.write("log/logging_tests 1970-01-01 00-00-" + name, name == "00Z.log" ? "-" : "");
    platform::FixedClock clock{platform::Instant(std::chrono::days(1))};
    platform::ScopedClock inForce(clock);
    auto say = [&](const string& text, double pause, std::optional<double> age = {}) {
        if (age) theLog.removeAllLoggers(), theLog.addFileLoggerWithRollingFrequency(*age, 2);
        clock.set(clock.now() + std::chrono::milliseconds(int(pause * 1000)));
        logging::log(Level::Information, "{}", text);
        return logged();
    };
    EXPECT_EQ(say("a", 0, 86401), "-\nIa\n");
    const string path = *theLog.directoryURLOfDefaultFileLogger()->path();
    auto taken = platform::AppendFile::create(path + "/logging_tests 1970-01-02 00-00-59Z.log");
    EXPECT_EQ((say("b", 0, 60), say("c", 59.999, 60)), "Ib\nIc\n");
    EXPECT_EQ(say("d", .001), "Id\n");
    for (double never : {0., -1., 0. / 0., 1. / 0.})
        say("e", 1e6, never);
    EXPECT_EQ(logged(), "Id\nIe\nIe\nIe\nIe\n");
    EXPECT_EQ((say("f", 1, 1e-9), say("g", .5)), "If\nIg\n");
    EXPECT_EQ(say("h", -1e6), "Ih\n");
    EXPECT_EQ(home.content().size(), 1u + 4 + 2);
}

TEST_F(Log, OutlivesAFullDisk) {
    const rlimit full{10000, RLIM_INFINITY}, empty{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &full);
    theLog.addFileLogger();
    for (int i = 0; i < 530; ++i)
        logging::logText(Level::Information, string(i < 500 ? 1000 : 50000, 'x'));
    theLog.flush();
    ::setrlimit(RLIMIT_FSIZE, &empty);
    const string text = logged();
    const auto count = std::count(text.begin(), text.end(), 'x');
    EXPECT_EQ(std::pair(count % 50000, console.lines().size()), std::pair(0L, 1UL));
    EXPECT_LT(text.find("W" + std::to_string(40 - count / 50000) + " messages"), text.size());
}

TEST_F(Log, TakesInDiagnosticsEachOnOneLine) {
    // clang-format off
    const std::pair<string, string> cases[] = {
        {"ERROR: e", "Ee"}, {"WARNING: w", "Ww"}, {"==> INFO: i\r\n", "Ii"}, {"### \n", "D"}, {"DEBUG: d", "Dd"},
        {"[A b:] 1", "V[A b:] 1"}, {"[a\nb", "I[a\\nb"}, {"\xff\xc3(", "I\ufffd\ufffd("},
        {"\t\x1b[2J\x7f{}", "I\t\\x1b[2J\\x7f{}"}, {"\u009b\u2028ä💡", "I\\u009b\\u2028ä💡"},
        {string(65535, 'x') + "\u00e4 more", "I" + string(65535, 'x') + " ... (7 bytes more)"}};
    // clang-format on
    logging::ForwardingConsole forwarding(console, logging::kUpToWarning);
    theLog.addFileLogger();
    string expected;
    for (unsigned mask : {theLog.logLevel(), 0u, 1u, 2u, 4u, 8u, 16u, 31u, 7u}) {
        theLog.setLogLevel(mask);
        for (const auto& [line, entry] : cases) {
            forwarding.writeLine(line);
            if (mask >> string("EWIDV").find(entry[0]) & 1) expected += entry + "\n";
        }
    }
    EXPECT_EQ(logged(), expected);
    EXPECT_EQ(console.lines().size(), 9u * 2);
    EXPECT_EQ(0, tests::runInChild([&] { return logging::isLogged(Level::Error); }));
}
