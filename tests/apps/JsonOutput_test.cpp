#include "apps/cli/JsonOutput.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace corvane::cli {
namespace {

/// The document without its layout.
std::string compact(const std::string& json) {
    return nlohmann::ordered_json::parse(json).dump();
}

TEST(JsonOutput, WritesEveryFieldOfATask) {
    auto attachment = std::make_shared<HGAttachmentProxy>();
    attachment->setUrl("https://example.org");
    auto full = std::make_shared<HGTaskProxy>(platform::URL("x:1"));
    full->setTitle("Say \"hi\"\n");
    full->setNotes("n");
    full->setStatus(4);
    full->setStarred(true);
    full->setPriority(4);
    full->setDue(EXDateOnly(2024, 3, 5));
    full->setRepeat(1);
    full->setProjectName("p");
    full->setCategoryName("c");
    full->setCategoryColor(1);
    full->setCategoryIndicator(2);
    full->setContributorName("Ann");
    full->setAttachmentProxies({{attachment}});
    EXPECT_EQ(compact(tasksJson(std::vector{full})),
              R"({"tasks":[{"uri":"x:1","title":"Say \"hi\"\n","notes":"n","status":4,)"
              R"("statusName":"InProgress","starred":true,"priority":4,"priorityName":"Critical",)"
              R"("due":"2024-03-05","repeats":true,"project":"p","category":"c",)"
              R"("categoryIconIndex":47,"contributor":"Ann",)"
              R"("attachments":[{"uri":null,"url":"https://example.org","type":0}]}]})");
}

TEST(JsonOutput, WritesNullForWhatIsAbsentOrUnknown) {
    auto bare = std::make_shared<HGTaskProxy>();
    bare->setStatus(9);
    bare->setPriority(-1);
    bare->setTitle("\xFF");
    bare->setAttachmentProxies(std::nullopt);
    EXPECT_EQ(compact(tasksJson(std::vector{bare})),
              R"({"tasks":[{"uri":null,"title":"�","notes":null,"status":9,)"
              R"("statusName":null,"starred":false,"priority":-1,"priorityName":null,)"
              R"("due":null,"repeats":false,"project":null,"category":null,)"
              R"("categoryIconIndex":null,"contributor":null,"attachments":[]}]})");
}

TEST(JsonOutput, WritesInstantsInUTC) {
    using std::chrono::microseconds;
    const struct {
        std::int64_t count;
        const char* text;
    } cases[] = {
        {0, "1970-01-01T00:00:00.000000Z"},
        {1709647629123000, "2024-03-05T14:07:09.123000Z"},
        {-1, "1969-12-31T23:59:59.999999Z"},
        {253402300800000000, "+10000-01-01T00:00:00.000000Z"},
        {-62198755200000000, "-0001-01-01T00:00:00.000000Z"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(isoText(platform::Instant(microseconds(c.count))), c.text);
}

}  // namespace
}  // namespace corvane::cli
