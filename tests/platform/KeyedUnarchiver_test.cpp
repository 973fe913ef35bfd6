#include "corvane/platform/KeyedUnarchiver.h"

#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/KeyedArchiver.h"

#include "tests/support/ForeignArchive.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <functional>
#include <random>

namespace corvane::platform {
namespace {

using namespace std::chrono_literals;
using Archive = tests::ForeignArchive;
using Ref = Archive::Ref;

Value readAny(const Bytes& file) {
    return KeyedUnarchiver::unarchiveData(file, ArchivedRecord::anyClass());
}

// A real's bytes, as reals and dates hold them.
std::string real(double value) {
    return Archive::number(std::bit_cast<std::uint64_t>(value), 8);
}

/// A file whose root is this object itself.
Bytes plain(Archive& a, const std::string& object) {
    return a.file({a.text("$null"), a.raw(object)});
}

/// A list of `count` objects, each in a slot of its own; `shared` is in the slots from 3 on.
Bytes listOf(Archive& a, std::vector<Ref> shared, int count, const std::function<Ref(int)>& item) {
    std::vector<std::uint64_t> items;
    for (int i = 0; i < count; ++i) {
        items.push_back(3 + shared.size());
        shared.push_back(item(i));
    }
    return a.record("NSArray", {{"NS.objects", a.uids(items)}}, shared);
}

struct Form {
    const char* name;
    Value expected;
    std::function<Bytes(Archive&)> build;
};

TEST(KeyedUnarchiver, ReadsWhatOtherArchiversWriteAndRefusesTheMalformed) {
    // clang-format off
    const Form forms[] = {
        {"raw date", kReferenceDate + 1500ms, [](auto& a) { return plain(a, "\x33" + real(1.5)); }},
        {"NS.time", kReferenceDate - 1s, [](auto& a) {
            return a.record("NSDate", {{"NS.time", a.raw("\x23" + real(-1))}}); }},
        {"string, inline", "$null", [](auto& a) {
            return a.record("NSMutableString", {{"NS.string", a.text("$null")}}); }},
        {"string by reference", "abc", [](auto& a) {
            return a.record("NSMutableString", {{"NS.string", a.uid(3)}}, {a.text("abc")}); }},
        {"UTF-16 with an unpaired surrogate", "\uFFFD" "A", [](auto& a) {
            return plain(a, std::string("\x62\xD8\x00\x00\x41", 5)); }},
        {"list by its ancestor", ValueList{{7, 7}}, [](auto& a) {
            Ref list = a.dictionary({{"NS.objects", a.uids({3, 3})}, {"$class", a.uid(2)}});
            Ref itsClass = a.classNamed("AppList", {"AppList", "NSMutableArray", "NSArray"});
            return a.file({a.text("$null"), list, itsClass, a.integer(7)}); }},
        {"map with a null object", ValueMap{{{"k", nullptr}}}, [](auto& a) {
            return a.record("NSDictionary", {{"NS.objects", a.uids({4})}, {"NS.keys", a.uids({3})}},
                            {a.text("k"), a.dictionary({{"$class", a.uid(5)}}), a.classNamed("NSNull")}); }},
        {"URL with a base", URL("http://a/d"), [](auto& a) {
            Ref base = a.dictionary({{"NS.base", a.uid(0)}, {"NS.relative", a.uid(4)}, {"$class", a.uid(2)}});
            return a.record("NSURL", {{"NS.base", a.uid(3)}, {"NS.relative", a.uid(5)}},
                            {base, a.text("http://a/b/c"), a.text("../d")}); }},
        {"data", Bytes{std::byte{1}, std::byte{2}}, [](auto& a) {
            return a.record("NSMutableData", {{"NS.data", a.raw("\x42\x01\x02")}}); }},
        {"16-byte integer", 9, [](auto& a) {
            return plain(a, "\x14" + Archive::number(0, 8) + Archive::number(9, 8)); }},
        {"4-byte real", 0.5, [](auto& a) { return plain(a, std::string("\x22\x3F\x00\x00\x00", 5)); }},
        // What is malformed is absent.
        {"UID out of range", {}, [](auto& a) { return a.file({a.text("$null")}); }},
        {"list that holds itself", {}, [](auto& a) { return a.record("NSArray", {{"NS.objects", a.uids({1})}}); }},
        {"UID 0 as an element", {}, [](auto& a) { return a.record("NSArray", {{"NS.objects", a.uids({0})}}); }},
        {"element that is no UID", {}, [](auto& a) {
            return a.record("NSArray", {{"NS.objects", a.array({a.integer(2)})}}); }},
        {"more keys than values", {}, [](auto& a) {
            return a.record("NSDictionary", {{"NS.keys", a.uids({3, 3})}, {"NS.objects", a.uids({3})}}, {a.text("x")}); }},
        {"inline object", {}, [](auto& a) {
            return a.record("NSURL", {{"NS.base", a.uid(0)}, {"NS.relative", a.text("x")}}); }},
        {"class that is no class", {}, [](auto& a) { return a.file(
            {a.text("$null"), a.dictionary({{"$class", a.uid(2)}}), a.text("NSArray")}); }},
        {"class without a name", {}, [](auto& a) { return a.file(
            {a.text("$null"), a.dictionary({{"$class", a.uid(2)}}), a.dictionary({})}); }},
        {"no class", {}, [](auto& a) { return a.file({a.text("$null"), a.dictionary({})}); }},
        {"non-ASCII byte in ASCII", {}, [](auto& a) { return plain(a, "\x51\xC3"); }},
        {"text beyond the file", {}, [](auto& a) { return plain(a, "\x5F\x13\x7F" + std::string(7, '\xFF')); }},
        {"array beyond memory", {}, [](auto& a) { return plain(a, "\xAF\x13" + std::string(8, '\xFF')); }},
        {"array as object", {}, [](auto& a) { return a.file({a.text("$null"), a.array({})}); }},
        {"UID of all ones", {}, [](auto& a) { return a.file({a.raw("\x87" + std::string(8, '\xFF'))}); }},
        {"other version", {}, [](auto& a) {
            return a.framed(a.dictionary({{"$version", a.integer(1)}, {"$top", a.dictionary({{"root", a.uid(0)}})},
                                          {"$objects", a.array({a.text("$null")})}})); }},
        {"root that is no dictionary", {}, [](auto& a) { return a.framed(a.text("x")); }},
    };
    // clang-format on
    for (const Form& form : forms) {
        for (unsigned refSize : {1, 2, 3, 4, 8}) {
            for (unsigned uidSize : {1, 2, 3, 4, 8}) {
                Archive archive(refSize, uidSize);
                EXPECT_EQ(readAny(form.build(archive)), form.expected)
                    << form.name << ", references of " << refSize << ", UIDs of " << uidSize;
            }
        }
    }
    for (const char* path : {"/nonexistent", "/"})
        EXPECT_TRUE(KeyedUnarchiver::unarchiveFile(path, ArchivedRecord::anyClass()).isNull());
}

/// Reads one key in every way, to see what each gives for the value stored there.
class Probe final : public Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "Probe";
    explicit Probe(KeyedUnarchiver& coder)
        : read(coder.decodeInteger("k"), coder.decodeBool("k"), coder.decodeInteger("absent")) {}
    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(KeyedArchiver&) const override {}

