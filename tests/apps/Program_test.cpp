// The program itself: each command in a process of its own, as users and scripts run it.

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>

#include <functional>
#include <pty.h>
#include <stdlib.h>
#include <string>
#include <vector>

namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

struct Result {
    int status;
    std::string output, errors;
};

/// A home with a list in it, and a place for a container.
class Program : public testing::Test {
  protected:
    /// With nothing of the user's own in the environment.
    Result run(const Arguments& arguments, const std::function<void()>& prepare = nullptr) {
        corvane::tests::TemporaryDirectory streams;
        std::vector<char*> argv{const_cast<char*>("corvane")};
        for (const std::string& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        const int status = corvane::tests::runInChild([&] {
            ::dup2(::open(streams.write("out", "").c_str(), O_WRONLY), STDOUT_FILENO);
            ::dup2(::open(streams.write("err", "").c_str(), O_WRONLY), STDERR_FILENO);
            ::setenv("HOME", home_.path().c_str(), 1);
            ::setenv("LC_ALL", "C", 1);
            ::setenv("TZ", "UTC", 1);
            for (const char* name : {"CORVANE_CONTAINER", "XDG_DATA_HOME", "LANGUAGE"})
                ::unsetenv(name);
            if (prepare) prepare();
            ::execv(CORVANE_PROGRAM, argv.data());
            return 127;
        });
        auto content = streams.content();
        return {status, content["out"], content["err"]};
    }

    /// In the container of the test, and expected to work without a word of complaint.
    std::string done(Arguments arguments) {
        arguments.insert(arguments.end(), {"--container", container()});
        Result result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments[0];
        EXPECT_EQ(result.errors, "") << arguments[0];
        return result.output;
    }
    ordered_json json(Arguments arguments) {
        arguments.push_back("--json");
        return ordered_json::parse(done(arguments));
    }

    void publish(const char* content) {
        home_.write("list.txt", content);
        done({"publish", list()});
    }

    std::string list() const { return home_ / "list.txt"; }
    std::string container() const { return home_ / "container"; }

    corvane::tests::TemporaryDirectory home_;
};

TEST_F(Program, CarriesTasksFromTheListToCompanionsAndBack) {
    publish("Starred +house/bath @home star:1\r\n(A) Late due:2020-01-01\r\nNote");
    EXPECT_EQ(json({"show"})["sections"][1]["tasks"][0]["priorityName"], "Critical");
    EXPECT_EQ(done({"show"}), R"(Today [2], tomorrow [2]

Starred
  *                 Starred  +house/bath  @home

Due Today
     A  2020-01-01  Late
)");
    EXPECT_EQ(done({"show", "waiting-for"}), "Waiting For\n\n  nothing\n");
    EXPECT_EQ(json({"projects"})["sections"][1]["title"], "house");
    EXPECT_EQ(json({"categories"})["sections"][1]["items"][0]["indicator"], "home");

    done({"add", "Grout the tiles", "--project", "house/bath", "--category", "home", "--due",
          "2020-02-29", "--priority", "HIGH", "--star", "--notes", "white\n100%"});
    EXPECT_EQ(json({"status"})["queue"], (ordered_json{{"batches", 1}, {"tasks", 1}}));
    EXPECT_THAT(done({"drain", list()}), HasSubstr("today 2 -> 3"));
    EXPECT_EQ(
        home_.content()["list.txt"],
        "Starred +house/bath @home star:1\r\n(A) Late due:2020-01-01\r\nNote\r\n"
        "(B) Grout the tiles +house/bath @home due:2020-02-29 star:1 note:white%0A100%25\r\n");
    auto tasks = json({"tasks", "--project", "house/bath"})["tasks"];
    ASSERT_EQ(tasks.size(), 2u);
    EXPECT_EQ(tasks[1]["notes"], "white\n100%");
    EXPECT_EQ(tasks[1]["categoryIconIndex"], tasks[0]["categoryIconIndex"]);

    EXPECT_THAT(done({"inspect", container() + "/shared-info.archive"}),
                HasSubstr("\"HGSharedInfoBadgeValueTodayKey\": 3"));
}

TEST_F(Program, BringsBackWhateverIsAdded) {
    publish("First +p @c\n");
    const std::string notes = "line one\nline two: 50% +x";
    for (std::string title :
         {"x marks the spot", "(A) team", "Buy +milk @shop due:2024-01-01", "a  b", "Schlüssel 💡",
          "\\+escaped", "star:1 @waiting note:%41", "x"}) {
        done({"add", title});
        done({"add", title, "--project", "p", "--category", "c", "--notes", notes, "--star"});
        done({"drain", list()});
        auto last = [&](const char* project) {
            const auto task = json({"tasks", "--project", project})["tasks"].back();
            return ordered_json{task["title"], task["category"], task["notes"], task["starred"]};
        };
        EXPECT_EQ(last("No Project"), (ordered_json{title, nullptr, nullptr, false}));
        EXPECT_EQ(last("p"), (ordered_json{title, "c", notes, true}));
    }
}

TEST_F(Program, ExitsWithTwoForWrongUsageAndOneForFailure) {
    publish("a\n");
    // clang-format off
    const struct { Arguments arguments; int status; const char* error; std::string container; } cases[] = {
        {{}, 2, "a command is needed", container()},
        {{"dance"}, 2, "there is no command 'dance'", container()},
        {{"show", "yesterday"}, 2, "there is no view 'yesterday'", container()},
        {{"add", " \n"}, 2, "a task needs a title", container()},
        {{"add", "a\xFF"}, 2, "not UTF-8", container()},
        {{"add", "a", "--due", "2023-02-29"}, 2, "is not a day", container()},
        {{"add", "a", "--priority", "urgent"}, 2, "no priority 'urgent'", container()},
        {{"when", "x", "--locale", "xx"}, 2, "no locale 'xx'", container()},
        {{"when", "31 feb"}, 1, "'31 feb' is neither a day nor a time", container()},
        {{"status"}, 2, "--container", ""},
        {{"tasks", "--project", "p"}, 1, "there is no project 'p'", container()},
        {{"publish", list()}, 1, "No such file", home_ / "missing/inner"},
        {{"show"}, 1, "nothing was published", home_.path()},
    };
    // clang-format on
    const auto before = home_.content();
    for (const auto& c : cases) {
        Arguments arguments{"--container", c.container};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        Result result = run(arguments);
        EXPECT_EQ(result.status, c.status) << c.error;
        EXPECT_THAT(result.errors, HasSubstr(c.error));
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), c.status);
    }
    EXPECT_EQ(home_.content(), before);
    Result lost = run({"show", "--container", container()},
                      [] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); });
    EXPECT_EQ(lost.status, 1);
    EXPECT_EQ(lost.errors, "corvane: cannot write the output\n");
}

