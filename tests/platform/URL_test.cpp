#include "corvane/platform/URL.h"

#include <gtest/gtest.h>

#include <set>
#include <unordered_set>

namespace corvane::platform {
namespace {

static_assert(std::regular<URL> && std::three_way_comparable<URL>);

TEST(URL, AnswersAsItsHeaderShows) {
    auto notes = URL::fileURLWithPath("/home/ann/50% done");
    EXPECT_EQ(notes.absoluteString(), "file:///home/ann/50%25%20done");
    EXPECT_EQ(notes.lastPathComponent(), "50% done");
    EXPECT_EQ(notes.appendingPathComponent("a#1").path(), "/home/ann/50% done/a#1");
    EXPECT_EQ(URL::resolving("../bob", notes), URL("file:///home/bob"));
}

TEST(URL, ResolvesTheCasesOfTheStandard) {
    // RFC 3986, sections 5.4.1 and 5.4.2.
    const URL base("http://a/b/c/d;p?q");
    const std::pair<const char*, const char*> cases[] = {
        {"g:h", "g:h"},
        {"g", "http://a/b/c/g"},
        {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"},
        {"/g", "http://a/g"},
        {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"},
        {"g?y", "http://a/b/c/g?y"},
        {"#s", "http://a/b/c/d;p?q#s"},
        {"g#s", "http://a/b/c/g#s"},
        {"g?y#s", "http://a/b/c/g?y#s"},
        {";x", "http://a/b/c/;x"},
        {"g;x", "http://a/b/c/g;x"},
        {"g;x?y#s", "http://a/b/c/g;x?y#s"},
        {"", "http://a/b/c/d;p?q"},
        {".", "http://a/b/c/"},
        {"./", "http://a/b/c/"},
        {"..", "http://a/b/"},
        {"../", "http://a/b/"},
        {"../g", "http://a/b/g"},
        {"../..", "http://a/"},
        {"../../", "http://a/"},
        {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"},
        {"../../../../g", "http://a/g"},
        {"/./g", "http://a/g"},
        {"/../g", "http://a/g"},
        {"g.", "http://a/b/c/g."},
        {".g", "http://a/b/c/.g"},
        {"g..", "http://a/b/c/g.."},
        {"..g", "http://a/b/c/..g"},
        {"./../g", "http://a/b/g"},
        {"./g/.", "http://a/b/c/g/"},
        {"g/./h", "http://a/b/c/g/h"},
        {"g/../h", "http://a/b/c/h"},
        {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
        {"g;x=1/../y", "http://a/b/c/y"},
        {"g?y/./x", "http://a/b/c/g?y/./x"},
        {"g?y/../x", "http://a/b/c/g?y/../x"},
        {"g#s/./x", "http://a/b/c/g#s/./x"},
        {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    for (auto [relative, expected] : cases) {
        EXPECT_EQ(URL::resolving(relative, base), URL(expected)) << relative;
    }
}

TEST(URL, ResolvesAgainstUnusualBases) {
    struct Case {
        const char *relative, *base, *expected;
    } cases[] = {
        {"g", "http://a", "http://a/g"},
        {"a/b", "", "a/b"},
        {"x-task:7", "", "x-task:7"},
        {"b", "x-task:a", "x-task:b"},
        {"g", "file:///home/ann/", "file:///home/ann/g"},
        {".//host", "x:/a", "x:/.//host"},  // must not turn into the host of x://host
        {"1:2", "file:///a", "file:///1:2"},
    };
    for (const auto& [relative, base, expected] : cases) {
        EXPECT_EQ(URL::resolving(relative, URL(base)), URL(expected)) << relative << " at " << base;
    }
}

TEST(URL, PathsSurviveTheRoundTrip) {
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    for (std::string path : {std::string("/"), std::string("/a b/50%/c#d?e"), std::string("/%41"),
                             std::string("/\xC3\xA4/\xF0\x9F\x98\x80"), std::string("/not\xFFutf8"),
                             std::string("//twice//"), std::string("/a/../b"), everyByte}) {
        URL url = URL::fileURLWithPath(path);
        EXPECT_TRUE(url.isFileURL());
        EXPECT_EQ(url.path(), path) << url;
        EXPECT_EQ(url.absoluteString().find_first_of(" #?"), std::string::npos) << url;
    }
    EXPECT_EQ(URL::fileURLWithPath("a~b-c_d.e!"), URL("file:///a~b-c_d.e%21"));
}

TEST(URL, ReadsPaths) {
    struct Case {
        const char* url;
        std::optional<std::string> path;
        std::string lastComponent;
    } cases[] = {
        {"file:///a/b%20c?q#f/g", "/a/b c", "b c"},
        {"file://localhost/a", "/a", "a"},
        {"file://server/a", std::nullopt, "a"},
        {"file:///a%00b", std::nullopt, std::string("a\0b", 3)},
        {"file:///100%/%4/%g1/%41", "/100%/%4/%g1/A", "A"},
        {"file:///a/", "/a/", ""},
        {"http://host/x%2fy", std::nullopt, "x/y"},
        {"http://host?a/b", std::nullopt, ""},
        {"mailto:ann", std::nullopt, ""},
        {"", std::nullopt, ""},
    };
    for (const auto& [text, path, lastComponent] : cases) {
        EXPECT_EQ(URL(text).path(), path) << text;
        EXPECT_EQ(URL(text).lastPathComponent(), lastComponent) << text;
    }
}

TEST(URL, AppendsComponents) {
    struct Case {
        const char *url, *component, *expected;
    } cases[] = {
        {"file:///a", "b c", "file:///a/b%20c"},
        {"file:///a/", "b", "file:///a/b"},
        {"file:///a/", "/b", "file:///a/b"},
        {"file:///a", "/b/", "file:///a/b/"},
        {"file:///a", "b?#%", "file:///a/b%3F%23%25"},
        {"http://host", "b", "http://host/b"},
        {"http://host/a?q=1#f", "b", "http://host/a/b?q=1#f"},
        {"file:///a", "", "file:///a/"},
    };
    for (const auto& [url, component, expected] : cases) {
        EXPECT_EQ(URL(url).appendingPathComponent(component), URL(expected)) << url;
    }
}

TEST(URL, IsComparedByItsExactText) {
    URL a("x:a"), sameText("x:a"), b("x:b");
    EXPECT_EQ(a, sameText);
    EXPECT_LT(a, b);
    EXPECT_NE(URL("x:%41"), URL("x:A"));
    EXPECT_EQ(URL(), URL(""));
    EXPECT_EQ((std::set<URL>{b, a, sameText, URL()}.size()), 3u);
    EXPECT_EQ((std::unordered_set<URL>{b, a, sameText, URL()}.size()), 3u);
    URL taken = std::move(a);
    EXPECT_EQ(taken, sameText);
    EXPECT_NE(a, taken);  // NOLINT: a moved-from URL can still be read
}

}  // namespace
}  // namespace corvane::platform