    std::tuple<std::int64_t, bool, std::int64_t> read;
};

TEST(KeyedUnarchiver, NumbersAndFlagsStandInForEachOther) {
    const std::tuple<std::string, std::int64_t, bool> cases[] = {
        {"\x09", 1, true},
        {"\x10" + Archive::number(0, 1), 0, false},
        {"\x10\xFF", 255, true},
        {"\x23" + real(1e300), INT64_MAX, true},
        {"\x23" + real(-2.9), -2, true},
        {"\x13" + std::string(8, '\xFF'), -1, true},
    };
    for (const auto& [object, integer, flag] : cases) {
        Archive a;
        const Bytes file = a.record("Probe", {{"k", a.raw(object)}});
        EXPECT_TRUE(KeyedUnarchiver::unarchiveData(file, ArchiveClasses()).isNull()) << "unknown";
        Value root = KeyedUnarchiver::unarchiveData(file, ArchiveClasses().add<Probe>());
        auto probe = root.objectAs<Probe>();
        ASSERT_TRUE(probe) << testing::PrintToString(object);
        EXPECT_EQ(probe->read, std::tuple(integer, flag, 0));
    }
}

TEST(KeyedUnarchiver, TruncatedIsAbsentAndDamagedDoesNoHarm) {
    ValueMap map;
    for (int i = 0; i < 40; ++i)
        map.items.emplace("key" + std::to_string(i),
                          ValueList{{i, "text" + std::to_string(i), URL("u:" + std::to_string(i)),
                                     EXDateOnly(2024, 3, i % 28 + 1), kReferenceDate, "é", 1.5}});
    const Bytes file = KeyedArchiver::archivedData(Value(map)).value();
    ASSERT_EQ(readAny(file), Value(map));
    for (auto end = file.begin(); end != file.end(); ++end)
        EXPECT_TRUE(readAny(Bytes(file.begin(), end)).isNull());
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        Bytes damaged = file;
        for (unsigned hits = 1 + random() % 4; hits > 0; --hits)
            damaged[random() % damaged.size()] = static_cast<std::byte>(random());
        readAny(damaged);
    }
}

// Each of these files would unfold to far more than its size if every reference were followed.
TEST(KeyedUnarchiver, SmallFilesStaySmall) {
    constexpr int kMany = 30000;
    const std::string longText(10000, 'x');
    // clang-format off
    const Form forms[] = {
        {"slots that share one long list", {}, [&](auto& a) {
            Ref items = a.array(std::vector<Ref>(kMany, a.uid(3)));
            Ref list = a.dictionary({{"NS.objects", items}, {"$class", a.uid(2)}});
            return listOf(a, {a.integer(1)}, 5000, [&](int) { return list; }); }},
        {"texts that overlap", {}, [&](auto& a) {
            return listOf(a, {}, kMany, [&](int i) {
                return a.raw("\x5F\x12" + Archive::number(6u * (kMany - static_cast<unsigned>(i) - 1), 4)); }); }},
        {"URLs that share one long text", {}, [&](auto& a) {
            Ref url = a.dictionary({{"NS.base", a.uid(0)}, {"NS.relative", a.uid(4)}, {"$class", a.uid(3)}});
            return listOf(a, {a.classNamed("NSURL"), a.text(longText)}, kMany, [&](int) { return url; }); }},
    };
    // clang-format on
    for (const Form& form : forms) {
        Archive archive(3);
        const Bytes file = form.build(archive);
        rusage before{}, after{};
        getrusage(RUSAGE_SELF, &before);
        readAny(file);
        getrusage(RUSAGE_SELF, &after);
        EXPECT_LT(after.ru_maxrss - before.ru_maxrss,
                  static_cast<long>(40 * file.size() / 1024 + 4096))
            << form.name;
    }
}

}  // namespace
}  // namespace corvane::platform
