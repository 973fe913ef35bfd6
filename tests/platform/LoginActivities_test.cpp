#include "corvane/platform/LoginActivities.h"

#include "corvane/platform/Console.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>

#include <signal.h>
#include <systemd/sd-bus.h>
#include <thread>

using namespace corvane::platform;

/// With a system bus of the test's own, and a login service whose answers to the modes "block" and
/// "delay" are 'y', 'n', or none.
struct LoginActivitiesTest : testing::Test {
    void SetUp() override {
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
        output.reset(::popen(
            ("exec dbus-daemon --session --nofork --print-pid --address=" + address + " 2>&-")
                .c_str(),
            "re"));
        if (::fscanf(output.get(), "%d", &daemon) != 1) GTEST_SKIP() << "there is no dbus-daemon";
        sd_bus_open_system(&bus);
        sd_bus_add_object(bus, nullptr, "/org/freedesktop/login1", answer, this);
        sd_bus_request_name(bus, "org.freedesktop.login1", 0);
        thread = std::jthread([this](std::stop_token end) {
            while (!end.stop_requested())
                if (sd_bus_process(bus, nullptr) <= 0) sd_bus_wait(bus, 5000);
        });
    }
    void TearDown() override {
        thread = {};
        bus = sd_bus_close_unref(bus);
        if (daemon) ::kill(std::exchange(daemon, 0), SIGKILL), output.reset();
    }
    static int answer(sd_bus_message* call, void* test, sd_bus_error*) {
        auto& self = *static_cast<LoginActivitiesTest*>(test);
        const char *what, *who, *why, *mode;
        int ends[2];
        if (sd_bus_message_read(call, "ssss", &what, &who, &why, &mode) < 0 ||
            ::pipe2(ends, O_CLOEXEC))
            return 0;
        EXPECT_EQ(std::string(what) + who + why, "sleep:shutdownplatform_testsSaving");
        const bool delays = mode == std::string_view("delay");
        self.asked = self.asked * 10 + 1 + delays;
        self.pipe = -1;
        if (self.answers[delays] == 'y') sd_bus_reply_method_return(call, "h", ends[1]);
        if (self.answers[delays] == 'n')
            sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "no");
        ::close(ends[1]);
        self.pipe = ends[0];  // of which the other end is the lock
        return 1;
    }
    static auto begin(LoginActivities& activities) {
        return activities.beginActivity(0xC0FF, "Saving");
    }
    pollfd lastPipe() const {
        while (pipe < 0)
            std::this_thread::yield();
        return {pipe, 0, 0};
    }

    corvane::tests::TemporaryDirectory directory;
    RecordingConsole console;
    const ScopedConsole scope{console};
    const std::string address = "unix:path=" + (directory / "bus"),
                      plain = "==> INFO: the system cannot be held during activities";
    std::unique_ptr<FILE, int (*)(FILE*)> output{nullptr, ::pclose};
    pid_t daemon = 0;
    sd_bus* bus = nullptr;
    std::atomic<const char*> answers = " ";
    std::atomic<int> pipe = -1, asked = 0;  // of each call a digit: 1 for "block", 2 for "delay"
    std::jthread thread;
};

TEST_F(LoginActivitiesTest, HoldALockEachUntilItsEnd) {
    LoginActivities activities, others;
    std::vector<int> before;
    for (int fd = 0; fd < 99; ++fd)
        before.push_back(::fcntl(fd, F_GETFD));
    for (const char* manner : {"y", "ny"}) {
        answers = manner;
        auto ended = begin(activities);
        auto first = lastPipe();
        auto dropped = begin(activities);  // by which time the bus is through with the first lock
        for (int fd = 0; fd < 99; ++fd)
            EXPECT_TRUE(before[fd] != -1 || ::fcntl(fd, F_GETFD) & FD_CLOEXEC) << fd;
        EXPECT_EQ(::poll(&first, 1, 0), 0) << "held";
        ended->end();
        EXPECT_EQ(::poll(&first, 1, 5000), 1) << "released";
        dropped = nullptr;
        auto second = lastPipe();
        EXPECT_EQ(::poll(&second, 1, 5000), 1) << "released";
    }
    EXPECT_EQ(asked, 111212);
    TearDown();
    for (auto* some : {&activities, &activities, &others})
        begin(*some)->end();
    EXPECT_EQ(console.lines(),
              (std::vector<std::string>{
                  "==> INFO: activities hold the system from sleep and shutdown",
                  "WARNING: the system can no longer be held during activities", plain}));
}

TEST_F(LoginActivitiesTest, NeverWaitLongForWhoDoesNotAnswer) {
    ManualSteadyClock clock;
    LoginActivities activities(std::chrono::milliseconds(50), clock),
        others(std::chrono::milliseconds(50));
    const auto start = std::chrono::steady_clock::now();
    for (int seconds : {0, 30, 29, 1})
        clock.set(timeAfter(clock.now(), seconds)), begin(activities)->end();
    EXPECT_EQ(asked, 11) << "again after a minute only";
    ::kill(daemon, SIGSTOP);  // the bus still lets connections in
    begin(others)->end();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(console.lines(), (std::vector{plain, plain}));
}
