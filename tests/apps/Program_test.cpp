// The program itself: each command in a process of its own, as users and scripts run it.

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <signal.h>
#include <stdlib.h>
#include <string>
#include <vector>

namespace {

using corvane::tests::TemporaryDirectory;
using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Result {
    int status;
    std::string output;
    std::string errors;
};

using Arguments = std::vector<std::string>;

/// Nothing of the user's own.
void setEnvironment(const std::string& home) {
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("LC_ALL", "C", 1);
    ::setenv("TZ", "UTC", 1);
    for (const char* name : {"CORVANE_CONTAINER", "XDG_DATA_HOME", "LANGUAGE"})
        ::unsetenv(name);
}

constexpr int kNotStarted = 127;

int becomeProgram(const Arguments& arguments) {
    std::vector<char*> argv{const_cast<char*>("corvane")};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execv(CORVANE_PROGRAM, argv.data());
    return kNotStarted;
}

std::string readAll(int pipe) {
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = ::read(pipe, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    ::close(pipe);
    return text;
}

/// A home with a list in it, and a place for a container.
class Program : public testing::Test {
  protected:
    Program() { ::chmod(home_.path().c_str(), 0755); }

    Result run(
        const Arguments& arguments, const std::function<void()>& prepare = [] {}) {
        int output[2], errors[2];
        if (::pipe(output) != 0 || ::pipe(errors) != 0) return {-1, "", ""};
        pid_t child = corvane::tests::startChild([&] {
            ::dup2(output[1], STDOUT_FILENO);
            ::dup2(errors[1], STDERR_FILENO);
            for (int end : {output[0], output[1], errors[0], errors[1]})
                ::close(end);
            setEnvironment(home_.path());
            prepare();
            return becomeProgram(arguments);
        });
        ::close(output[1]);
        ::close(errors[1]);
        Result result;
        result.output = readAll(output[0]);
        result.errors = readAll(errors[0]);
        result.status = corvane::tests::waitForChild(child);
        return result;
    }

    /// In the container of the test, and expected to work without a word of complaint.
    std::string done(Arguments arguments) {
        arguments.insert(arguments.end(), {"--container", container()});
        Result result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments[0] << ": " << result.errors;
        EXPECT_EQ(result.errors, "") << arguments[0];
        return result.output;
    }
    ordered_json json(Arguments arguments) {
        arguments.push_back("--json");
        return ordered_json::parse(done(arguments));
    }

    std::string list() const { return home_ / "list.txt"; }
    std::string container() const { return home_ / "container"; }

    TemporaryDirectory home_;
};

TEST_F(Program, CarriesTasksFromTheListToCompanionsAndBack) {
    home_.write("list.txt", "Starred +house/bath @home star:1\r\n(A) Late due:2020-01-01\r\nNote");
    EXPECT_THAT(done({"publish", list()}), StartsWith("Made the container " + container()));

    auto today = json({"show"});
    EXPECT_EQ(today["badge"], 2);
    EXPECT_EQ(today["sections"][0]["tasks"][0]["title"], "Starred");
    EXPECT_EQ(today["sections"][1]["tasks"][0]["priorityName"], "Critical");
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
    EXPECT_EQ(json({"tasks"})["tasks"].size(), 4u);
    EXPECT_EQ(json({"tasks", "--project", "No Project"})["tasks"].size(), 2u);
}

TEST_F(Program, BringsBackWhateverIsAdded) {
    home_.write("list.txt", "First +p @c\n");
    done({"publish", list()});
    const std::vector<std::string> titles{
        "x marks the spot", "(A) team",   "Buy +milk @shop due:2024-01-01", "a  b",
        "Schlüssel 💡",      "\\+escaped", "star:1 @waiting note:%41",       "x"};
    const std::string notes = "line one\nline two: 50% +x";
    for (const std::string& title : titles) {
        done({"add", title});
        done({"add", title, "--project", "p", "--category", "c", "--notes", notes, "--star"});
    }
    done({"drain", list()});
    const auto found = json({"tasks"})["tasks"];
    for (const std::string& title : titles) {
        int plain = 0, full = 0;
        for (const auto& task : found) {
            if (task["title"] != title) continue;
            plain += task["project"].is_null() && task["category"].is_null() &&
                     task["notes"].is_null() && task["status"] == 0 && !task["starred"];
            full += task["project"] == "p" && task["category"] == "c" && task["notes"] == notes &&
                    task["starred"] == true && task["priority"] == 2 && task["due"].is_null();
        }
        EXPECT_EQ(plain, 1) << title;
        EXPECT_EQ(full, 1) << title;
    }
    EXPECT_EQ(found.size(), 1 + 2 * titles.size());
}

TEST_F(Program, TakesTasksThatManyCompanionsAddAtOnce) {
    home_.write("list.txt", "");
    done({"publish", list()});
    std::vector<pid_t> children;
    for (int i = 0; i < 20; ++i) {
        children.push_back(corvane::tests::startChild([&] {
            ::close(STDOUT_FILENO);
            ::open("/dev/null", O_WRONLY);
            return becomeProgram({"add", std::to_string(i), "--container", container()});
        }));
    }
    for (pid_t child : children)
        EXPECT_EQ(corvane::tests::waitForChild(child), 0);
    EXPECT_THAT(done({"drain", list()}), StartsWith("Added 20 tasks"));
}

TEST_F(Program, ExitsWithTwoForWrongUsageAndOneForFailure) {
    home_.write("list.txt", "a\n");
    done({"publish", list()});
    const std::string missing = home_ / "missing";
    const struct {
        Arguments arguments;
        int status;
        const char* error;
        std::string container;
    } cases[] = {
        {{}, 2, "a command is needed", container()},
        {{"dance"}, 2, "there is no command 'dance'", container()},
        {{"show", "yesterday"}, 2, "there is no view 'yesterday'", container()},
        {{"show", "today", "next"}, 2, "next", container()},
        {{"publish"}, 2, "FILE is required", container()},
        {{"add"}, 2, "TITLE is required", container()},
        {{"add", " \n"}, 2, "a task needs a title", container()},
        {{"add", "a\xFF"}, 2, "not UTF-8", container()},
        {{"add", "a", "--due", "2023-02-29"}, 2, "is not a day", container()},
        {{"add", "a", "--priority", "urgent"}, 2, "no priority 'urgent'", container()},
        {{"status"}, 2, "--container", ""},
        {{"publish", missing}, 1, "No such file", container()},
        {{"publish", home_.path()}, 1, "directory", container()},
        {{"drain", missing + "/list"}, 1, "No such file", container()},
        {{"tasks", "--project", "p"}, 1, "there is no project 'p'", container()},
        {{"inspect", missing}, 1, "No such file", container()},
        {{"inspect", list()}, 1, "not a keyed archive", container()},
        {{"status"}, 1, "there is no container", missing},
        {{"show"}, 1, "there is no container", missing},
        {{"drain", list()}, 1, "there is no container", missing},
        {{"publish", list()}, 1, "No such file", missing + "/inner"},
        {{"show"}, 1, "nothing was published", home_.path()},
        {{"add", "a"}, 1, "nothing was published", home_.path()},
    };
    const auto before = home_.content();
    for (const auto& c : cases) {
        Arguments arguments{"--container", c.container};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        Result result = run(arguments);
        EXPECT_EQ(result.status, c.status) << testing::PrintToString(c.arguments);
        EXPECT_THAT(result.errors, HasSubstr(c.error)) << testing::PrintToString(c.arguments);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), c.status);
    }
    EXPECT_EQ(home_.content(), before);
}

