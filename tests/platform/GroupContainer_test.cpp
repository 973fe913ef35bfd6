#include "corvane/platform/GroupContainer.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

namespace corvane::platform {
namespace {

using Text = std::optional<std::string>;

void set(const char* variable, const Text& value) {
    value ? ::setenv(variable, value->c_str(), 1) : ::unsetenv(variable);
}

Text containerPath(std::string_view group = "group.example") {
    auto url = containerURLForSecurityApplicationGroupIdentifier(group);
    return url ? url->path() : std::nullopt;
}

/// The same as a text, in a process of its own with these variables.
std::string pathWith(const Text& container, const Text& data, const Text& home,
                     std::string_view group = "group.example") {
    tests::TemporaryDirectory result;
    tests::runInChild([&] {
        set("CORVANE_CONTAINER", container);
        set("XDG_DATA_HOME", data);
        set("HOME", home);
        result.write("path", containerPath(group).value_or("none"));
        return 0;
    });
    return result.content()["path"];
}

TEST(GroupContainer, TakesTheFirstPlaceThatIsNamed) {
    tests::TemporaryDirectory directory;
    const std::string a = directory / "a b", data = directory / "data", home = directory / "home";
    const std::string here = std::filesystem::current_path().native();
    // clang-format off
    const std::tuple<Text, Text, Text, std::string, bool> cases[] = {
        {a, "/env", data, a, false}, {"sub/dir", "/env", data, here + "/sub/dir", false},
        {{}, a, data, a, false}, {{}, "rel", data, here + "/rel", false},
        {{}, {}, data, data + "/group.example", true},
        {{}, "", data, data + "/group.example", true},
        {{}, {}, "rel", home + "/.local/share/group.example", true},
        {{}, {}, "", home + "/.local/share/group.example", true},
        {{}, {}, {}, home + "/.local/share/group.example", true},
    };
    // clang-format on
    for (const auto& [override, variable, dataHome, expected, created] : cases) {
        ScopedGroupContainer inForce(override);
        EXPECT_EQ(pathWith(variable, dataHome, home), expected);
        EXPECT_EQ(std::filesystem::is_directory(expected), created) << expected;
        for (const auto& [name, kind] : directory.content()) {
            struct stat status {};
            ASSERT_EQ(::stat((directory / name).c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 0777, 0700u) << name;
        }
        std::filesystem::remove_all(data);
        std::filesystem::remove_all(home);
        EXPECT_TRUE(directory.content().empty());
    }
}

TEST(GroupContainer, IsNoneWhereNoDirectoryCanBe) {
    tests::TemporaryDirectory directory;
    for (std::string_view group : {"", ".", "..", "a/b", "/"})
        EXPECT_EQ(pathWith({}, directory.path(), "/", group), "none") << group;
    EXPECT_TRUE(directory.content().empty());
    directory.write("group.example", "a file in the way");
    EXPECT_EQ(pathWith({}, directory.path(), "/"), "none");
    ScopedGroupContainer empty("");
    EXPECT_EQ(containerPath(), std::nullopt);
}

TEST(GroupContainer, IsNoneForAUserWithoutHome) {
    if (::getuid() != 0) GTEST_SKIP() << "only the superuser can become nobody";
    EXPECT_EQ(0, tests::runInChild([] {
                  for (const char* variable : {"CORVANE_CONTAINER", "XDG_DATA_HOME", "HOME"})
                      set(variable, {});
                  if (::setuid(54321) != 0) return 2;  // a number that no account has
                  return containerPath() ? 1 : 0;
              }));
}

}  // namespace
}  // namespace corvane::platform
