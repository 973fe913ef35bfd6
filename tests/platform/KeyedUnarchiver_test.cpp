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

using tests::ForeignArchive;
using Ref = ForeignArchive::Ref;

Value readAny(const Bytes& file) {
    return KeyedUnarchiver::unarchiveData(file, ArchivedRecord::anyClass());
}

// A number's bytes, most significant first, as reals and dates hold them.
std::string realBytes(double value) {
    return ForeignArchive::number(std::bit_cast<std::uint64_t>(value), 8);
}

struct Form {
    const char* name;
    std::function<Bytes(ForeignArchive&)> build;
    Value expected;
};

TEST(KeyedUnarchiver, ReadsWhatOtherArchiversWrite) {
    const Form forms[] = {
        {"raw date",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw("\x33" + realBytes(1.5))});
         },
         kReferenceDate + std::chrono::milliseconds(1500)},
        {"NS.time",
         [](auto& a) {
             Ref date =
                 a.dictionary({{"NS.time", a.raw("\x23" + realBytes(-1))}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), date, a.classNamed("NSDate", {"NSDate", "NSObject"})});
         },
         kReferenceDate - std::chrono::seconds(1)},
        {"mutable string, inline, class first and without a chain",
         [](auto& a) {
             Ref text = a.dictionary({{"$class", a.uid(2)}, {"NS.string", a.text("$null")}});
             return a.file({a.text("$null"), text, a.classNamed("NSMutableString")});
         },
         "$null"},
        {"mutable string by reference",
         [](auto& a) {
             Ref text = a.dictionary({{"NS.string", a.uid(3)}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), text, a.classNamed("NSMutableString"), a.text("abc")});
         },
         "abc"},
        {"UTF-16 string with an unpaired surrogate",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw(std::string("\x62\xD8\x00\x00\x41", 5))});
         },
         "\uFFFD"
         "A"},
        {"subclass of a list, by its chain",
         [](auto& a) {
             Ref list = a.dictionary({{"NS.objects", a.uids({3, 3})}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), list,
                            a.classNamed("AppList", {"AppList", "NSMutableArray", "NSArray"}),
                            a.integer(7)});
         },
         ValueList{{7, 7}}},
        {"map with a null object as value",
         [](auto& a) {
             Ref map = a.dictionary(
                 {{"NS.objects", a.uids({4})}, {"NS.keys", a.uids({3})}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), map, a.classNamed("NSDictionary"), a.text("k"),
                            a.dictionary({{"$class", a.uid(5)}}), a.classNamed("NSNull")});
         },
         ValueMap{{{"k", nullptr}}}},
        {"URL with a base",
         [](auto& a) {
             Ref base = a.dictionary(
                 {{"NS.base", a.uid(0)}, {"NS.relative", a.uid(4)}, {"$class", a.uid(2)}});
             Ref url = a.dictionary(
                 {{"NS.base", a.uid(3)}, {"NS.relative", a.uid(5)}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), url, a.classNamed("NSURL"), base,
                            a.text("http://a/b/c"), a.text("../d")});
         },
         URL("http://a/d")},
        {"mutable data",
         [](auto& a) {
             Ref data = a.dictionary(
                 {{"NS.data", a.raw(std::string("\x42\x01\x02"))}, {"$class", a.uid(2)}});
             return a.file({a.text("$null"), data, a.classNamed("NSMutableData")});
         },
         Bytes{std::byte{1}, std::byte{2}}},
        {"16-byte integer",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw("\x14" + ForeignArchive::number(0, 8) +
                                                   ForeignArchive::number(9, 8))});
         },
         9},
        {"4-byte real",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw(std::string("\x22\x3F\x00\x00\x00", 5))});
         },
         0.5},
    };
    for (const Form& form : forms) {
        for (unsigned refSize : {1, 2, 3, 4, 8}) {
            for (unsigned uidSize : {1, 2, 3, 4, 8}) {
                ForeignArchive archive(refSize, uidSize);
                EXPECT_EQ(readAny(form.build(archive)), form.expected)
                    << form.name << ", references of " << refSize << ", UIDs of " << uidSize;
            }
        }
    }
}

/// Reads one key in every way, to see what each gives for the value stored there.
class Probe final : public Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "Probe";
    explicit Probe(KeyedUnarchiver& coder)
        : integer(coder.decodeInteger("k")),
          flag(coder.decodeBool("k")),
          missing(coder.decodeInteger("absent")) {}
    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(KeyedArchiver&) const override {}

    std::int64_t integer;
    bool flag;
    std::int64_t missing;
};