TEST_F(Program, ShowsItsLogInColorsOnlyWhereTheyAreWanted) {
    for (const std::string wish : {"colors", "no colors", "no terminal"}) {
        int ends[2];
        ASSERT_EQ(::openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr), 0);
        Result shown = run({"when", "today", "--log", "--verbose"}, [&] {
            ::setenv("TERM", "xterm", 1);
            ::setenv("NO_COLOR", wish == "no colors" ? "1" : "", 1);
            ::setenv("CORVANE_LOG_DIRECTORY", "/dev/null", 1);  // none, as one line tells
            if (wish != "no terminal") ::dup2(ends[1], STDERR_FILENO);
        });
        ::close(ends[1]);  // reading then ends with an error instead of waiting
        char text[999];
        for (ssize_t size; (size = ::read(ends[0], text, sizeof text)) > 0;)
            shown.errors.append(text, static_cast<std::size_t>(size));
        ::close(ends[0]);
        EXPECT_EQ(shown.errors.find(" \x1b[32mINFO   \x1b[0m when: done") < 999, wish == "colors");
        EXPECT_EQ(std::count(shown.errors.begin(), shown.errors.end(), '\n'), shown.status + 2);
    }
}

TEST_F(Program, FindsTheContainerThatItIsToldOf) {
    publish("a\n");
    const std::string path = container();
    // clang-format off
    const struct { Arguments arguments; std::string variable, found; } cases[] = {
        {{"--container", path, "status", "--json"}, "/x", path},
        {{"status", "--container=" + path, "--json"}, "/x", path},
        {{"status", "--json"}, path, path},
        {{"status", "--json"}, "", home_ / ".local/share/group.corvane.shared"},
    };
    // clang-format on
    for (const auto& c : cases) {
        auto named = [&] { ::setenv("CORVANE_CONTAINER", c.variable.c_str(), 1); };
        EXPECT_EQ(ordered_json::parse(run(c.arguments, named).output)["container"], c.found);
    }
}

TEST_F(Program, TellsWhatATextMeans) {
    auto when = [&](auto... more) { return json({"when", "--today", "2024-06-15", more...}); };
    EXPECT_EQ(when("MOR", "--locale", "de").dump(),
              R"({"day":"2024-06-16","time":null,"word":"Morgen"})");
    EXPECT_EQ(when("sat")["day"], "2024-06-15");
    EXPECT_EQ(when("sat", "--field")["day"], "2024-06-22");
    EXPECT_EQ(when("TOMORROW", "--field", "--locale", "de")["word"], "Morgen");
    EXPECT_EQ(when("7 pm").dump(), R"({"day":null,"time":"19:00:00","word":null})");
}

TEST_F(Program, SpeaksOfLinesThatAreNoTasksAndKeepsThem) {
    const char* content = "\xEF\xBB\xBFx (A) a\n\n+p\nb\n\xFF";
    home_.write("list.txt", content);
    Result result = run({"publish", list(), "--container", container()});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("list.txt:3: no title"));
    EXPECT_THAT(result.errors, HasSubstr("list.txt:5: not UTF-8"));
    EXPECT_EQ(json({"tasks"})["tasks"][0]["statusName"], "Completed");
    run({"add", "c", "--container", container()});
    run({"drain", list(), "--container", container()});
    EXPECT_EQ(home_.content()["list.txt"], std::string(content) + "\nc\n");
}

TEST_F(Program, MakesAListAndFollowsALinkToOne) {
    publish("a\n");
    done({"add", "b", "--due", "feb 29, 2020"});
    EXPECT_THAT(done({"drain", home_ / "new.txt"}), HasSubstr("Made the list"));
    std::filesystem::create_symlink("new.txt", home_ / "link.txt");
    done({"add", "c"});
    done({"drain", home_ / "link.txt"});
    EXPECT_EQ(home_.content()["new.txt"], "b due:2020-02-29\nc\n");
    EXPECT_EQ(home_.content()["link.txt"], "@");
    done({"add", "d"});
    done({"drain", container() + "/list.txt"});  // in the one directory that is held anyway
    EXPECT_EQ(home_.content()["container/list.txt"], "d\n");
}

}  // namespace
