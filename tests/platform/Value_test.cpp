#include "corvane/platform/Value.h"

#include "corvane/platform/Archivable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <set>

namespace corvane::platform {
namespace {

constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
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
    return {
        {Value(), nullptr, std::optional<bool>(), SharedText(), std::shared_ptr<Record>()},
        {kNaN, -kNaN, std::bit_cast<double>(0x7ff8000000000123)},
        {-kInfinity, -kInfinity},
        {kLowest, -9223372036854775808.0},
        {kLowest + 1},
        {-2.5, Value(-2.5)},
        {-2, -2.0},
        {0, 0.0, -0.0, false},
        {0.5},
        {1, 1.0, true, 1u},
        {3, 3.0, 3.0f},
        {3.5},
        {kTwoTo53, static_cast<double>(kTwoTo53)},
        {kTwoTo53 + 1},  // has no double of its own
        {kTwoTo53 + 2, static_cast<double>(kTwoTo53 + 2)},
        {kHighest},
        {9223372036854775808.0},
        {kInfinity},
        {"", std::string()},
        {"1", std::string_view("1"), SharedText("1"), std::optional<std::string>("1")},
        {"a"},
        {URL("a"), URL("a")},
        {URL("b")},
        {Instant(), Instant{}},
        {kReferenceDate},
        {EXDateOnly(), EXDateOnly::withIntegerValue(0)},
        {EXDateOnly(2024, 3, 5)},
        {EXTimeOnly()},
        {EXTimeOnly(8, 30, 15)},
        {Bytes(), Bytes{}},
        {Bytes{std::byte{0x7f}}},
        {Bytes{std::byte{0x80}}},
        {list({}), ValueList{{}, true}},
        {list({1}), list({1.0}), list({true})},
        {list({1, "a"})},
        {list({2})},
        {map({}), ValueMap{{}, true}},
        {map({{"a", 1}}), map({{"a", 1.0}})},
        {map({{"a", 1}, {"b", 0}}), map({{"b", 0}, {"a", 1}})},
        {map({{"a", 2}})},
    };
}

TEST(Value, OrderIsTotalAndAgreesWithEqualityAndHash) {
    auto groups = ascending();
    for (std::size_t i = 0; i < groups.size(); ++i) {
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
}

TEST(Value, HashesTellValuesApart) {
    std::set<std::size_t> hashes;
    for (const auto& group : ascending()) {
        hashes.insert(group.front().hash());
    }
    EXPECT_GT(hashes.size(), ascending().size() * 9 / 10);
}

TEST(Value, RecordsEqualOnlyThemselves) {
    auto one = std::make_shared<Record>(), other = std::make_shared<Record>();
    EXPECT_EQ(Value(one), Value(std::shared_ptr<Archivable>(one)));
    EXPECT_NE(Value(one), Value(other));
    EXPECT_NE(Value(one) < Value(other), Value(other) < Value(one));
    EXPECT_EQ(Value(one).hash(), Value(one).hash());
    EXPECT_LT(map({}), Value(one));
    EXPECT_EQ(Value(one).objectAs<Record>(), one);
    EXPECT_EQ(Value("one").objectAs<Record>(), nullptr);
}

TEST(Value, NumbersReadAsEachOther) {
    struct Case {
        Value value;
        std::int64_t integer;
        double real;
        bool boolean;
    } cases[] = {
        {true, 1, 1, true},
        {false, 0, 0, false},
        {-7, -7, -7, true},
        {2.9, 2, 2.9, true},
        {-2.9, -2, -2.9, true},
        {0.1, 0, 0.1, true},
        {1e300, kHighest, 1e300, true},
        {-kInfinity, kLowest, -kInfinity, true},
        {"12", 0, 0, false},
        {Value(), 0, 0, false},
        {EXDateOnly(2024, 3, 5), 0, 0, false},
    };
    for (const auto& [value, integer, real, boolean] : cases) {
        EXPECT_EQ(value.integerValue(), integer);
        EXPECT_EQ(value.realValue(), real);
        EXPECT_EQ(value.booleanValue(), boolean);
    }
    EXPECT_EQ(Value(kNaN).integerValue(), 0);
    EXPECT_TRUE(std::isnan(Value(kNaN).realValue()));
}

TEST(Value, OnlyTheContentItHoldsReadsBack) {
    auto groups = ascending();
    std::size_t contents = 0;
    for (const auto& group : groups) {
        const Value& value = group.front();
        const void* parts[] = {value.sharedText(), value.url(),  value.instant(), value.day(),
                               value.time(),       value.data(), value.list(),    value.map()};
        auto held = std::count_if(std::begin(parts), std::end(parts), std::identity());
        EXPECT_EQ(held, value.isNumber() || value.isNull() ? 0 : 1);
        contents += static_cast<std::size_t>(held);
    }
    EXPECT_EQ(contents, groups.size() - 18);  // those above the texts hold nothing or a number
}

TEST(Value, MapsAreSearchedByText) {
    Value value =
        map({{"title", "Buy milk"}, {"", 0}, {7, "seven"}, {URL("title"), 1}, {false, 2}});
    ASSERT_NE(value.find("title"), nullptr);
    EXPECT_EQ(*value.find("title"), "Buy milk");
    EXPECT_EQ(*value.find(""), 0);
    EXPECT_EQ(value.find("7"), nullptr);
    EXPECT_EQ(value.find("titles"), nullptr);
    EXPECT_EQ(Value("title").find("title"), nullptr);
}

}  // namespace
}  // namespace corvane::platform
