#include "corvane/platform/UserDefaults.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/ManualRunLoop.h"
#include "corvane/platform/PropertyListValue.h"

#include "tests/support/ForeignArchive.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cmath>
using namespace corvane::platform;
Value nested(unsigned depth) {
    return depth == 0  ? Value(1)
           : depth % 2 ? Value(ValueList{{nested(depth - 1)}})
                       : Value(ValueMap{{{"k", nested(depth - 1)}}});
}
std::string fileOf(const Value& value) {
    const auto bytes = propertyListFromValue(value).value_or(Bytes());
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
std::optional<Value> valueOf(const std::string& file) {
    return valueFromPropertyList(std::as_bytes(std::span(file)));
}
TEST(PropertyListValue, KeepsWhatAFileCanHoldAndRefusesTheRest) {
    for (const Value& value : {Value(true),
                               Value(-1),
                               Value(INT64_MIN),
                               Value(INT64_MAX),
                               Value(INT64_MAX + 1ull),
                               Value(UINT64_MAX),
                               Value(0.5),
                               Value(0.1),
                               Value(1e300),
                               Value(NAN),
                               Value(-HUGE_VAL),
                               Value(""),
                               Value("Füchsia 🌱"),
                               Value(std::string(70000, 'x')),
                               Value(Bytes(300)),
                               Value(kReferenceDate + std::chrono::microseconds(1)),
                               Value(ValueList()),
                               Value(ValueMap()),
                               nested(kPropertyListDepth),
                               Value(ValueMap{{{"", ValueList{{1, "a"}}}, {"ä", 2.5}}})})
        EXPECT_TRUE(valueOf(fileOf(value)) == value &&
                    valueOf(fileOf(value))->kind() == value.kind())
            << static_cast<int>(value.kind()) << " " << value.realValue();
    EXPECT_EQ(fileOf(0.1f).size() + 4, fileOf(0.1).size())
        << "single precision takes half the bytes";
    for (const Value& value :
         {Value(), Value(ValueList{{Value()}}), Value(ValueMap{{{1, 1}}}), Value(URL("u:")),
          Value(corvane::EXDateOnly(2024, 1, 1)), Value(Instant::min()), Value(Instant::max()),
          nested(kPropertyListDepth + 1), Value(std::string(kPropertyListWeight, 'x')),
          Value(std::string(kPropertyListWeight / 2, '\xff')),  // is written in thrice the bytes
          Value(ValueList{std::vector<Value>(1 << 20, 1)})})
        EXPECT_EQ(fileOf(value), "");
    for (auto [depth, width] :
         {std::pair(60u, 2u), {kPropertyListDepth + 1, 1}}) {  // too much, too deep
        corvane::tests::ForeignArchive bomb;
        for (unsigned i = 0; i < depth; ++i)
            bomb.array(std::vector<std::uint64_t>(width, i + 1));
        EXPECT_FALSE(valueFromPropertyList(bomb.framed(bomb.integer(1) - depth)));
    }
}
struct UserDefaultsTest : testing::Test {
    corvane::tests::TemporaryDirectory home;
    const std::string name = "new/settings.plist", path = home / name;
    std::optional<Value> written() { return valueOf(home.content()[name]); }
    RecordingConsole console;
    ScopedConsole scope{console};
};
TEST_F(UserDefaultsTest, ShareChangesAndFallBack) {
    UserDefaults one(path), other(path);
    one.registerFallbacks({{"a", 1}, {"b", 2}});
    EXPECT_TRUE(home.content().empty());
    other.setValue("b", "other"), one.setValue("a", "one");
    EXPECT_TRUE(UserDefaults(path).value("a") == "one" && one.value("b") == "other")
        << "neither loses what the other one wrote";
    other.setValue("a", 3), one.reload(), other.setValue("a", 4), one.writeBack("a", "3");
    EXPECT_EQ(one.value("a"), 4) << "what was made of the 3 gives way";
    one.writeBack("a", "4"), other.reload(), one.setValue("a", {});
    EXPECT_TRUE(other.value("a") == "4" && one.value("a") == 1 &&
                written() == Value(ValueMap{{{"b", "other"}}}));
}
TEST_F(UserDefaultsTest, LoseNothingToDamageAndObstacles) {
    const auto whole = fileOf(ValueMap{{{"a", 1}}});
    std::filesystem::create_directory(home / "new");
    for (const auto& damaged : {std::string(), std::string("no settings"), whole.substr(1),
                                fileOf(ValueList()), whole + "\n"}) {
        UserDefaults(home.write(name, damaged)).setValue("b", 1);
        const auto aside =
            name + ".damaged" +
            (console.lines().size() > 1 ? "-" + std::to_string(console.lines().size()) : "");
        EXPECT_TRUE(written() && home.content()[aside] == damaged &&
                    console.lines().back().find(aside + "'") != std::string::npos)
            << aside;
    }
    const auto obstruct = [&] {
        std::filesystem::remove_all(home / "new"), home.write("new", "in the way");
    };
    UserDefaults defaults((obstruct(), path));
    defaults.setValue("a", 1), defaults.setValue("b", 1);
    EXPECT_TRUE(defaults.value("a") == 1 && defaults.synchronize() &&
                console.lines().size() == 5 + 2)
        << "reported once for reading, once for writing";
    std::filesystem::remove(home / "new"), std::filesystem::create_directories(path);
    EXPECT_TRUE(defaults.synchronize() && std::filesystem::remove(path))
        << "what cannot be read is not replaced";
    ManualRunLoop loop;
    const ScopedMainRunLoop inForce(loop);
    loop.post([&] {
        defaults.setValue("c", 1);
        EXPECT_FALSE(written()) << "not within the turn";
    });
    loop.runTurn();
    EXPECT_EQ(written(), Value(ValueMap{{{"a", 1}, {"b", 1}, {"c", 1}}})) << "at its end";
    obstruct(), loop.post([&] { defaults.setValue("c", 2); }), loop.runTurn();
    std::filesystem::remove(home / "new"), loop.advance(60);
    EXPECT_EQ(written(), Value(ValueMap{{{"c", 2}}})) << "tried again";
    loop.post([&] {
        defaults.setValue("c", 3);
        EXPECT_EQ(loop.runTurn(), 1u) << "a loop within the turn is woken";
        EXPECT_EQ(written(), Value(ValueMap{{{"c", 3}}}));
    });
    loop.runTurn();
}
