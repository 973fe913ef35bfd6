#include "corvane/bridge/HGTaskProxy.h"

#include "corvane/platform/Locale.h"

#include "tests/support/BridgeSamples.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

constexpr auto all = [](const auto&... fields) { return tests::Content::all(fields...); };
using tests::contentOf;
using tests::foreignRecord;
using tests::reread;

constexpr std::optional<int> none;

template <class T>
void expectContents(const std::string& whenNew, const std::string& withoutKeys) {
    EXPECT_EQ(contentOf(T()), whenNew);
    EXPECT_EQ(contentOf(foreignRecord<T>()), withoutKeys);
}

TEST(ProxyRecords, MissingKeysReadAsNothingAndNotAsTheDefaultsOfNewOnes) {
    const HGTaskProxy::AttachmentProxies noAttachments;
    const std::vector<platform::URL> noURIs;
    expectContents<HGTaskProxy>(
        all(none, none, none, 3, false, 2, none, 0, none, none, 0, 0, none, noAttachments),
        all(none, none, none, 0, false, 0, none, 0, none, none, 0, 0, none, none));
    expectContents<HGProjectProxy>(all(none, none, noURIs, none, 0, 0),
                                   all(none, none, none, none, 0, 0));
    expectContents<HGCategoryProxy>(all(none, none, 0, 0), all(none, none, 0, 0));
    expectContents<HGPortfolioProxy>(all(none, none, noURIs), all(none, none, none));
    expectContents<HGAttachmentProxy>(all(none, none, 0), all(none, none, 0));
}

// The other records come back in the golden files.
TEST(HGTaskProxy, ComesBackWithEveryFieldButEqualsOnlyItself) {
    std::vector tasks{tests::sampleTask(), std::make_shared<HGTaskProxy>()};
    for (const char* title : {"", "$null", "plain", "\U0001F331 Grüße\n"}) {
        const auto& task = tasks.emplace_back(tests::titledTask(title));
        task->setStatus(std::numeric_limits<std::int16_t>::min());
        task->setCategoryColor(std::numeric_limits<std::int16_t>::max());
        task->setDue(EXDateOnly());
        task->setAttachmentProxies(std::nullopt);
    }
    for (const auto& task : tasks) {
        const auto read = reread(*task);
        EXPECT_EQ(contentOf(read), contentOf(task));
        EXPECT_TRUE(read->isEqual(read.get()));
        EXPECT_FALSE(read->isEqual(task.get()) || read->isEqual(nullptr));
    }
}

TEST(ProxyRecords, CodesKeepTheirLow16Bits) {
    using namespace std::string_literals;
    const std::pair<std::string, std::int16_t> cases[] = {
        {"\x12\x00\x01\x11\x70"s, 4464},                // 70000
        {"\x11\xFF\xFF"s, -1},                          // 65535
        {"\x11\x80\x00"s, -32768},                      // 32768
        {"\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE"s, -2},  // negative ones take 8 bytes
        {"\x13\x7F\xFF\xFF\xFF\xFF\xFF\x00\x07"s, 7},   // beyond 32 bits
        {"\x23\x40\x0F\x33\x33\x33\x33\x33\x33"s, 3},   // 3.9
        {"\x09"s, 1},                                   // true
        {"\x80\x00"s, 0},                               // the absent object
    };
    for (const auto& [bytes, code] : cases) {
        auto task = foreignRecord<HGTaskProxy>(
            {"Status", "Priority", "CategoryColor", "CategoryIndicator"}, bytes);
        auto project = foreignRecord<HGProjectProxy>({"CategoryColor", "CategoryIndicator"}, bytes);
        auto category = foreignRecord<HGCategoryProxy>({"Color", "Indicator"}, bytes);
        auto attachment = foreignRecord<HGAttachmentProxy>({"Type"}, bytes);
        EXPECT_EQ(contentOf(task), all(none, none, none, code, false, code, none, 0, none, none,
                                       code, code, none, none));
        EXPECT_EQ(contentOf(project), all(none, none, none, none, code, code));
        EXPECT_EQ(contentOf(category), all(none, none, code, code));
        EXPECT_EQ(contentOf(attachment), all(none, none, code));
    }
}

TEST(HGTaskProxy, RepeatComesBackAsWhetherItsLowByteIsZero) {
    const std::pair<std::int16_t, int> cases[] = {{0, 0},   {1, 1},   {5, 1},  {255, 1},
                                                  {256, 0}, {257, 1}, {-1, 1}, {-256, 0}};
    for (const auto& [repeat, expected] : cases) {
        HGTaskProxy task;
        task.setRepeat(repeat);
        EXPECT_EQ(reread(task)->repeat(), expected) << repeat;
    }
}

TEST(ProxyRecords, IconIndexIsAPlaceInTheGridOrOutsideIt) {
    const std::tuple<std::int16_t, std::int16_t, std::int64_t> cases[] = {
        {0, 0, 0}, {2, 7, 97}, {-1, 0, -45}, {0, -1, -1}, {-32768, -32768, -1507328}};
    HGCategoryProxy category;
    for (const auto& [color, indicator, index] : cases) {
        category.setColor(color);
        category.setIndicator(indicator);
        EXPECT_EQ(category.iconIndex(), index);
    }
    EXPECT_EQ(tests::sampleTask()->categoryIconIndex(), 5 * 45 + 44);
}

TEST(HGTaskProxy, AttachmentsAreCountedInTheUsersLanguage) {
    using Attachments = HGTaskProxy::AttachmentProxies;
    const std::tuple<std::optional<Attachments>, const char*, const char*> cases[] = {
        {std::nullopt, "None", "Keine"},
        {Attachments{}, "None", "Keine"},
        {Attachments(3, std::make_shared<HGAttachmentProxy>()), "3", "3"}};
    for (const auto& [attachments, english, german] : cases) {
        HGTaskProxy task;
        task.setAttachmentProxies(attachments);
        EXPECT_EQ(task.attachmentProxiesCount(), attachments ? attachments->size() : 0);
        for (const auto& [language, text] : {std::pair{"en", english}, {"de", german}}) {
            platform::ScopedLanguages scope({language});
            EXPECT_EQ(task.attachmentProxiesCountString(), text) << language;
        }
    }
}

}  // namespace
}  // namespace corvane