TEST_F(Program, HelpsEverywhere) {
    EXPECT_THAT(run({"--version"}).output, StartsWith("corvane "));
    EXPECT_THAT(run({"--help"}).output, HasSubstr("As a companion:"));
    for (const char* command : {"publish", "drain", "show", "projects", "categories", "tasks",
                                "add", "status", "inspect"}) {
        Result result = run({command, "--help"});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.output, HasSubstr(std::string("Usage: corvane ") + command));
    }
}

TEST_F(Program, FindsTheContainerThatItIsToldOf) {
    home_.write("list.txt", "a\n");
    done({"publish", list()});
    auto containerOf = [&](const Arguments& arguments, const char* variable, const char* value) {
        Result result = run(arguments, [&] { ::setenv(variable, value, 1); });
        return ordered_json::parse(result.output)["container"];
    };
    const std::string path = container();
    EXPECT_EQ(containerOf({"--container", path, "status", "--json"}, "", ""), path);
    EXPECT_EQ(containerOf({"status", "--json", "--container", path}, "", ""), path);
    EXPECT_EQ(containerOf({"status", "--container=" + path, "--json"}, "CORVANE_CONTAINER", "/x"),
              path);
    EXPECT_EQ(containerOf({"status", "--json"}, "CORVANE_CONTAINER", path.c_str()), path);
    EXPECT_EQ(containerOf({"status", "--json"}, "", ""),
              home_ / ".local/share/group.corvane.shared");
}