TEST(KeyedUnarchiver, NumbersAndFlagsStandInForEachOther) {
    struct {
        std::string object;
        std::int64_t integer;
        bool flag;
    } const cases[] = {
        {"\x09", 1, true},
        {"\x08", 0, false},
        {std::string("\x10\x00", 2), 0, false},
        {"\x10\x05", 5, true},
        {"\x10\xFF", 255, true},
        {"\x23" + realBytes(-2.9), -2, true},
        {"\x23" + realBytes(1e300), std::numeric_limits<std::int64_t>::max(), true},
        {"\x13" + std::string(8, '\xFF'), -1, true},
    };
    for (const auto& test : cases) {
        ForeignArchive a;
        Ref record = a.dictionary({{"k", a.raw(test.object)}, {"$class", a.uid(2)}});
        Value value =
            KeyedUnarchiver::unarchiveData(a.file({a.text("$null"), record, a.classNamed("Probe")}),
                                           ArchiveClasses().add<Probe>());
        auto probe = value.objectAs<Probe>();
        ASSERT_TRUE(probe) << testing::PrintToString(test.object);
        EXPECT_EQ(probe->integer, test.integer);
        EXPECT_EQ(probe->flag, test.flag);
        EXPECT_EQ(probe->missing, 0);
    }
}

TEST(KeyedUnarchiver, RefusesTheMalformed) {
    struct {
        const char* name;
        std::function<Bytes(ForeignArchive&)> build;
    } const forms[] = {
        {"UID out of range", [](auto& a) { return a.file({a.text("$null")}); }},
        {"list that holds itself",
         [](auto& a) {
             return a.file({a.text("$null"),
                            a.dictionary({{"NS.objects", a.uids({1})}, {"$class", a.uid(2)}}),
                            a.classNamed("NSArray")});
         }},
        {"UID 0 as an element",
         [](auto& a) {
             return a.file({a.text("$null"),
                            a.dictionary({{"NS.objects", a.uids({0})}, {"$class", a.uid(2)}}),
                            a.classNamed("NSArray")});
         }},
        {"element that is no UID",
         [](auto& a) {
             return a.file(
                 {a.text("$null"),
                  a.dictionary({{"NS.objects", a.array({a.integer(2)})}, {"$class", a.uid(2)}}),
                  a.classNamed("NSArray")});
         }},
        {"more keys than values",
         [](auto& a) {
             return a.file({a.text("$null"),
                            a.dictionary({{"NS.keys", a.uids({3, 3})},
                                          {"NS.objects", a.uids({3})},
                                          {"$class", a.uid(2)}}),
                            a.classNamed("NSDictionary"), a.text("x")});
         }},
        {"inline object",
         [](auto& a) {
             return a.file(
                 {a.text("$null"),
                  a.dictionary(
                      {{"NS.base", a.uid(0)}, {"NS.relative", a.text("x")}, {"$class", a.uid(2)}}),
                  a.classNamed("NSURL")});
         }},
        {"class that is no class",
         [](auto& a) {
             return a.file(
                 {a.text("$null"), a.dictionary({{"$class", a.uid(2)}}), a.text("NSArray")});
         }},
        {"class without a name",
         [](auto& a) {
             return a.file(
                 {a.text("$null"), a.dictionary({{"$class", a.uid(2)}}), a.dictionary({})});
         }},
        {"record without a class",
         [](auto& a) {
             return a.file({a.text("$null"), a.dictionary({})});
         }},
        {"non-ASCII byte in an ASCII text",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw("\x51\xC3")});
         }},
        {"text longer than the file",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw("\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF")});
         }},
        {"array longer than memory",
         [](auto& a) {
             return a.file({a.text("$null"), a.raw("\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF")});
         }},
        {"array in place of an object",
         [](auto& a) {
             return a.file({a.text("$null"), a.array({})});
         }},
        {"UID of 8 bytes, all ones",
         [](auto& a) { return a.file({a.raw("\x87" + std::string(8, '\xFF'))}); }},
        {"other version",
         [](auto& a) {
             return a.framed(a.dictionary({{"$version", a.integer(1)},
                                           {"$top", a.dictionary({{"root", a.uid(0)}})},
                                           {"$objects", a.array({a.text("$null")})}}));
         }},
        {"root that is no dictionary", [](auto& a) { return a.framed(a.text("x")); }},
    };
    for (const auto& form : forms) {
        ForeignArchive archive;
        EXPECT_TRUE(readAny(form.build(archive)).isNull()) << form.name;
    }
    EXPECT_TRUE(
        KeyedUnarchiver::unarchiveFile("/nonexistent", ArchivedRecord::anyClass()).isNull());
    EXPECT_TRUE(KeyedUnarchiver::unarchiveFile("/", ArchivedRecord::anyClass()).isNull());
}

TEST(KeyedUnarchiver, AnUnknownClassMakesTheArchiveUnreadableUnlessSomethingServesIt) {
    ForeignArchive a;
    Ref record = a.dictionary({{"key", a.integer(4)}, {"$class", a.uid(2)}});
    Bytes file =
        a.file({a.text("$null"), record, a.classNamed("Stranger", {"Stranger", "NSObject"})});
    EXPECT_TRUE(KeyedUnarchiver::unarchiveData(file, ArchiveClasses()).isNull());
    auto any = readAny(file).objectAs<ArchivedRecord>();
    ASSERT_TRUE(any);
    EXPECT_EQ(any->archiveClassName(), "Stranger");
    ASSERT_EQ(any->fields().size(), 1u);
    EXPECT_EQ(any->fields()[0].value, Value(4));
    EXPECT_TRUE(any->fields()[0].isInline);
}

