// The times of day that people type, on the clock of 24 hours, or on that of 12 with a marker of
// the half day. Immutable; any thread.
#pragma once

#include "corvane/dates/EXTimeOnly.h"
#include "corvane/dates/NameTable.h"
#include "corvane/platform/TypedText.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Hours, minutes and seconds are one or two digits with colons between them; what is not typed is
/// 0. Only before the marker may there be white space. Markers are the locale's and everywhere "am"
/// and "pm", in any letter case, with or without full stops. With a marker the hour is 1 to 12.
///
///     TimeCommandGrammar grammar(platform::Locale("ja_JP"));
///     grammar.parse("22:15")       // 22:15:00
///     grammar.parse("7")           // 07:00:00
///     grammar.parse("10:30午後")   // 22:30:00
///     grammar.parse("12 a.m.")     // 00:00:00
///     grammar.parse("1030")        // none, as for "10.30", "24:00", "13 pm", "noon"
class TimeCommandGrammar {
  public:
    explicit TimeCommandGrammar(const platform::Locale& locale);

    std::optional<EXTimeOnly> parse(std::string_view text) const;

  private:
    void addMarker(const std::string& typed, int half);

    platform::LetterCase letterCase_;
    NameTable markers_;  ///< 0 for the hours before noon, 1 for those after.
};

}  // namespace corvane
