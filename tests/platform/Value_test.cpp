#include "corvane/platform/Value.h"

#include "corvane/platform/Archivable.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <set>

namespace corvane::platform {
namespace {

constexpr double kInfinity = HUGE_VAL;
constexpr std::int64_t kTwoTo53 = std::int64_t{1} << 53;

class Record : public Archivable {
  public:
    std::string_view archiveClassName() const override { return "Record"; }
    void encodeWithCoder(KeyedArchiver&) const override {}
};

Value list(std::vector<Value> items) {
    return ValueList{std::move(items)};
}

Value map(std::initializer_list<std::pair<const Value, Value>> items) {
    return ValueMap{{items}};
}

// Groups of equal values, in ascending order.
std::vector<std::vector<Value>> ascending() {
    // clang-format off
    return {
        {Value(), nullptr, std::optional<bool>(), SharedText(), std::shared_ptr<Record>()},
        {NAN, -NAN, std::bit_cast<double>(0x7ff8000000000123)}, {-kInfinity},
        {INT64_MIN, -9223372036854775808.0}, {INT64_MIN + 1}, {-2.5}, {-2, -2.0}, {0, 0.0, -0.0, false},
        {0.5}, {1, 1.0, true, 1u}, {3, 3.0, 3.0f}, {3.5}, {kTwoTo53, static_cast<double>(kTwoTo53)},
        {kTwoTo53 + 1},  // has no double of its own
        {kTwoTo53 + 2, static_cast<double>(kTwoTo53 + 2)},
        {INT64_MAX}, {9223372036854775808.0, 9223372036854775808u}, {9223372036854775809u},
        {UINT64_MAX}, {18446744073709551616.0}, {kInfinity},
        {"", std::string()}, {"1", SharedText("1"), std::optional<std::string>("1")}, {"a"},
        {URL("a"), URL("a")}, {URL("b")}, {Instant()}, {kReferenceDate},
        {EXDateOnly()}, {EXDateOnly(2024, 3, 5)}, {EXTimeOnly()}, {EXTimeOnly(8, 30, 15)},
        {Bytes(), Bytes{}}, {Bytes{std::byte{0x7f}}}, {Bytes{std::byte{0x80}}},
        {list({}), ValueList{{}, true}}, {list({1}), list({1.0}), list({true})}, {list({1, "a"})}, {list({2})},
        {map({}), ValueMap{{}, true}}, {map({{"a", 1}}), map({{"a", 1.0}})},
        {map({{"a", 1}, {"b", 0}}), map({{"b", 0}, {"a", 1}})}, {map({{"a", 2}})},
    };
    // clang-format on
}

TEST(Value, OrderIsTotalAndAgreesWithEqualityAndHash) {
    auto groups = ascending();
    std::set<std::size_t> hashes;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        hashes.insert(groups[i].front().hash());
        for (std::size_t j = 0; j < groups.size(); ++j) {
            for (const Value& a : groups[i]) {
                for (const Value& b : groups[j]) {
                    EXPECT_EQ(a <=> b, i <=> j) << "group " << i << " and " << j;
                    EXPECT_EQ(a == b, i == j) << "group " << i << " and " << j;
                    EXPECT_TRUE(i != j || a.hash() == b.hash()) << "group " << i;
                }
            }
        }
    }
    EXPECT_GT(hashes.size(), groups.size() * 9 / 10);
}

TEST(Value, RecordsEqualOnlyThemselves) {
    auto one = std::make_shared<Record>(), other = std::make_shared<Record>();
    EXPECT_EQ(Value(one), Value(std::shared_ptr<Archivable>(one)));
    EXPECT_EQ(Value(one).hash(), Value(one).hash());
    EXPECT_NE(Value(one) < Value(other), Value(other) < Value(one));
    EXPECT_EQ(Value("one").objectAs<Record>(), nullptr);
}

TEST(Value, NumbersReadAsEachOther) {
    // clang-format off
    const std::tuple<Value, std::int64_t, double, bool> cases[] = {
        {true, 1, 1, true}, {-7, -7, -7, true}, {-2.9, -2, -2.9, true}, {0.1, 0, 0.1, true},
        {1e300, INT64_MAX, 1e300, true}, {-kInfinity, INT64_MIN, -kInfinity, true},
        {"12", 0, 0, false}, {Value(), 0, 0, false},
    };
    // clang-format on
    for (const auto& [value, integer, real, boolean] : cases) {
        EXPECT_EQ(value.integerValue(), integer);
        EXPECT_EQ(value.realValue(), real);
        EXPECT_EQ(value.booleanValue(), boolean);
    }
    EXPECT_EQ(Value(NAN).integerValue(), 0);
}

TEST(Value, MapsAreSearchedByText) {
    Value value = map({{"title", "Buy milk"}, {"", 0}, {7, "seven"}, {URL("url"), 1}});
    EXPECT_EQ(*value.find("title"), "Buy milk");
    for (auto key : {"7", "titles", "url"})
        EXPECT_EQ(value.find(key), nullptr) << key;
    EXPECT_EQ(Value("title").find("title"), nullptr);
}

}  // namespace
}  // namespace corvane::platform
