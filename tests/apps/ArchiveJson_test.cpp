#include "apps/cli/ArchiveJson.h"

#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>

namespace corvane::cli {
namespace {

using platform::Bytes;
using platform::URL;
using platform::Value;
using platform::ValueList;
using platform::ValueMap;

/// The document without its layout, of what was through an archive, as a file would come.
std::string shown(const Value& value) {
    auto data = platform::KeyedArchiver::archivedData(value).value();
    auto json = archiveJson(
        platform::KeyedUnarchiver::unarchiveData(data, platform::ArchivedRecord::anyClass()),
        data.size());
    return json ? nlohmann::ordered_json::parse(*json).dump() : "none";
}

using Encode = void (*)(platform::KeyedArchiver&);

struct Record final : platform::Archivable {
    Record(std::string_view className, Encode encoder) : name(className), encode(encoder) {}
    std::string_view archiveClassName() const override { return name; }
    void encodeWithCoder(platform::KeyedArchiver& coder) const override { encode(coder); }
    std::string_view name;
    Encode encode;
};

TEST(ArchiveJson, WritesValuesOfEveryKindAndRefersToWhatItHasShown) {
    const Value list(ValueList{{1}, false}), map(ValueMap{{{"a", list}}, false});
    const Value record = std::make_shared<Record>("R", [](auto& c) { c.encodeInteger("k", 1); });
    const std::string text(300, 't');
    // clang-format off
    const std::pair<Value, std::string> cases[] = {
        {3.0, "3.0"},
        {std::nan(""), R"({"$real":"nan"})"},
        {-HUGE_VAL, R"({"$real":"-inf"})"},
        {URL("x:a b"), R"({"$url":"x:a b"})"},
        {platform::Instant(std::chrono::microseconds(-1)),
         R"({"$date":"1969-12-31T23:59:59.999999Z"})"},
        {EXDateOnly(2024, 3, 5),
         R"({"$class":"EXDateOnly","EXDateOnlyEncodedValue":132645637,"$day":"2024-03-05"})"},
        {Bytes(1, std::byte{0xFB}), R"({"$data":"+w=="})"},
        {Bytes(2, std::byte{0xFB}), R"({"$data":"+/s="})"},
        {ValueList{{1, "a", ValueList{}}, true}, R"([1,"a",[]])"},
        {ValueMap{{{"k", 1}, {"m", "a"}}, true}, R"({"k":1,"m":"a"})"},
        {ValueMap{{{"$ref", 1}}, true}, R"({"$map":[["$ref",1]]})"},
        {ValueMap{{{URL("x:1"), 2}}, true}, R"({"$map":[[{"$url":"x:1"},2]]})"},
        {std::make_shared<Record>("R", [](auto& c) { c.encodeInteger("$id", 1); }),
         R"({"$class":"R","$fields":[["$id",1]]})"},
        {ValueList{{record, record}, false}, R"([{"$id":1,"$class":"R","k":1},{"$ref":1}])"},
        {ValueList{{list, map, list, map}, false},
         R"([{"$id":1,"$list":[1]},{"$id":2,"a":{"$ref":1}},{"$ref":1},{"$ref":2}])"},
        {ValueList{{text, text}, false}, R"([{"$id":1,"$text":")" + text + R"("},{"$ref":1}])"},
    };
    // clang-format on
    for (const auto& [value, json] : cases)
        EXPECT_EQ(shown(value), json);
}

TEST(ArchiveJson, DoesNotGrowOutOfProportion) {
    // Each list holds the one below it twice: 2^60 leaves.
    Value pyramid = ValueList{{1}, false};
    for (int i = 0; i < 60; ++i)
        pyramid = ValueList{{pyramid, pyramid}, false};
    EXPECT_LT(shown(pyramid).size(), 3000u);

    // A long class name under thousands of records.
    const std::string name(100000, 'R');
    std::vector<Value> records;
    for (int i = 0; i < 5000; ++i)
        records.push_back(std::make_shared<Record>(name, [](auto&) {}));
    EXPECT_EQ(shown(ValueList{records, false}), "none");

    // Many elements at a depth where each line starts with a long indentation.
    Value deep = ValueList{std::vector<Value>(100000, 1), false};
    for (int i = 0; i < 400; ++i)
        deep = ValueList{{deep}, false};
    EXPECT_EQ(shown(deep), "none");
}

}  // namespace
}  // namespace corvane::cli
