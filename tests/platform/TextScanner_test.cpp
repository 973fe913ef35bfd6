#include "corvane/platform/TextScanner.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace corvane::platform {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

TEST(TextScanner, ReadsIntegers) {
    struct Case {
        std::string text;
        std::int64_t number;
    } cases[] = {
        {"12ab", 12},
        {"+12", 12},
        {"-12", -12},
        {"007", 7},
        {"9223372036854775807", Limits::max()},
        {"9223372036854775808", Limits::max()},
        {"-9223372036854775808", Limits::min()},
        {"-99999999999999999999999", Limits::min()},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(TextScanner(text).scanInteger(), number) << text;
    }
    // U+200B has no width and is no white space; E2 80 is only the start of some.
    for (std::string text : {"", "-", "+-1", "- 1", "x1", "\u200B1", "\xE2\x80", "."}) {
        EXPECT_EQ(TextScanner(text).scanInteger(), std::nullopt) << text;
    }
}

TEST(TextScanner, StepsOverEveryKindOfWhiteSpace) {
    for (std::string space : {" ", "\t", "\r\n", "\v\f", "\u0085", "\u00A0", "\u1680", "\u2000",
                              "\u200A", "\u2028\u2029", "\u202F", "\u205F", "\u3000"}) {
        std::string text = space + "1" + space + "/" + space + "2";
        TextScanner scanner(text);
        EXPECT_EQ(scanner.scanInteger(), 1) << text;
        EXPECT_EQ(scanner.scanIntegerAfter('/'), 2) << text;
    }
}

TEST(TextScanner, AFailureLeavesThePosition) {
    TextScanner scanner("/2");
    EXPECT_EQ(scanner.scanInteger(), std::nullopt);
    EXPECT_EQ(scanner.scanIntegerAfter(':'), std::nullopt);
    EXPECT_EQ(scanner.scanIntegerAfter('/'), 2);
    TextScanner separators("/:2");
    EXPECT_EQ(separators.scanIntegerAfter('/'), std::nullopt);
    EXPECT_EQ(separators.scanIntegerAfter(':'), std::nullopt);
}

TEST(TextScanner, TwoSeparatorsAreNotOneAndASign) {
    EXPECT_EQ(TextScanner("--2").scanIntegerAfter('-'), std::nullopt);
    EXPECT_EQ(TextScanner("- -2").scanIntegerAfter('-'), -2);
}

}  // namespace
}  // namespace corvane::platform
