#include "corvane/bridge/EXURLParser.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace corvane {
namespace {

using Query = std::map<std::string, std::optional<std::string>>;
constexpr auto parameter = EXURLParser::percentEncodeParameter;
constexpr auto plus = EXURLParser::percentPlusEncodeString;

std::optional<Query> parsed(std::optional<std::string_view> text) {
    const auto query = EXURLParser::parseQuery(text);
    if (!query) return std::nullopt;
    Query result;
    for (const auto& [key, value] : *query)
        EXPECT_TRUE(result.try_emplace(std::string(key), value).second) << key;
    return result;
}

TEST(EXURLParser, ParsesEveryPieceOrNothing) {
    const std::string cases[][3] = {
        {"A-Z_a.z~0 b&c=d/ü", "A-Z_a.z~0+b%26c%3Dd%2F%C3%BC", "A-Z_a.z~0%20b%26c%3Dd%2F%C3%BC"},
        {"!$'()*,:@", "%21%24%27%28%29%2A%2C%3A%40", "!$'()*,:@"},
        {{"+?;%#\xFF\0b", 8}, "%2B%3F%3B%25%23%FF", "%2B%3F%3B%25%23%FF%00b"}};
    for (const auto& [text, form, code] : cases)
        EXPECT_EQ(std::pair(plus(text), parameter(text)), std::pair(form, code));
    const std::pair<std::optional<std::string>, Query> readable[] = {
        {std::nullopt, {}},
        {"", {{"", {}}}},
        {"title=Buy+milk&n=2%2B2&flag", {{"title", "Buy milk"}, {"n", "2+2"}, {"flag", {}}}},
        {"a=1&a&b&b=2&b=&&x=1=2", {{"a", {}}, {"b", ""}, {"", {}}, {"x", "1=2"}}},
        {"%26+%3d=%c3%BC&=ü", {{"& =", "ü"}, {"", "ü"}}}};
    for (const auto& [query, parameters] : readable)
        EXPECT_EQ(parsed(query), parameters);
    const std::string_view unreadable[] = {"a=%ZZ", {"%41", 2}, "%4&41", "%C3&b=%BC", "\xC3=1"};
    for (const auto query : unreadable)
        EXPECT_FALSE(parsed(query)) << query;
    EXPECT_EQ(EXURLParser::percentDecodeParameter("a+b%2b"), "a+b+");
}

TEST(EXURLParser, WhatIsEncodedComesBackWhereItIsText) {
    const std::string characters[] = {{"\0", 1}, "ü", "🌱", "&", "=", "+", "%41", " ", "abcdefghij"};
    std::mt19937 random(7);
    for (int round = 0; round < 1000; ++round) {
        std::string text;
        for (auto count = random() % 300; count > 0; --count)
            text += characters[random() % 99 ? random() % 8 + 1 : 0];
        if (round % 2) text.insert(random() % (text.size() + 1), 1, '\xFF');
        for (const auto& [value, code] :
             {std::pair(text, parameter(text)), {text.substr(0, text.find('\0')), plus(text)}})
            EXPECT_EQ(parsed(code + "=" + code).value_or(Query()),
                      value.find('\xFF') == value.npos ? Query({{value, value}}) : Query());
    }
}

TEST(EXURLParser, AnswersByKeyForAsLongAsTheQueryLives) {
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "longer-key" + std::to_string(i * 7 % 400) + "=" + std::to_string(i) + "&";
    EXURLQuery query;
    {
        const auto original = EXURLParser::parseQuery(std::string(text)).value();
        query = original;
    }
    text.clear();
    EXPECT_EQ(query.size(), 401U);
    for (int i = 100; i < 500; ++i)
        EXPECT_EQ(query.at("longer-key" + std::to_string(i * 7 % 400)), std::to_string(i));
    EXPECT_TRUE(query.contains("") && !query.contains("longer-key"));
    EXPECT_THROW(query.at("longer-key400"), std::out_of_range);
    EXPECT_TRUE(EXURLQuery().empty() && EXURLQuery() != query);
    EXPECT_TRUE(std::is_sorted(query.begin(), query.end()));
}

}  // namespace
}  // namespace corvane
