#include "apps/cli/ArchiveJson.h"

#include "corvane/bridge/HGTaskProxyList.h"
#include "corvane/platform/ArchivedRecord.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <functional>
#include <limits>

namespace corvane::cli {
namespace {

using nlohmann::ordered_json;
using platform::Bytes;
using platform::URL;
using platform::Value;
using platform::ValueList;
using platform::ValueMap;

/// The document without its layout.
std::string compact(const std::optional<std::string>& json) {
    return json ? ordered_json::parse(*json).dump() : "none";
}

/// Through an archive, as a file would come.
std::string shown(const Value& value) {
    auto data = platform::KeyedArchiver::archivedData(value).value();
    return compact(archiveJson(
        platform::KeyedUnarchiver::unarchiveData(data, platform::ArchivedRecord::anyClass()),
        data.size()));
}

/// A record with any fields.
class Record final : public platform::Archivable {
  public:
    explicit Record(std::function<void(platform::KeyedArchiver&)> encode,
                    std::string_view name = "R")
        : encode_(std::move(encode)), name_(name) {}
    std::string_view archiveClassName() const override { return name_; }
    void encodeWithCoder(platform::KeyedArchiver& coder) const override { encode_(coder); }

  private:
    std::function<void(platform::KeyedArchiver&)> encode_;
    std::string_view name_;
};

TEST(ArchiveJson, WritesValuesOfEveryKind) {
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        Value value;
        const char* json;
    } cases[] = {
        {"text", R"("text")"},
        {true, "true"},
        {-5, "-5"},
        {3.0, "3.0"},
        {std::nan(""), R"({"$real":"nan"})"},
        {-infinite, R"({"$real":"-inf"})"},
        {URL("x:a b"), R"({"$url":"x:a b"})"},
        {platform::kReferenceDate, R"({"$date":"2001-01-01T00:00:00.000000Z"})"},
        {EXDateOnly(2024, 3, 5),
         R"({"$class":"EXDateOnly","EXDateOnlyEncodedValue":132645637,"$day":"2024-03-05"})"},
        {Bytes(1, std::byte{0xFB}), R"({"$data":"+w=="})"},
        {Bytes(2, std::byte{0xFB}), R"({"$data":"+/s="})"},
        {Bytes(3, std::byte{0xFB}), R"({"$data":"+/v7"})"},
        {Bytes(), R"({"$data":""})"},
        {ValueList{{1, "a", ValueList{}}, true}, R"([1,"a",[]])"},
        {ValueMap{{{"k", 1}, {"m", "a"}}, true}, R"({"k":1,"m":"a"})"},
        {ValueMap{{{"$ref", 1}}, true}, R"({"$map":[["$ref",1]]})"},
        {ValueMap{{{URL("x:1"), 2}}, true}, R"({"$map":[[{"$url":"x:1"},2]]})"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(c.value), c.json);
}

TEST(ArchiveJson, WritesRecordsByClassAndKey) {
    auto task = std::make_shared<HGTaskProxy>();
    task->setTitle("a");
    const auto json = ordered_json::parse(
        shown(std::make_shared<HGTaskProxyList>(std::vector{task, task}, "id")));
    EXPECT_EQ(json["$class"], "HGTaskProxyList");
    EXPECT_EQ(json["HGTaskProxyListTitle"], nullptr);
    const auto& tasks = json["HGTaskProxyListTaskProxies"];
    EXPECT_EQ(tasks[0]["$id"], 1);
    EXPECT_EQ(tasks[0]["$class"], "HGTaskProxy");
    EXPECT_EQ(tasks[0]["HGTaskProxyTitle"], "a");
    EXPECT_EQ(tasks[1].dump(), R"({"$ref":1})");
}

TEST(ArchiveJson, RefersToWhatItHasShown) {
    const Value list(ValueList{{1}, false}), map(ValueMap{{{"a", list}}, false});
    const Value text(std::string(300, 't')), data(Bytes(1));
    EXPECT_EQ(shown(ValueList{{list, map, list, map}, false}),
              R"([{"$id":1,"$list":[1]},{"$id":2,"a":{"$ref":1}},{"$ref":1},{"$ref":2}])");
    // Not through an archive, which may hold equal bytes twice.
    EXPECT_EQ(compact(archiveJson(ValueList{{data, data, "short", "short"}, false}, 0)),
              R"([{"$id":1,"$data":"AA=="},{"$ref":1},"short","short"])");
    EXPECT_EQ(shown(ValueList{{text, text}, false}),
              R"([{"$id":1,"$text":")" + std::string(300, 't') + R"("},{"$ref":1}])");
}

TEST(ArchiveJson, KeepsFieldsThatLookLikeItsOwnApart) {
    EXPECT_EQ(shown(std::make_shared<Record>([](auto& coder) {
                  coder.encodeInteger("$id", 1);
                  coder.encodeInteger("b", 2);
              })),
              R"({"$class":"R","$fields":[["$id",1],["b",2]]})");
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
        records.push_back(std::make_shared<Record>([](auto&) {}, name));
    EXPECT_EQ(shown(ValueList{records, false}), "none");

    // Many elements at a depth where each line starts with a long indentation.
    Value deep = ValueList{std::vector<Value>(100000, 1), false};
    for (int i = 0; i < 400; ++i)
        deep = ValueList{{deep}, false};
    EXPECT_EQ(shown(deep), "none");
}

}  // namespace
}  // namespace corvane::cli
