// The backup document: what is written comes back, what is not known stays, what is wrong is told.
#include "apps/document/BackupFile.h"
#include "apps/document/BackupLayout.h"
#include "apps/document/BackupReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace corvane::backup {
namespace {

using testing::HasSubstr;

const std::string kPieces[] = {"a",
                               " ",
                               "\n",
                               "\r",
                               "\r\n",
                               "\t",
                               "<b x='1'>",
                               "&amp;",
                               "]]>",
                               "]]",
                               ">",
                               "\"",
                               "'",
                               "-->",
                               "\\",
                               "\\u{41}",
                               "\x01",
                               "\x1F",
                               "\x7F",
                               "é",
                               "💡",
                               "\u0085",
                               "\u00A0",
                               "\u2028",
                               "\uFFFE",
                               "\uFFFF",
                               "\uFEFF",
                               "\U0010FFFF",
                               std::string(1, '\0')};

/// Values of every kind in every field, the texts of the hostile sort.
struct RandomDocument {
    std::mt19937_64 random;
    int number = 0;

    int below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
    std::string text() {
        std::string result;
        for (int left = below(6); left > 0; --left)
            result += kPieces[below(std::size(kPieces))];
        return result;
    }
    EXValue value(EXXMLType type) {
        const auto n = static_cast<std::int64_t>(random());
        if (type == EXXMLTypeBool) return n < 0;
        if (type == EXXMLTypeInt64) return n;
        if (type == EXXMLTypeDate) return Instant(std::chrono::seconds(n % 100'000'000'000));
        if (type == EXXMLTypeDateOnly)
            return EXDateOnly(below(12000), below(12) + 1, below(31) + 1);
        if (type == EXXMLTypeTimeOnly) return EXTimeOnly(below(24), below(60), below(60));
        if (type == EXXMLTypeEnum) return n < 0 ? below(9) : below(65536) - 32768;
        return text();
    }
    void fill(Record& record, const RecordLayout& layout) {
        if (layout.identity != Identity::None) record.uri = URL(text() + std::to_string(number++));
        for (const Part& part : layout.parts) {
            for (int left = below(3); part.isCollection() && left > 0; --left)
                fill(part.add(record), *part.records);
            if (!part.isCollection() && below(3) > 0) part.set(record, value(part.type));
        }
    }
};

TEST(BackupDocument, ComesBackAsItWasWritten) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        BackupDocument document;
        RandomDocument{std::mt19937_64(seed)}.fill(document, documentLayout());
        const std::string content = textOfBackupDocument(document, nullptr).value();
        ASSERT_TRUE(parseBackupDocument(content, "d", nullptr) == document) << seed << content;
    }
}

TEST(BackupDocument, KeepsInPlaceWhatItDoesNotKnow) {
    const std::string content = R"(<?xml version="1.0" encoding="UTF-8"?>
<backup version="1" xmlns:n="urn:n"><n:a b="&quot;&#10;&lt;"> mixed <c></c>text &amp;&#13;</n:a>
<tasks order="manual"><folder></folder>
<task uri="t:1" icon="7"><mood>1</mood>
<titleRaw lang="de">Müll<ruby>x<rt>y</rt></ruby></titleRaw>
<mood>2</mood>
<statusRaw>Delegated</statusRaw>
<dueRaw zone="x"></dueRaw>
<repeatRaw code="77" hint="z"></repeatRaw>
<taskContexts kind="k"><taskContext weight="1"></taskContext>
<between></between>
<taskContext></taskContext>
</taskContexts>
</task>
<folder></folder>
</tasks>
</backup>
)";
    auto document = parseBackupDocument(content, "d", nullptr).value();
    EXPECT_EQ(textOfBackupDocument(document, nullptr), content);

    // Only a name gives way to a value.
    document.tasks[0].statusRaw = 6;
    std::string expected = content;
    expected.replace(expected.find("Delegated"), 9, "Completed");
    EXPECT_EQ(textOfBackupDocument(document, nullptr), expected);
}

TEST(BackupDocument, IsRefusedWholeWithThePlace) {
    auto within = [](const std::string& tasks) {
        return "<backup version='1'>\n<tasks>\n" + tasks + "</tasks></backup>";
    };
    auto field = [&](const std::string& element) {
        return within("<task uri='é'><notes>ä</notes>" + element + "</task>");
    };
    std::string nested = "<backup version='1'>";
    for (int depth = 1; depth < 65; ++depth)
        nested += "<n>";
    const struct {
        std::string content;
        const char* problem;
    } cases[] = {
        {"\xEF\xBB\xBF<backup/>", ":1:1: not a backup: no version"},
        {"<backup version='2'/>", ":1:1: of a version"},
        {"\n<!DOCTYPE b [<!ENTITY a 'x'><!ENTITY b '&a;'>]><backup/>", ":2:13: a document type"},
        {nested, ":1:210: nested too deeply"},
        {within("<task>"), ":3:1: a task without uri"},
        {within("<task uri='a'/>\r\n\r<task uri='a'/>"), ":5:1: a uri for the second time"},
        {within("text"), ":3:1: text outside a field"},
        {within("<task uri='a'><notes>\xC0\xAF</notes></task>"), ":3:22: not well-formed"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><backup a='\xE9'/>", ":1:55: not well"},
        {field("<notes/>"), ":3:31: 'notes' for the second time"},
        {field("<dueRaw>-5-03-04</dueRaw>"), ":3:31: not a value of 'dueRaw'"},
        {field("<statusRaw code='65536'/>"), ":3:31: not a value of 'statusRaw'"},
        {field("<titleRaw escape='backslash'>\\u{D800}</titleRaw>"), "not a value of 'titleRaw'"},
    };
    for (const auto& c : cases) {
        platform::Error error;
        EXPECT_FALSE(parseBackupDocument(c.content, "d", &error)) << c.content;
        EXPECT_THAT(error.message, HasSubstr(c.problem)) << c.content;
    }
}

TEST(BackupDocument, IsRefusedBeyondTheLimits) {
    const std::string content =
        "<backup version='1'>\n<tasks>\n<task uri='a'><n/></task>\n<task "
        "uri='b'/></tasks></backup>";
    const auto size = content.size();
    const std::pair<DocumentLimits, const char*> cases[] = {
        {{size, 5, 2}, ""},
        {{size - 1, 5, 2}, "1:1: too large for a document"},
        {{size, 4, 2}, "4:1: too many elements"},
        {{size, 3, 2}, "3:15: too many elements"},
        {{size, 5, 1}, "4:1: too many records"}};
    for (const auto& [limits, problem] : cases) {
        const auto result = readBackupDocument(content, limits);
        const auto* refusal = std::get_if<Problem>(&result);
        EXPECT_EQ(refusal ? refusal->text() : "", problem);
    }
}

}  // namespace
}  // namespace corvane::backup
