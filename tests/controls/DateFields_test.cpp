#include "corvane/controls/DateFieldGrammar.h"
#include "corvane/platform/LocaleData.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include "tests/controls/FieldRoundTrip.h"

#include <gmock/gmock.h>

#include <iostream>
#include <sstream>

using namespace corvane;
using platform::DateStyle;
using tests::FieldSurroundings;

namespace {

constexpr int kNone = -1;

/// Both date fields in one locale.
struct Fields {
    explicit Fields(const char* locale) {
        date->setLocale(platform::Locale(locale));
        day->setLocale(platform::Locale(locale));
    }
    /// How many days ahead the text is, or kNone.
    int dateAhead(const std::string& text) const {
        const auto read = date->dateValueFromString(text);
        const auto calendar = EXCalendar::currentCalendar();
        return read ? static_cast<int>(calendar.daysFromDateOnly(calendar.dateOnlyForToday(),
                                                                 calendar.dateOnlyForDate(read)))
                    : kNone;
    }
    int dayAhead(const std::string& text) const {
        const auto read = day->dateOnlyValueFromString(text);
        const auto calendar = EXCalendar::currentCalendar();
        return read ? static_cast<int>(calendar.daysFromDateOnly(calendar.dateOnlyForToday(), read))
                    : kNone;
    }
    std::shared_ptr<CVMacDateField> date = std::make_shared<CVMacDateField>();
    std::shared_ptr<CVMacDateOnlyField> day = std::make_shared<CVMacDateOnlyField>();
};

std::string dayOf(const CVMacDateField& field) {
    const auto day = EXCalendar::currentCalendar().dateOnlyForDate(field.dateValue());
    return day ? day->isoString() : "";
}

}  // namespace

TEST(DateFields, NameTodaysWeekdayForNextWeekWhereDayFieldsNameToday) {
    FieldSurroundings surroundings;
    constexpr const char* kEnglish[] = {"sun", "MONDAY", "Tue", "wed", "Thursday", "FRI", "sat"};
    for (const char* locale : {"en", "de", "fr", "tr", "ar", "ja"}) {
        const Fields fields(locale);
        const bool isEnglish = std::string_view(locale) == "en";
        const platform::Locale where(locale);
        using platform::NameLength, platform::NameUse;
        const auto full = dateNamesOfLocale(where, NameLength::Full, NameUse::InDate).weekdays;
        const auto brief = dateNamesOfLocale(where, NameLength::Short, NameUse::InDate).weekdays;
        for (int today = 0; today < 7; ++today) {
            surroundings.setToday(EXDateOnly(2026, 3, 1 + today));  // the 1st is a Sunday
            for (std::size_t i = 0; i < 7; ++i) {
                const int ahead = (static_cast<int>(i) - today + 7) % 7;
                const int strictlyAhead = ahead == 0 ? 7 : ahead;
                for (const auto& name : {full[i], brief[i], upperCased(full[i], where)}) {
                    EXPECT_EQ(fields.dateAhead(name), strictlyAhead) << locale << " " << name;
                    EXPECT_EQ(fields.dayAhead(name), ahead) << locale << " " << name;
                }
                EXPECT_EQ(fields.dateAhead(kEnglish[i]), strictlyAhead) << locale;
                EXPECT_EQ(fields.dayAhead(kEnglish[i]), isEnglish ? ahead : kNone) << locale;
            }
        }
    }
}

