// What a field shows must be read back as the value it shows, by the field itself. Prints what was
// tried in every locale that there are data for: each of the next 400 days in each style by both
// date fields, and times of the day by the time field wherever the forms of typed times allow it.
//
//     field_forms_report [STEP]     every STEPth locale, or every one
#include "tests/controls/FieldRoundTrip.h"

#include <cstdlib>

using namespace corvane;

namespace {

constexpr int kDays = 400;
constexpr int kMinutesApart = 7;

void print(const char* what, const tests::RoundTrips& trips) {
    fmt::print("{}: {} pairs of locale and value tried, {} failed\n", what, trips.tried,
               trips.failed);
    for (const auto& [kind, failure] : trips.failures)
        fmt::print("  {}: {}, and {} more\n", kind, failure.example, failure.count - 1);
}

}  // namespace

int main(int count, char** arguments) {
    const auto step = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 1;
    if (step == 0) return 2;
    tests::FieldSurroundings::setNames("${Today}", {}, "${Tomorrow}", {});
    const tests::FieldSurroundings surroundings;
    tests::RoundTrips dates, days, times;
    const auto locales = platform::knownLocales();
    for (std::size_t i = 0; i < locales.size(); i += step) {
        tests::tryDates(locales[i], kDays, 1, dates, days);
        tests::tryTimes(locales[i], kMinutesApart, times);
    }
    print("date fields", dates);
    print("day-only fields", days);
    print("time fields", times);
    fmt::print("{} times were shown in a form that cannot be typed\n", times.passedOver);
    return dates.failed + days.failed + times.failed == 0 && dates.tried > 0 ? 0 : 1;
}
