#include "corvane/platform/KeyedArchiver.h"

#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/BigEndian.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/PropertyListFormat.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace corvane::platform {
namespace {

Value readBack(const Bytes& archive) {
    return KeyedUnarchiver::unarchiveData(archive, ArchivedRecord::anyClass());
}

Value roundTrip(const Value& value) {
    return readBack(KeyedArchiver::archivedData(value).value());
}

/// A record that can refer to another, for identity and cycles.
class Node final : public Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "Node";
    Node() = default;
    explicit Node(KeyedUnarchiver& coder) : next(coder.decodeObject<Node>("next")) {}
    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(KeyedArchiver& coder) const override { coder.encodeObject("next", next); }

    std::shared_ptr<Node> next;
};

TEST(KeyedArchiver, EveryKindOfValueComesBackEqual) {
    const std::vector<Value> values = {
        true,
        false,
        0,
        1,
        127,
        128,
        255,
        256,
        65535,
        65536,
        4294967295,
        4294967296,
        std::numeric_limits<std::int64_t>::max(),
        -1,
        std::numeric_limits<std::int64_t>::min(),
        0.0,
        -0.5,
        1e300,
        "",
        "plain",
        "Grüße, 日本 🗓",
        std::string(20, 'x'),
        std::string(70000, 'y'),
        URL("x-coredata://A/Task/p1"),
        URL("file:///a%20b"),
        kReferenceDate,
        Instant(std::chrono::microseconds(1'700'000'000'123'456)),
        EXDateOnly(2024, 3, 5),
        Bytes(300, std::byte{7}),
        ValueList{{1, "two", nullptr, 3.5}, true},
        ValueMap{{{"key", ValueList{}}, {URL("a:b"), nullptr}}, false}};
    for (const Value& value : values) {
        Value result = roundTrip(value);
        EXPECT_EQ(result, value);
        EXPECT_EQ(result.kind(), value.kind());
    }
    EXPECT_EQ(roundTrip(ValueList{values}), Value(ValueList{values}));
    EXPECT_TRUE(roundTrip(Value()).isNull());
    EXPECT_EQ(roundTrip(EXTimeOnly(8, 30, 15)), Value(0x81E0F)) << "a time is stored as its number";
}

TEST(KeyedArchiver, TheTextThatStandsForAbsentSurvives) {
    EXPECT_EQ(roundTrip("$null"), Value("$null"));
    EXPECT_EQ(roundTrip(ValueList{{"$null", "$null", "null"}}),
              Value(ValueList{{"$null", "$null", "null"}}));
    EXPECT_EQ(roundTrip(URL("$null")), Value(URL("$null")));
}

TEST(KeyedArchiver, IllFormedTextIsWrittenWithReplacementCharacters) {
    EXPECT_EQ(roundTrip("a\xFF"
                        "b"),
              Value("a\uFFFD"
                    "b"));
    EXPECT_EQ(roundTrip("\xED\xA0\x80"), Value("\uFFFD\uFFFD\uFFFD")) << "an encoded surrogate";
}

TEST(KeyedArchiver, EqualTextsURLsAndDaysAreStoredOnce) {
    const std::string text(1000, 't');
    const Value one = ValueList{{text, URL(text), EXDateOnly(2024, 3, 5)}};
    const Value many = ValueList{std::vector<Value>(500, one)};
    const Value fresh = ValueList{{text, text, URL(text), URL(text), EXDateOnly(2024, 3, 5)}};
    EXPECT_LT(KeyedArchiver::archivedData(many)->size(), 4000u);
    EXPECT_LT(KeyedArchiver::archivedData(fresh)->size(), 2000u);
}

TEST(KeyedArchiver, OneObjectStaysOneObject) {
    auto shared = std::make_shared<Node>();
    auto classes = ArchiveClasses().add<Node>();
    auto data = KeyedArchiver::archivedData(ValueList{{shared, shared, std::make_shared<Node>()}});
    Value result = KeyedUnarchiver::unarchiveData(*data, classes);
    ASSERT_TRUE(result.list());
    const auto& items = result.list()->items;
    EXPECT_EQ(items[0].objectAs<Node>(), items[1].objectAs<Node>());
    EXPECT_NE(items[0].objectAs<Node>(), items[2].objectAs<Node>());
}

TEST(KeyedArchiver, ACycleIsWrittenButRefusedOnReading) {
    auto node = std::make_shared<Node>();
    node->next = node;
    auto data = KeyedArchiver::archivedData(Value(node));
    ASSERT_TRUE(data);
    EXPECT_TRUE(KeyedUnarchiver::unarchiveData(*data, ArchiveClasses().add<Node>()).isNull());
    node->next = nullptr;
}

TEST(KeyedArchiver, NestingHasALimit) {
    for (auto [depth, works] : {std::pair{500, true}, {520, false}}) {
        Value nested = "core";
        for (int i = 0; i < depth; ++i)
            nested = ValueList{{nested}};
        auto data = KeyedArchiver::archivedData(nested);
        EXPECT_EQ(data.has_value(), works) << depth;
        if (data) {
            EXPECT_EQ(readBack(*data), nested);
        }
    }
}

// The numbers that strict readers check, at the counts where the width of references changes.
TEST(KeyedArchiver, FrameFitsItsCounts) {
    for (std::size_t wanted : {0, 1, 100, 240, 255, 256, 257, 300, 65535, 65536, 300000}) {
        ValueList list;
        for (std::size_t i = 0; i < wanted; ++i)
            list.items.emplace_back(std::to_string(i));
        const Bytes file = KeyedArchiver::archivedData(Value(list)).value();
        auto* trailer = reinterpret_cast<const std::uint8_t*>(file.data()) + file.size() - 32;
        const unsigned offsetSize = trailer[6], refSize = trailer[7];
        const std::uint64_t count = readBigEndian(trailer + 8, 8);
        const std::uint64_t tableStart = readBigEndian(trailer + 24, 8);
        EXPECT_EQ(file.size(), tableStart + count * offsetSize + 32);
        EXPECT_EQ(refSize, plist::byteCount(count));
        EXPECT_EQ(offsetSize, plist::byteCount(tableStart));
        EXPECT_LT(count, std::uint64_t{1} << 8 * refSize);
        EXPECT_EQ(readBack(file), Value(list));
    }
}

TEST(KeyedArchiver, ReferenceWidthChangesAtExactly256Objects) {
    unsigned previous = 1;
    std::uint64_t previousCount = 0;
    for (int i = 0; i < 130; ++i) {
        ValueList list;
        for (int n = 0; n < i; ++n)
            list.items.emplace_back(std::to_string(n));
        const Bytes file = KeyedArchiver::archivedData(Value(list)).value();
        auto* trailer = reinterpret_cast<const std::uint8_t*>(file.data()) + file.size() - 32;
        const std::uint64_t count = readBigEndian(trailer + 8, 8);
        EXPECT_EQ(trailer[7], count < 256 ? 1 : 2) << count;
        previous = trailer[7];
        previousCount = count;
    }
    EXPECT_EQ(previous, 2u) << "the loop must cross the border, but ended at " << previousCount;
}

/// A random value whose lists, maps and texts are small.
Value randomValue(std::mt19937& random, int depth) {
    switch (random() % (depth > 0 ? 9 : 6)) {
        case 0:
            return static_cast<std::int64_t>(random()) << (random() % 40);
        case 1:
            return static_cast<double>(random()) / 7;
        case 2:
            return random() % 2 == 0;
        case 3:
            return std::string(random() % 20, static_cast<char>('a' + random() % 26)) + "é";
        case 4:
            return URL("u:" + std::to_string(random() % 50));
        case 5:
            return EXDateOnly(2000 + random() % 50, 1 + random() % 12, 1 + random() % 28);
        case 6:
            return Instant(std::chrono::microseconds(random()));
        default:
            break;
    }
    ValueList list{{}, random() % 2 == 0};
    ValueMap map{{}, random() % 2 == 0};
    for (unsigned i = random() % 6; i > 0; --i) {
        list.items.push_back(randomValue(random, depth - 1));
        map.items.emplace(std::to_string(random() % 30), randomValue(random, depth - 1));
    }
    return random() % 2 ? Value(list) : Value(map);
}

TEST(KeyedArchiver, WriteReadWriteGivesTheSameBytes) {
    std::mt19937 random(20240305);
    for (int i = 0; i < 300; ++i) {
        const Value value = randomValue(random, 5);
        const Bytes first = KeyedArchiver::archivedData(value).value();
        const Value read = readBack(first);
        EXPECT_EQ(read, value);
        EXPECT_EQ(KeyedArchiver::archivedData(read).value(), first);
    }
}

}  // namespace
}  // namespace corvane::platform