Bytes honestArchive() {
    ValueMap map;
    for (int i = 0; i < 40; ++i)
        map.items.emplace("key" + std::to_string(i),
                          ValueList{{i, "text" + std::to_string(i), URL("u:" + std::to_string(i)),
                                     EXDateOnly(2024, 3, i % 28 + 1), kReferenceDate, "é", 1.5}});
    return KeyedArchiver::archivedData(Value(map)).value();
}

TEST(KeyedUnarchiver, TruncatedAnywhereIsAbsent) {
    const Bytes file = honestArchive();
    ASSERT_FALSE(readAny(file).isNull());
    for (std::size_t size = 0; size < file.size(); ++size)
        EXPECT_TRUE(readAny(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)))
                        .isNull());
}

TEST(KeyedUnarchiver, DamagedBytesNeverDoHarm) {
    const Bytes file = honestArchive();
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
    struct {
        const char* name;
        std::function<Bytes(ForeignArchive&)> build;
    } const forms[] = {
        {"slots that share one long list",
         [&](auto& a) {
             Ref uid = a.uid(3);
             Ref shared = a.array(std::vector<Ref>(kMany, uid));
             std::vector<Ref> slots{a.text("$null"), 0, a.classNamed("NSArray"), a.integer(1)};
             std::vector<std::uint64_t> lists;
             Ref list = a.dictionary({{"NS.objects", shared}, {"$class", a.uid(2)}});
             for (int i = 0; i < 5000; ++i) {
                 lists.push_back(slots.size());
                 slots.push_back(list);
             }
             slots[1] = a.dictionary({{"NS.objects", a.uids(lists)}, {"$class", a.uid(2)}});
             return a.file(slots);
         }},
        {"texts that overlap",
         [&](auto& a) {
             std::vector<Ref> slots{a.text("$null"), 0, a.classNamed("NSArray")};
             std::vector<std::uint64_t> items;
             for (int i = 0; i < kMany; ++i) {
                 items.push_back(slots.size());
                 slots.push_back(a.raw(std::string("\x5F\x12", 2) +
                                       ForeignArchive::number(6u * (kMany - i - 1), 4)));
             }
             slots[1] = a.dictionary({{"NS.objects", a.uids(items)}, {"$class", a.uid(2)}});
             return a.file(slots);
         }},
        {"URLs that share one long text",
         [&](auto& a) {
             std::vector<Ref> slots{a.text("$null"), 0, a.classNamed("NSArray"),
                                    a.classNamed("NSURL"), a.text(longText)};
             std::vector<std::uint64_t> items;
             Ref url = a.dictionary(
                 {{"NS.base", a.uid(0)}, {"NS.relative", a.uid(4)}, {"$class", a.uid(3)}});
             for (int i = 0; i < kMany; ++i) {
                 items.push_back(slots.size());
                 slots.push_back(url);
             }
             slots[1] = a.dictionary({{"NS.objects", a.uids(items)}, {"$class", a.uid(2)}});
             return a.file(slots);
         }},
        {"records with long keys",
         [&](auto& a) {
             std::vector<Ref> slots{a.text("$null"), 0, a.classNamed("NSArray"),
                                    a.classNamed(longText)};
             std::vector<std::uint64_t> items;
             ForeignArchive::Entries entries{{"$class", a.uid(3)}};
             for (int i = 0; i < 200; ++i)
                 entries.emplace_back(longText.substr(static_cast<std::size_t>(i)), a.integer(1));
             Ref record = a.dictionary(entries);
             for (int i = 0; i < kMany; ++i) {
                 items.push_back(slots.size());
                 slots.push_back(record);
             }
             slots[1] = a.dictionary({{"NS.objects", a.uids(items)}, {"$class", a.uid(2)}});
             return a.file(slots);
         }},
    };
    for (const auto& form : forms) {
        ForeignArchive archive(3);
        const Bytes file = form.build(archive);
        rusage before{}, after{};
        getrusage(RUSAGE_SELF, &before);
        { readAny(file); }
        getrusage(RUSAGE_SELF, &after);
        const long grownKiB = after.ru_maxrss - before.ru_maxrss;
        EXPECT_LT(grownKiB, static_cast<long>(40 * file.size() / 1024 + 4096)) << form.name;
    }
}

// One step of doubling a level, 500 levels deep: followed naively, it never ends.
TEST(KeyedUnarchiver, SharedBranchesAreReadOnce) {
    Value branch = "leaf";
    for (int i = 0; i < 500; ++i)
        branch = ValueList{{branch, branch}};
    EXPECT_FALSE(readAny(KeyedArchiver::archivedData(branch).value()).isNull());
}

}  // namespace
}  // namespace corvane::platform
