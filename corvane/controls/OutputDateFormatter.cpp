#include "corvane/controls/OutputDateFormatter.h"

#include "corvane/controls/SharedDateNames.h"
#include "corvane/dates/DatePattern.h"
#include "corvane/platform/CivilDays.h"
#include "corvane/platform/TimeZone.h"
#include "corvane/platform/TypedText.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? "''" : std::string(1, c);
    return result + "'";
}

/// Thai and Lao write the era, of which this calendar has but one that anybody types: a fixed text.
std::string withEraAsText(std::string_view pattern, const platform::Locale& locale) {
    std::string result;
    bool inQuotes = false;
    while (!pattern.empty()) {
        const char c = pattern.front();
        if (c == '\'') inQuotes = !inQuotes;
        const bool isEra = c == 'G' && !inQuotes;
        const auto size = isEra ? std::min(pattern.find_first_not_of('G'), pattern.size()) : 1;
        const auto part = pattern.substr(0, size);
        pattern.remove_prefix(size);
        result += isEra ? quoted(platform::DateFormatter(part, locale).stringFromCivil({}))
                        : std::string(part);
    }
    return result;
}

}  // namespace

struct OutputDateFormatter::Writer {
    platform::DateFormatter formatter;
};

struct OutputDateFormatter::Reader {
    platform::LetterCase letterCase;
    std::optional<DatePattern> pattern;
    std::shared_ptr<const DateNameTables> names;
};

OutputDateFormatter::OutputDateFormatter(platform::Locale locale, Style dateStyle, Style timeStyle)
    : locale_(std::move(locale)), dateStyle_(dateStyle), timeStyle_(timeStyle) {}

OutputDateFormatter::~OutputDateFormatter() = default;
OutputDateFormatter::OutputDateFormatter(OutputDateFormatter&&) noexcept = default;
OutputDateFormatter& OutputDateFormatter::operator=(OutputDateFormatter&&) noexcept = default;

void OutputDateFormatter::setDateStyle(Style style) {
    dateStyle_ = style;
    writer_.reset();
    reader_.reset();
}

void OutputDateFormatter::setTimeStyle(Style style) {
    timeStyle_ = style;
    writer_.reset();
}

std::string OutputDateFormatter::pattern() const {
    return dateStyle_ != Style::None ? platform::datePatternOfStyle(locale_, dateStyle_)
                                     : platform::timePatternOfStyle(locale_, timeStyle_);
}

std::string OutputDateFormatter::stringFromDate(platform::Instant date) const {
    if (!writer_)
        writer_ = std::make_unique<Writer>(Writer{platform::DateFormatter(pattern(), locale_)});
    return writer_->formatter.stringFromCivil(platform::TimeZone::current().civilFromInstant(date));
}

const OutputDateFormatter::Reader& OutputDateFormatter::reader() const {
    if (reader_) return *reader_;
    Reader reader{platform::letterCaseOfLocale(locale_), {}, {}};
    if (dateStyle_ != Style::None)
        reader.pattern = DatePattern::compile(withEraAsText(pattern(), locale_), reader.letterCase);
    if (reader.pattern) reader.names = sharedDateNames(locale_, reader.pattern->hasNarrowMonth());
    reader_ = std::make_unique<Reader>(std::move(reader));
    return *reader_;
}

std::optional<EXDateOnly> OutputDateFormatter::dayFromString(std::string_view text) const {
    const Reader& reader = this->reader();
    if (!reader.pattern) return std::nullopt;
    const platform::TypedText typed(text, reader.letterCase);
    const auto fields = reader.pattern->match(typed.trimmedText(), *reader.names);
    if (!fields || !fields->year || !platform::exists({*fields->year, fields->month, fields->day}))
        return std::nullopt;
    return EXDateOnly(*fields->year, fields->month, fields->day);
}

}  // namespace corvane
