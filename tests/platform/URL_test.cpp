#include "corvane/platform/URL.h"

#include <gtest/gtest.h>

namespace corvane::platform {
namespace {

static_assert(std::regular<URL> && std::three_way_comparable<URL>);

TEST(URL, ResolvesReferences) {
    // RFC 3986, sections 5.4.1 and 5.4.2.
    // clang-format off
    const std::pair<const char*, const char*> standard[] = {
        {"g:h", "g:h"}, {"g", "http://a/b/c/g"}, {"./g", "http://a/b/c/g"},
        {"g/", "http://a/b/c/g/"}, {"/g", "http://a/g"}, {"//g", "http://g"},
        {"?y", "http://a/b/c/d;p?y"}, {"g?y", "http://a/b/c/g?y"}, {"#s", "http://a/b/c/d;p?q#s"},
        {"g#s", "http://a/b/c/g#s"}, {"g?y#s", "http://a/b/c/g?y#s"}, {";x", "http://a/b/c/;x"},
        {"g;x", "http://a/b/c/g;x"}, {"g;x?y#s", "http://a/b/c/g;x?y#s"},
        {"", "http://a/b/c/d;p?q"}, {".", "http://a/b/c/"}, {"./", "http://a/b/c/"},
        {"..", "http://a/b/"}, {"../", "http://a/b/"}, {"../g", "http://a/b/g"},
        {"../..", "http://a/"}, {"../../", "http://a/"}, {"../../g", "http://a/g"},
        {"../../../g", "http://a/g"}, {"../../../../g", "http://a/g"}, {"/./g", "http://a/g"},
        {"/../g", "http://a/g"}, {"g.", "http://a/b/c/g."}, {".g", "http://a/b/c/.g"},
        {"g..", "http://a/b/c/g.."}, {"..g", "http://a/b/c/..g"}, {"./../g", "http://a/b/g"},
        {"./g/.", "http://a/b/c/g/"}, {"g/./h", "http://a/b/c/g/h"}, {"g/../h", "http://a/b/c/h"},
        {"g;x=1/./y", "http://a/b/c/g;x=1/y"}, {"g;x=1/../y", "http://a/b/c/y"},
        {"g?y/./x", "http://a/b/c/g?y/./x"}, {"g?y/../x", "http://a/b/c/g?y/../x"},
        {"g#s/./x", "http://a/b/c/g#s/./x"}, {"g#s/../x", "http://a/b/c/g#s/../x"},
        {"http:g", "http:g"},
    };
    const std::tuple<const char*, const char*, const char*> unusualBases[] = {
        {"g", "http://a", "http://a/g"},     {"a/b", "", "a/b"},
        {"x-task:7", "", "x-task:7"},        {"b", "x-task:a", "x-task:b"},
        {"1:2", "file:///a", "file:///1:2"}, {"g", "file:///home/ann/", "file:///home/ann/g"},
        {".//host", "x:/a", "x:/.//host"},  // must not turn into the host of x://host
    };
    // clang-format on
    for (auto [relative, expected] : standard)
        EXPECT_EQ(URL::resolving(relative, URL("http://a/b/c/d;p?q")), URL(expected)) << relative;
    for (auto [relative, base, expected] : unusualBases)
        EXPECT_EQ(URL::resolving(relative, URL(base)), URL(expected)) << relative << " at " << base;
}

TEST(URL, PathsSurviveTheRoundTrip) {
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    for (const std::string& path :
         {std::string("/"), std::string("/%41"), std::string("/not\xFFutf8"),
          std::string("//twice//"), std::string("/a/../b"), everyByte}) {
        URL url = URL::fileURLWithPath(path);
        EXPECT_EQ(url.path(), path) << url;
        EXPECT_EQ(url.absoluteString().find_first_of(" #?"), std::string::npos) << url;
    }
    EXPECT_EQ(URL::fileURLWithPath("a~b-c_d.e! %"), URL("file:///a~b-c_d.e%21%20%25"));
}

TEST(URL, ReadsPaths) {
    using std::string;
    // clang-format off
    const std::tuple<const char*, std::optional<string>, string> cases[] = {
        {"file:///a/b%20c?q#f/g", "/a/b c", "b c"},      {"file://localhost/a", "/a", "a"},
        {"file:///a%00b", {}, string("a\0b", 3)},        {"file://server/a", {}, "a"},
        {"file:///100%/%4/%g1/%41", "/100%/%4/%g1/A", "A"}, {"file:///a/", "/a/", ""},
        {"http://host/x%2fy", {}, "x/y"},                {"http://host?a/b", {}, ""},
        {"mailto:ann", {}, ""},                          {"", {}, ""},
    };
    // clang-format on
    for (const auto& [text, path, lastComponent] : cases) {
        EXPECT_EQ(URL(text).path(), path) << text;
        EXPECT_EQ(URL(text).lastPathComponent(), lastComponent) << text;
    }
}

TEST(URL, AppendsComponents) {
    // clang-format off
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"file:///a", "b c", "file:///a/b%20c"},       {"file:///a/", "b", "file:///a/b"},
        {"file:///a", "b?#%", "file:///a/b%3F%23%25"}, {"file:///a/", "/b", "file:///a/b"},
        {"http://host", "b", "http://host/b"},         {"file:///a", "/b/", "file:///a/b/"},
        {"http://host/a?q=1#f", "b", "http://host/a/b?q=1#f"}, {"file:///a", "", "file:///a/"},
    };
    // clang-format on
    for (auto [url, component, expected] : cases)
        EXPECT_EQ(URL(url).appendingPathComponent(component), URL(expected)) << url;
}

}  // namespace
}  // namespace corvane::platform
