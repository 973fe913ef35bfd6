#include "corvane/formats/EXCSVWriter.h"
#include "corvane/formats/EXXMLScanner.h"
#include "corvane/formats/EXXMLWriter.h"
#include "corvane/formats/HGCorvaneBackupConstants.h"
#include "corvane/platform/Clock.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/TemporaryDirectory.h"
#include "corvane/platform/TimeZone.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <random>

namespace corvane::tests {
using namespace platform;
using C = HGCorvaneBackupConstants;

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string kLong(140000, 'l'), kLonger(270000, 'L');  // than half the buffer, than all of it
const std::string kDocument = kDeclaration + "<t z=\"a&b\" id=\"7\"><s>" + kLong + "</s>\n" +
                              "<c><![CDATA[]]>é<]]></c>\n1.500000<c></c>\n" + kLong +
                              "<a to=\"x\"/>\n<s><![CDATA[" + kLonger + "]]></s>\n</t>\n";

bool writeDocument(EXXMLWriter& w) {
    w.setAlwaysWriteStringsAsCDATA(true);
    return w.writeStartElement("t", {{"z", "a&b"}, {"id", "7"}}) && w.writeCDATAContent("") &&
           w.writeElementWithStringContent("s", kLong) && w.writeDoubleContent(-INFINITY) &&
           w.writeElementWithCDATAContent("c", "]]>é<") && w.writeDoubleContent(1.5) &&
           w.writeElementWithCDATAContent("c", "") && w.writeString(kLong) &&
           w.writeElementWithAttributes("a", {{"to", "x"}}) &&
           w.writeElementWithValueContent("s", kLonger, EXXMLTypeString) &&
           !w.writeElementWithValueContent("u", 1, EXXMLType(10)) && w.writeEndElement("t");
}

TEST(EXXMLWriter, WritesThisLayoutOrTellsThatItCannot) {
    const TemporaryDirectory directory;
    const std::string path = directory.write("a.xml", kDocument + "old");
    for (const bool autoCreating : {false, true}) {
        EXXMLWriter w(path);
        EXPECT_TRUE(w.openAutoCreating(autoCreating) && writeDocument(w) && w.close());
        EXPECT_EQ(directory.content()["a.xml"], kDocument + (autoCreating ? "" : "old"));
    }
    BytesSink sink;
    EXXMLWriter w(sink);
    EXPECT_TRUE(w.openAutoCreating(false) && writeDocument(w) && w.close() &&
                sink.take().size() == kDocument.size());
    EXXMLWriter f("/dev/full");
    EXPECT_TRUE(f.openAutoCreating(false) && f.writeString("small"));
    EXPECT_FALSE(f.flush() || f.writeString("") || f.close());
    EXPECT_TRUE(f.error()->code == ENOSPC && f.openAutoCreating(false) && !writeDocument(f));
    RecordingConsole console;
    const ScopedConsole scope(console);
    Error error;
    for (const auto& place : {directory / "no", directory.path(), path + "/a"}) {
        EXPECT_FALSE(EXXMLWriter(place).openAutoCreating(place != directory / "no", &error));
        EXPECT_EQ(error.message.find("cannot open '" + place), 0u);
    }
    EXPECT_EQ(console.lines().at(1), "WARNING: Could not create file at path '" + path + "/a'");
    EXPECT_EQ(directory.content().size(), 1u);
}

/// What stands between the tags.
std::string content(const EXValue& value, EXXMLType type) {
    EXXMLWriter w("/dev/null");
    w.setKeepsDebugString(true);
    EXPECT_TRUE(w.openAutoCreating(false) &&
                w.writeElementWithValueContent("v", value, type, &C::taskStatusMapping()));
    const std::string text(w.debugString().value());
    return text.substr(kDeclaration.size() + 3, text.size() - kDeclaration.size() - 8);
}

TEST(EXXMLWriter, WritesEveryValueSoThatItScansBack) {
    std::mt19937_64 random(4);
    const auto below = [&](unsigned n) { return static_cast<std::int64_t>(random() % n); };
    for (int i = 0; i < 20000; ++i) {
        const auto bits = static_cast<std::int64_t>(random()) >> below(64);
        const double real = std::ldexp(bits, static_cast<int>(below(1900)) - 1000);
        const Instant date(std::chrono::microseconds(bits / 2));
        const EXDateOnly day(bits >> 20 & INT32_MAX, 1 + below(12), 1 + below(31));
        const EXTimeOnly time(below(24), below(60), below(60));
        const std::string text = "é <&>]\n\"" + std::to_string(bits);
        const EXValue values[] = {{}, text, text, bits > 0, bits, real, date, day, time, below(9)};
        const auto type = static_cast<EXXMLType>(1 + below(9));
        EXValue scanned, expected = values[below(10) ? type : 0];
        auto written = content(expected, type);
        if (written.starts_with("<!")) written = written.substr(9, written.size() - 12);
        const EXXMLScanner scanner(" \n\u2028" + written + "\u3000\t");
        ASSERT_TRUE(scanner.scanValueContent(&scanned, type, &C::taskStatusMapping()));
        if (expected.instant()) expected = Instant(floor<std::chrono::seconds>(date));
        if (expected == EXValue(real)) expected = std::stod(std::to_string(real));
        ASSERT_EQ(scanned, expected) << type << written;
    }
}

TEST(EXXMLScanner, ReadsWhatTheTypeAllows) {
    // The type's code, a text, and after "=" how that is written again; nothing where it cannot be.
    std::stringstream cases(
        "3True=|3false=false|412abc=12|4--1=|4-9223372036854775809=-9223372036854775808|5nan=|95=|"
        "5-.5e1x=-5.000000|51e-999=0.000000|6-0044-03-15T00:00:00Z=-0044-03-15T00:00:00Z|5+-1=|0x=|"
        "610000-01-01T00:00:00Z=10000-01-01T00:00:00Z|62015-03-01T10:00:00.5Z=|9OnHold=OnHold|:x=|"
        "602015-03-01T10:00:00Z=|62015-02-29T10:00:00Z=|62015-3-01T10:00:00Z=|6999999-01-01T00:00:"
        "00Z=|62015-03-01T24:00:00Z=|62015-03-01T10:00:00ZZ=|9onHold=|72024-2-31x=2024-02-31|81:2=|"
        "5-1e999=" +
        std::to_string(-0x1.fffffffffffffp1023));
    for (std::string text, again; std::getline(std::getline(cases, text, '='), again, '|');) {
        const auto type = static_cast<EXXMLType>(text[0] - '0');
        EXValue value = "unchanged";
        const bool scans =
            EXXMLScanner(text.substr(1)).scanValueContent(&value, type, &C::taskStatusMapping());
        EXPECT_TRUE(scans ? !value.isNull() : value == EXValue("unchanged")) << text;
        EXPECT_EQ(scans ? content(value, type) : "", again) << text;
    }
}

TEST(HGCorvaneBackupConstants, KeepTheirNames) {
    std::string names;
    for (auto& mapping :
         {C::colorMapping(), C::indicatorMapping(), C::priorityMapping(), C::projectStatusMapping(),
          C::taskStatusMapping(), C::taskSourceMapping(), C::taskRepeatMapping(),
          C::customRepeatFrequencyMapping(), C::actionStatusMapping(), C::attachmentTypeMapping()})
        for (std::int64_t code = 0; auto name = mapping.objectForKey(code); ++code)
            names += *name + (mapping.keyForObject(*name) == code ? " " : "!");
    EXPECT_EQ(
        "Gray Purple Violet Blue Cyan Green Orange Red Default Phone Email Question Issue Idea "
        "Agenda Errands Computer Home Office Review Gear Music Photo Wave Decision Hammer Money "
        "Megaphone App Brush Bug Car Cloud Cooking Game Plane Star TV Brain Gift Speechbubble "
        "Video Trivial Low Medium High Critical NotStarted Active OnHold Completed Canceled Inbox "
        "Someday Scratchpad Actionable InProgress OnHold Completed Canceled Trash None Reminder "
        "Never EveryDay EveryWeek EveryTwoWeeks EveryMonth EveryTwoMonths EveryQuarter EveryYear "
        "Custom Daily Weekly Monthly Yearly Actionable InProgress Completed Link ",
        names);
}

struct Rows final : EXKeyValueRows {
    std::vector<EXValue> maps;
    std::size_t count() const override { return maps.size(); }
    EXValue valueForKey(std::string_view key, std::size_t index) const override {
        return maps[index].find(key) ? *maps[index].find(key) : EXValue();
    }
    /// Some are shown without a copy, others boxed.
    std::optional<std::string_view> heldTextForKey(std::string_view key,
                                                   std::size_t index) const override {
        const auto* value = key == "title" ? maps[index].find(key) : nullptr;
        return value ? value->text() : std::nullopt;
    }
};

TEST(EXCSVWriter, WritesTheseBytesAndShowsThem) {
    const TemporaryDirectory directory;
    const ScopedTemporaryDirectory temporary(directory.path());
    const ScopedTimeZone zone("Pacific/Auckland");
    const FixedClock clock(Instant(std::chrono::hours(9 * 24 + 12)));
    const ScopedClock now(clock);
    RecordingConsole console;
    const ScopedConsole scope(console);
    Rows rows;
    const auto write = [&](std::string_view prefix) {
        const std::string keys[] = {"title", "due", "n;"};
        return EXCSVWriter::pathToTemporaryFileWritingKeyValueRows(&rows, keys, prefix);
    };
    const EXDateOnly day(2015, 3, 1);
    rows.maps = {ValueMap{{{"title", "\"hi\";\n"}, {"due", day}, {"n;", 3}}},
                 ValueMap{{{"due", day}}}, ValueMap(), ValueMap{{{"n;", ""}}}};
    const std::string text =
        "title;due;n;\x1C\n\"\"\"hi\"\";\n\";2015-03-01;\x1C\n2015-03-01;\x1C\n\x1C\n\"\"\x1C\n";
    EXPECT_EQ(write("a:b:"), directory / "ab-1970-01-11.csv");
    EXPECT_EQ(directory.content()["ab-1970-01-11.csv"], text);
    EXPECT_EQ(console.lines()[0], "\n### DEBUGGING\n-----------" + text + "\n-----------\n\n");
    EXPECT_FALSE(write("../ab") || EXCSVWriter::writeKeyValueRows(&rows, {{}}, "/dev/full"));
    std::filesystem::permissions(directory.path(), std::filesystem::perms::all);
    EXPECT_EQ(write(""), directory / ("corvane-" + std::to_string(getuid()) + "/-1970-01-11.csv"));
}
}  // namespace corvane::tests