TEST_F(Program, LeavesEverythingAsItWasWhereItCannotWrite) {
    home_.write("list.txt", "a\n");
    done({"publish", list()});
    done({"add", "b"});
    const auto before = home_.content();
    const std::vector<std::function<void()>> obstacles{
        [] {  // a full disk
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{0, 0};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        },
        [] {  // a directory of somebody else; for the superuser there is none
            if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(1);
        },
    };
    ::chmod(container().c_str(), 0555);
    ::chmod((container() + "/insert-queue").c_str(), 0555);
    ::chmod(home_.path().c_str(), 0555);
    for (const auto& obstacle : obstacles) {
        for (const char* command : {"publish", "drain", "add"}) {
            Result result = run({command, list(), "--container", container()}, obstacle);
            if (result.status == kNotStarted) GTEST_SKIP() << "another user cannot start this";
            EXPECT_EQ(result.status, 1) << command;
            EXPECT_THAT(result.errors, StartsWith("corvane: cannot ")) << command;
            EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << command;
        }
        EXPECT_TRUE(home_.content() == before);
    }
    ::chmod(home_.path().c_str(), 0755);
    ::chmod(container().c_str(), 0755);
    ::chmod((container() + "/insert-queue").c_str(), 0755);
    EXPECT_THAT(done({"drain", list()}), StartsWith("Added 1 task"));
}

TEST_F(Program, NoticesThatItsOutputIsLost) {
    home_.write("list.txt", "a\n");
    done({"publish", list()});
    Result result = run({"show", "--container", container()},
                        [] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); });
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "corvane: cannot write the output\n");
}

TEST_F(Program, SpeaksOfLinesThatAreNoTasksAndKeepsThem) {
    home_.write("list.txt", "a\n+p\n\xFF\n");
    for (const char* command : {"publish", "drain"}) {
        Result result = run({command, list(), "--container", container()});
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.errors, HasSubstr("list.txt:2: no title"));
        EXPECT_THAT(result.errors, HasSubstr("list.txt:3: not UTF-8"));
    }
    EXPECT_EQ(home_.content()["list.txt"], "a\n+p\n\xFF\n");
}

TEST_F(Program, MakesAListAndFollowsALinkToOne) {
    home_.write("list.txt", "a\n");
    done({"publish", list()});
    done({"add", "b"});
    EXPECT_THAT(done({"drain", home_ / "new.txt"}), StartsWith("Made the list"));
    std::filesystem::create_symlink("new.txt", home_ / "link.txt");
    done({"add", "c"});
    done({"drain", home_ / "link.txt"});
    done({"add", "d"});
    done({"drain", container() + "/list.txt"});  // in the one directory that is held anyway
    EXPECT_EQ(home_.content()["container/list.txt"], "d\n");
    EXPECT_EQ(home_.content()["new.txt"], "b\nc\n");
    EXPECT_EQ(home_.content()["link.txt"], "@");
}

TEST_F(Program, ShowsArchivesAsJson) {
    home_.write("list.txt", "a +p\n");
    done({"publish", list()});
    const auto info = ordered_json::parse(done({"inspect", container() + "/shared-info.archive"}));
    EXPECT_EQ(info["HGSharedInfoBadgeValuesKey"]["HGSharedInfoBadgeValueNextKey"], 1);
    const auto repository =
        ordered_json::parse(done({"inspect", container() + "/shared-repository.archive"}));
    EXPECT_EQ(repository["$class"], "HGSharedRepository");
    EXPECT_EQ(repository["HGSharedRepositoryTaskProxies"]["$map"][0][1]["HGTaskProxyTitle"], "a");
}

}  // namespace