TEST(DateFields, UnderstandTodayAndTomorrowByEnglishAndByTheNamesSet) {
    FieldSurroundings surroundings;  // on a Wednesday
    struct Case {
        const char *locale, *text;
        int date, day;            // ahead, without names
        int dateNamed, dayNamed;  // with names
    };
    const Case cases[] = {
        {"en", "tod", 0, kNone, 0, 0},
        {"en", "TODAY", 0, kNone, 0, 0},
        {"en", "tom", 1, kNone, 1, 1},
        {"en", "Tomorrow ", 1, kNone, 1, 1},
        {"de", "today", 0, kNone, 0, kNone},
        {"de", "HEUTE", kNone, kNone, 0, 0},
        {"de", "mor", kNone, kNone, 1, 1},
        {"de", "Tom", 1, kNone, 1, kNone},
        {"fr", "aujourd’hui", kNone, kNone, 0, 0},
        {"fr", "DEMAIN", kNone, kNone, 1, 1},
        {"tr", "yarın", kNone, kNone, 1, 1},
        {"tr", "TOMORROW", 1, kNone, 1, kNone},
        {"tr", "BUGÜN", kNone, kNone, 0, 0},
        {"ar", "اليوم", kNone, kNone, 0, 0},
        {"ar", "tod", 0, kNone, 0, kNone},
        {"ja", "今日", kNone, kNone, 0, 0},
        {"ja", "明日", kNone, kNone, 1, 1},
        {"ja", "xyz", kNone, kNone, kNone, kNone},
        {"en", "", kNone, kNone, kNone, kNone},
        {"en", " ", kNone, kNone, kNone, kNone},
    };
    const std::map<std::string, std::array<const char*, 4>> names{
        {"en", {"${Today}", "${TodayShort}", "${Tomorrow}", "${TomorrowShort}"}},
        {"de", {"${Today}", "${TodayShort}", "${Tomorrow}", "${TomorrowShort}"}},
        {"fr", {"Aujourd’hui", "auj", "Demain", "dem"}},
        {"tr", {"Bugün", "bug", "Yarın", "yar"}},
        {"ar", {"اليوم", "يوم", "غدًا", "غد"}},
        {"ja", {"今日", "今", "明日", "明"}},
    };
    for (const auto& each : cases) {
        const platform::ScopedLanguages languages({each.locale});
        const Fields fields(each.locale);
        const auto& name = names.at(each.locale);
        FieldSurroundings::setNames({}, {}, {}, {});
        EXPECT_EQ(fields.dateAhead(each.text), each.date) << each.locale << " " << each.text;
        EXPECT_EQ(fields.dayAhead(each.text), each.day) << each.locale << " " << each.text;
        FieldSurroundings::setNames(name[0], name[1], name[2], name[3]);
        EXPECT_EQ(fields.dateAhead(each.text), each.dateNamed) << each.locale << " " << each.text;
        EXPECT_EQ(fields.dayAhead(each.text), each.dayNamed) << each.locale << " " << each.text;
    }
}

TEST(DateFields, ReadDatesOfTheYearAheadAndStandardizeThem) {
    FieldSurroundings surroundings;
    const struct {
        const char *locale, *today, *texts, *day;
    } cases[] = {
        {"en_US", "2026-03-04", "3/4|Mar 4|Wed, Mar 4|Mon, mar 4", "2026-03-04"},
        {"en_US", "2026-03-04", "3/3|March 3|Tue, Mar 3", "2027-03-03"},
        {"en_US", "2026-03-04", "3/3/26|Mar 3, 26|Mar 3, 2026", "2026-03-03"},
        {"de_DE", "2026-03-04", "3.3.|3. März|3.3", "2027-03-03"},
        {"en_US", "2024-03-01", "2/29|Feb 29", "2025-03-01"},
        {"en_US", "2024-02-29", "2/29", "2024-02-29"},
        {"en_US", "2026-03-04", "Feb 30, 26|Mar 2, 2026", "2026-03-02"},
        {"en_US", "2026-03-04", "2/30|2/30/26|Feb 30|2/29|3.3.|x|3/3/26 x|\xFF", ""},
    };
    for (const auto& [locale, today, texts, day] : cases) {
        surroundings.setToday(*EXDateOnly::dateOnlyFromString(std::string(today)));
        const Fields fields(locale);
        std::istringstream stream(texts);
        for (std::string text; std::getline(stream, text, '|');) {
            fields.date->setStringValue(text);
            fields.date->sendAction();
            EXPECT_EQ(dayOf(*fields.date), day) << locale << " " << text;
            EXPECT_EQ(fields.date->stringValue().empty(), std::string_view(day).empty()) << text;
            const auto time =
                EXCalendar::currentCalendar().timeOnlyForDate(fields.date->dateValue());
            EXPECT_EQ(time.value_or(EXTimeOnly(8, 0, 0)), EXTimeOnly(8, 0, 0));
        }
    }
    // What the class reads is not standardized yet: words are, dates have the present time.
    surroundings.setToday(EXDateOnly(2026, 3, 4));
    const auto calendar = EXCalendar::currentCalendar();
    EXPECT_EQ(calendar.timeOnlyForDate(CVMacDateField::dateFromString("fri")), EXTimeOnly(8, 0, 0));
    EXPECT_EQ(calendar.timeOnlyForDate(CVMacDateField::dateFromString("3/5/26")),
              EXTimeOnly(17, 20, 0));
    EXPECT_FALSE(CVMacDateField::dateFromCommand("3/5/26"));
    EXPECT_FALSE(CVMacDateField::dateFromString({}));
}

