#include "corvane/platform/KeyedArchiver.h"

#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/BigEndian.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/PropertyListFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace corvane::platform {
namespace {

using namespace std::chrono_literals;

Value readBack(const Bytes& archive) {
    return KeyedUnarchiver::unarchiveData(archive, ArchivedRecord::anyClass());
}

Value roundTrip(const Value& value) {
    return readBack(KeyedArchiver::archivedData(value).value());
}

TEST(KeyedArchiver, EveryKindOfValueComesBackEqual) {
    // clang-format off
    const std::vector<Value> values = {
        true, false, 0, 127, 128, 255, 256, 65535, 65536, 4294967295, 4294967296, INT64_MAX, -1, INT64_MIN,
        0.0, -0.5, 1e300, "", "plain", "Grüße, 日本 🗓", std::string(20, 'x'), std::string(70000, 'y'),
        "$null", URL("$null"), URL("file:///a%20b"), kReferenceDate, Instant(1'700'000'000'123'456us),
        EXDateOnly(2024, 3, 5), Bytes(300, std::byte{7}), ValueList{{1, "$null", nullptr, 3.5}, true},
        ValueMap{{{"key", ValueList{}}, {URL("a:b"), nullptr}}, false}};
    // clang-format on
    for (const Value& value : values) {
        EXPECT_EQ(roundTrip(value), value);
        EXPECT_EQ(roundTrip(value).kind(), value.kind());
    }
    EXPECT_EQ(roundTrip(ValueList{values}), Value(ValueList{values}));
    EXPECT_TRUE(roundTrip(Value()).isNull());
    EXPECT_EQ(roundTrip(EXTimeOnly(8, 30, 15)), Value(0x81E0F)) << "a time is stored as its number";
    EXPECT_EQ(roundTrip("a\xFF\xED\xA0\x80"), Value("a\uFFFD\uFFFD\uFFFD\uFFFD")) << "ill-formed";
}

TEST(KeyedArchiver, EqualTextsURLsAndDaysAreStoredOnce) {
    const std::string text(1000, 't');
    const std::vector<Value> fresh = {text, text, URL(text), URL(text), EXDateOnly(2024, 3, 5)};
    EXPECT_LT(KeyedArchiver::archivedData(ValueList{fresh})->size(), 2000u);
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

TEST(KeyedArchiver, OneObjectStaysOneObjectAndACycleIsRefusedOnReading) {
    auto node = std::make_shared<Node>();
    auto read = [](const Value& value) {
        return KeyedUnarchiver::unarchiveData(KeyedArchiver::archivedData(value).value(),
                                              ArchiveClasses().add<Node>());
    };
    Value result = read(ValueList{{node, node, std::make_shared<Node>()}});
    ASSERT_TRUE(result.list());
    const auto& items = result.list()->items;
    EXPECT_EQ(items[0].objectAs<Node>(), items[1].objectAs<Node>());
    EXPECT_NE(items[0].objectAs<Node>(), items[2].objectAs<Node>());
    node->next = node;
    EXPECT_TRUE(read(node).isNull());
    node->next = nullptr;
}

// One step of doubling a level: with every reference followed anew, it would never end.
TEST(KeyedArchiver, NestingHasALimitAndSharedBranchesAreMetOnce) {
    for (auto [depth, works] : {std::pair{500, true}, {520, false}}) {
        Value nested = "core";
        for (int i = 0; i < depth; ++i)
            nested = ValueList{{nested, nested}};
        auto data = KeyedArchiver::archivedData(nested);
        EXPECT_EQ(data.has_value(), works) << depth;
        EXPECT_TRUE(!data || readBack(*data).list()) << depth;
    }
}

// Around the counts where the width of references changes.
TEST(KeyedArchiver, ReferencesAreAsWideAsTheObjectsNeed) {
    std::vector<std::size_t> counts{240, 300, 65535, 65536, 300000};
    for (std::size_t i = 0; i < 130; ++i)
        counts.push_back(i);  // with their UIDs and the frame, these cross 256 objects
    for (std::size_t wanted : counts) {
        ValueList list;
        while (list.items.size() < wanted)
            list.items.emplace_back(std::to_string(list.items.size()));
        const Bytes file = KeyedArchiver::archivedData(Value(list)).value();
        auto* trailer = reinterpret_cast<const std::uint8_t*>(file.data()) + file.size() - 32;
        const std::uint64_t count = readBigEndian(trailer + 8, 8);
        EXPECT_EQ(trailer[7], count < 256 ? 1 : plist::byteCount(count)) << count;
        EXPECT_EQ(readBack(file), Value(list));
    }
}

/// A random value whose lists, maps and texts are small.
Value randomValue(std::mt19937& random, int depth) {
    const unsigned kind = random() % (depth > 0 ? 9 : 7);
    if (kind == 0) return static_cast<std::int64_t>(random()) << (random() % 40);
    if (kind == 1) return static_cast<double>(random()) / 7;
    if (kind == 2) return random() % 2 == 0;
    if (kind == 3) return std::string(random() % 20, static_cast<char>('a' + random() % 26)) + "é";
    if (kind == 4) return URL("u:" + std::to_string(random() % 50));
    if (kind == 5) return EXDateOnly(2000 + random() % 50, 1 + random() % 12, 1 + random() % 28);
    if (kind == 6) return Instant(std::chrono::microseconds(random()));
    ValueList list{{}, random() % 2 == 0};
    ValueMap map{{}, random() % 2 == 0};
    for (unsigned i = random() % 6; i > 0; --i) {
        list.items.push_back(randomValue(random, depth - 1));
        map.items.emplace(std::to_string(random() % 30), randomValue(random, depth - 1));
    }
    return kind == 7 ? Value(list) : Value(map);
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

// A double keeps microseconds within some 140 years of the reference date.
TEST(KeyedArchiver, InstantsKeepTheirMicrosecondsAsSecondsOfTheReferenceDate) {
    EXPECT_EQ(secondsSinceReferenceDate(Instant()), -978'307'200);
    EXPECT_EQ(instantFromReferenceSeconds(1.9999999), kReferenceDate + 2s);
    for (int years : {-140, -24, 0, 1, 24, 50, 139}) {
        for (auto fraction : {0us, 1us, 333'333us, 999'999us}) {
            Instant instant = kReferenceDate + std::chrono::years{years} + fraction;
            EXPECT_EQ(instantFromReferenceSeconds(secondsSinceReferenceDate(instant)), instant);
        }
    }
    for (double seconds : {std::nan(""), HUGE_VAL, -HUGE_VAL, 9.3e12, -9.3e12, 1e308})
        EXPECT_EQ(instantFromReferenceSeconds(seconds), std::nullopt) << seconds;
    EXPECT_TRUE(instantFromReferenceSeconds(9.19e12) && instantFromReferenceSeconds(-9.19e12));
}

}  // namespace
}  // namespace corvane::platform
