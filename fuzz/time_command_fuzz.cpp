// Whatever is typed, a time that comes of it is one of the day, and written on either clock it is
// the same time again. The first byte chooses the locale.
#include "corvane/dates/TimeCommandGrammar.h"
#include "corvane/platform/LocaleData.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace corvane;

namespace {

struct Subject {
    explicit Subject(const char* name)
        : grammar(platform::Locale(name)),
          markers(platform::halfDayMarkersOfLocale(platform::Locale(name))) {}

    TimeCommandGrammar grammar;
    std::array<std::string, 2> markers;
};

void require(bool holds) {
    if (!holds) std::abort();
}

void check(const Subject& subject, const std::string& text) {
    const auto time = subject.grammar.parse(text);
    if (!time) return;
    require(time->hour() >= 0 && time->hour() < 24 && time->minute() < 60 && time->second() < 60);
    require(subject.grammar.parse(time->isoString()) == time);
    require(!subject.grammar.parse(" " + text) && !subject.grammar.parse(text + " "));
    const bool isAfterNoon = time->hour() >= 12;
    const auto hour = time->hour() % 12 == 0 ? 12 : time->hour() % 12;
    const auto fields = std::to_string(hour) + time->isoString().substr(2);
    for (const auto& marker :
         {subject.markers[isAfterNoon], std::string(isAfterNoon ? "pm" : "am")})
        require(subject.grammar.parse(fields + marker) == time &&
                subject.grammar.parse(fields + "\u202F" + marker) == time);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Subject subjects[] = {Subject("en_US"), Subject("es_ES"),     Subject("ar_EG"),
                                       Subject("fa_IR"), Subject("ja_JP"),     Subject("ko_KR"),
                                       Subject("tr_TR"), Subject("ff_Adlm_GN")};
    if (size < 1) return 0;
    check(subjects[data[0] % std::size(subjects)], std::string(data + 1, data + size));
    return 0;
}