TEST(DateFields, ShowNearDaysByNameUnlessInFullStyle) {
    FieldSurroundings surroundings;
    const struct {
        int ahead;
        const char *unnamed, *named, *full;
    } cases[] = {
        {-1, "Mar 3, 2026", "Mar 3, 2026", "Tuesday, March 3, 2026"},
        {0, "Mar 4, 2026", "Today", "Wednesday, March 4, 2026"},
        {1, "Mar 5, 2026", "Tomorrow", "Thursday, March 5, 2026"},
        {2, "Friday", "Friday", "Friday, March 6, 2026"},
        {6, "Tuesday", "Tuesday", "Tuesday, March 10, 2026"},
        {7, "Mar 11, 2026", "Mar 11, 2026", "Wednesday, March 11, 2026"},
    };
    const Fields fields("en_US");
    const auto show = [&](int ahead) {
        const auto day = FieldSurroundings::dayAhead(ahead);
        fields.day->setDateOnlyValue(day);
        fields.date->setDateValue(EXCalendar::currentCalendar().dateForEndOfDateOnly(day));
        EXPECT_EQ(fields.day->stringValue(), fields.date->stringValue());
        return fields.date->stringValue();
    };
    for (const auto& [ahead, unnamed, named, full] : cases) {
        FieldSurroundings::setNames({}, {}, {}, {});
        EXPECT_EQ(show(ahead), unnamed);
        FieldSurroundings::setNames("${Today}", {}, "${Tomorrow}", {});
        EXPECT_EQ(show(ahead), named);
        fields.date->setDateStyle(DateStyle::Full);  // which shows the value anew
        fields.day->setDateStyle(DateStyle::Full);
        EXPECT_EQ(fields.date->stringValue(), full);
        EXPECT_EQ(show(ahead), full);
        fields.date->setDateStyle(DateStyle::Medium);
        fields.day->setDateStyle(DateStyle::Medium);
    }
    fields.date->setDateValue({});
    fields.day->setDateOnlyValue({});
    EXPECT_EQ(fields.date->stringValue() + fields.day->stringValue(), "");
}

TEST(DateFields, ReadBackWhatTheyShowInManyLocales) {
    FieldSurroundings surroundings;
    FieldSurroundings::setNames("${Today}", {}, "${Tomorrow}", {});
    tests::RoundTrips trips, times;
    const auto locales = platform::knownLocales();
    for (std::size_t i = 0; i < locales.size(); i += 3) {
        tests::tryDates(locales[i], 400, 57, trips, trips);
        tests::tryTimes(locales[i], 397, times);
    }
    for (const auto* tried : {&trips, &times})
        for (const auto& [kind, failure] : tried->failures)
            ADD_FAILURE() << kind << ": " << failure.example;
    EXPECT_GT(trips.tried, 10000);
    EXPECT_GT(times.tried, 1000);
}

TEST(DateFields, TimesShowInTheStyleAndReadTheTypedForms) {
    FieldSurroundings surroundings;
    const auto field = std::make_shared<CVMacTimeOnlyField>();
    field->setLocale(platform::Locale("de_DE"));
    int sent = 0;
    field->setAction([&](views::Control&) { ++sent; });
    const struct {
        const char *typed, *shown, *value;
    } cases[] = {{"7", "07:00", "07:00:00"},
                 {"10:30 pm", "22:30", "22:30:00"},
                 {"8:15:30", "08:15", "08:15:30"},
                 {"24:00", "", ""},
                 {"", "", ""}};
    for (const auto& [typed, shown, value] : cases) {
        field->setStringValue(typed);
        field->sendAction();
        EXPECT_EQ(field->stringValue(), shown);
        EXPECT_EQ(field->timeOnlyValue() ? field->timeOnlyValue()->isoString() : "", value);
    }
    EXPECT_EQ(sent, 5);
    field->setLocale(platform::Locale("fi_FI"));  // writes a stop, which nobody may type
    field->setTimeOnlyValue(EXTimeOnly(22, 15, 0));
    EXPECT_EQ(field->stringValue(), "22.15");
    field->sendAction();
    EXPECT_FALSE(field->timeOnlyValue());
}

TEST(DateFields, TellTheirWeekdaysOnceAndEveryCommit) {
    platform::RecordingConsole console;
    const FieldSurroundings surroundings(&console);
    const Fields fields("en_US");
    fields.date->sendAction();
    fields.day->sendAction();
    std::make_shared<CVMacTimeOnlyField>()->sendAction();
    fields.date->setDateValue({});
    EXPECT_THAT(console.lines(), testing::ElementsAre("[CVMacDateField sendAction:to:]",
                                                      "[CVMacDateOnlyField sendAction:to:]",
                                                      "[CVMacTimeOnlyField sendAction:to:]"));
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // so that nothing is built yet
    const auto useTwice = [] {
        platform::RecordingConsole lines;
        const platform::ScopedConsole scope(lines);
        const platform::ScopedLocale locale(platform::Locale("de_DE"));
        CVMacDateField::dateFromString("mi");
        CVMacDateField::dateFromString("mi");
        for (const auto& line : lines.lines())
            std::cerr << line << "\n";
        std::exit(0);
    };
    EXPECT_EXIT(useTwice(), testing::ExitedWithCode(0),
                "^DEBUG: Sunday localized as 'sonntag' and short 'so.'\n(DEBUG: .*\n){3}"
                "DEBUG: Thurday localized as 'donnerstag' and short 'do.'\n(DEBUG: .*\n){2}$");
}
