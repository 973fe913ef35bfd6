#include "corvane/platform/GroupContainer.h"

#include "corvane/platform/Files.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

namespace corvane::platform {
namespace {

constexpr std::string_view kGroup = "group.example";

/// Sets a variable, or unsets it for none, until the end of the scope.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* previous = std::getenv(name)) previous_ = previous;
        set(value);
    }
    ~ScopedVariable() { set(previous_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

  private:
    void set(const std::optional<std::string>& value) {
        value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> previous_;
};

using Text = std::optional<std::string>;

Text containerPath(std::string_view group = kGroup) {
    auto url = containerURLForSecurityApplicationGroupIdentifier(group);
    return url ? url->path() : std::nullopt;
}

TEST(GroupContainer, TakesTheFirstPlaceThatIsNamed) {
    tests::TemporaryDirectory directory;
    const std::string a = directory / "a b", data = directory / "data", home = directory / "home";
    const std::string here = std::filesystem::current_path().native();
    const Text no;
    const struct {
        Text inForce, variable, data, home;
        std::string expected;
        bool created;
    } cases[] = {
        {a, "/env", data, home, a, false},
        {"sub/dir", "/env", data, home, here + "/sub/dir", false},
        {no, a, data, home, a, false},
        {no, "rel", data, home, here + "/rel", false},
        {no, no, data, home, data + "/group.example", true},
        {no, "", data, home, data + "/group.example", true},
        {no, no, "rel", home, home + "/.local/share/group.example", true},
        {no, no, "", home, home + "/.local/share/group.example", true},
        {no, no, no, home, home + "/.local/share/group.example", true},
    };
    for (const auto& c : cases) {
        ScopedGroupContainer inForce(c.inForce);
        ScopedVariable container("CORVANE_CONTAINER", c.variable);
        ScopedVariable xdg("XDG_DATA_HOME", c.data);
        ScopedVariable homeVariable("HOME", c.home);
        EXPECT_EQ(containerPath(), c.expected);
        EXPECT_EQ(isDirectory(c.expected), c.created) << c.expected;
        for (const auto& [name, kind] : directory.content()) {
            struct stat status {};
            ASSERT_EQ(::stat((directory / name).c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 0777, 0700u) << name;
        }
        if (c.created) {
            EXPECT_FALSE(removeFile(c.expected.starts_with(data) ? data : home));
        }
        EXPECT_TRUE(directory.content().empty());
    }
}

TEST(GroupContainer, IsNoneWhereNoDirectoryCanBe) {
    tests::TemporaryDirectory directory;
    auto before = directory.content();
    ScopedGroupContainer inForce(std::nullopt);
    ScopedVariable container("CORVANE_CONTAINER", std::nullopt);
    ScopedVariable xdg("XDG_DATA_HOME", directory.path());
    for (std::string_view group : {"", ".", "..", "a/b", "/"}) {
        EXPECT_EQ(containerPath(group), std::nullopt) << group;
    }
    EXPECT_EQ(directory.content(), before);
    directory.write("group.example", "a file in the way");
    EXPECT_EQ(containerPath(), std::nullopt);
    ScopedGroupContainer empty("");
    EXPECT_EQ(containerPath(), std::nullopt);
}

TEST(GroupContainer, IsNoneForAUserWithoutHome) {
    if (::getuid() != 0) GTEST_SKIP() << "only the superuser can become nobody";
    EXPECT_EQ(0, tests::runInChild([] {
                  ::unsetenv("CORVANE_CONTAINER");
                  ::unsetenv("XDG_DATA_HOME");
                  ::unsetenv("HOME");
                  if (::setuid(54321) != 0) return 2;  // a number that no account has
                  return containerPath() ? 1 : 0;
              }));
}

}  // namespace
}  // namespace corvane::platform
