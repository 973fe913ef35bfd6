#include "corvane/formats/EXXMLWriter.h"

#include "corvane/formats/EXXMLScanner.h"
#include "corvane/formats/TextBuffer.h"
#include "corvane/platform/Console.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace corvane {

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::string_view kCDATAStart = "<![CDATA[";
constexpr std::string_view kCDATAEnd = "]]>";

std::string_view boolText(bool flag) {
    return flag ? EXXMLTypeBoolTrue : EXXMLTypeBoolFalse;
}

/// The text of a number, which lives inside.
class NumberText {
  public:
    explicit NumberText(std::int64_t number) {
        end_ = std::to_chars(buffer_.begin(), buffer_.end(), number).ptr;
    }
    explicit NumberText(double number) {
        if (!std::isfinite(number)) return;
        constexpr auto kForm = std::chars_format::fixed;
        end_ = std::to_chars(buffer_.begin(), buffer_.end(), number, kForm, kDecimals).ptr;
    }
    operator std::string_view() const { return {buffer_.begin(), end_}; }

  private:
    static constexpr int kDecimals = 6;
    static constexpr std::size_t kSignPointAndFirstDigit = 3;

    std::array<char,
               std::numeric_limits<double>::max_exponent10 + kSignPointAndFirstDigit + kDecimals>
        buffer_;
    char* end_ = buffer_.begin();
};

/// The text of a date, which lives inside.
class DateText {
  public:
    explicit DateText(std::optional<platform::Instant> date) {
        if (date) text_ = EXXMLScanner::isoDateFormatter().stringFromDate(*date, buffer_);
    }
    operator std::string_view() const { return text_; }

  private:
    EXISODateFormatter::Buffer buffer_;
    std::string_view text_;
};

std::string dayText(std::optional<EXDateOnly> day) {
    return EXDateOnly::stringFromDateOnly(day).value_or("");
}

std::string timeText(std::optional<EXTimeOnly> time) {
    return EXTimeOnly::stringFromTimeOnly(time).value_or("");
}

std::string nameOf(std::optional<std::int64_t> code, const EXXMLMapping* mapping) {
    if (!code || !mapping) return {};
    return mapping->objectForKey(*code).value_or("");
}

template <class T>
std::optional<T> copied(const T* value) {
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> codeOf(const EXValue& value) {
    return value.isNumber() ? std::optional(value.integerValue()) : std::nullopt;
}

}  // namespace

EXXMLWriter::EXXMLWriter(std::string path) : path_(std::move(path)) {}

EXXMLWriter::EXXMLWriter(platform::ByteSink& sink) : givenSink_(&sink) {}

EXXMLWriter::~EXXMLWriter() {
    [[maybe_unused]] const bool written = close();
}

bool EXXMLWriter::openAutoCreating(bool autoCreating, platform::Error* error) {
    bool opened = !isOpen() || close();
    if (opened) {
        error_.reset();
        opened = givenSink_ || openFile(autoCreating);
    }
    if (!opened) {
        if (error) *error = error_.value();
        return false;
    }
    buffer_ = std::make_unique<TextBuffer>(givenSink_ ? *givenSink_ : *file_);
    if (keepsDebugString_) debugString_.emplace();
    put(kDeclaration);
    return true;
}

bool EXXMLWriter::openFile(bool autoCreating) {
    using platform::OutputFile;
    if (autoCreating) {
        auto& console = platform::currentConsole();
        if (auto failure = platform::removeRegularFile(path_))
            console.writeLine("WARNING: Could not delete file at path '" + path_ + "' (" +
                              failure->message + ")");
        file_ = OutputFile::create(path_);
        if (!file_) console.writeLine("WARNING: Could not create file at path '" + path_ + "'");
    }
    platform::Error failure;
    if (!file_) file_ = OutputFile::open(path_, &failure);
    if (!file_) error_ = std::move(failure);
    return file_ != nullptr;
}

bool EXXMLWriter::close() {
    if (!isOpen()) return !error_;
    [[maybe_unused]] const bool flushed = flush();
    buffer_.reset();
    debugString_.reset();
    if (auto file = std::move(file_)) {
        auto failure = file->finish();
        if (!error_) error_ = std::move(failure);
    }
    return !error_;
}

bool EXXMLWriter::flush() {
    return isOpen() && (buffer_->flush() || noteFailure());
}

bool EXXMLWriter::noteFailure() {
    if (!error_ && file_) error_ = file_->failure();
    if (!error_) error_ = platform::Error{"xml", 0, "cannot write the document"};
    return false;
}

template <class... Pieces>
bool EXXMLWriter::put(const Pieces&... pieces) {
    if (!isOpen()) return false;
    if (!buffer_->put(pieces...)) return noteFailure();
    if (debugString_) (debugString_->append(TextBuffer::textOf(pieces)), ...);
    return true;
}

bool EXXMLWriter::putElement(std::string_view name, std::string_view content) {
    return put("<", name, ">", content, "</", name, ">\n");
}

bool EXXMLWriter::putAttributes(Attributes attributes) {
    bool written = true;
    for (const auto& [name, value] : attributes)
        written = put(" ", name, "=\"", value, "\"");
    return written;
}

bool EXXMLWriter::writeString(std::string_view text) {
    return put(text);
}

bool EXXMLWriter::writeElementWithAttributes(std::string_view name, Attributes attributes) {
    return put("<", name) && putAttributes(attributes) && put("/>\n");
}

bool EXXMLWriter::writeElementWithAttributes(std::string_view name, AttributeList attributes) {
    return writeElementWithAttributes(name, Attributes(attributes));
}

bool EXXMLWriter::writeStartElement(std::string_view name, Attributes attributes) {
    return put("<", name) && putAttributes(attributes) && put(">");
}

bool EXXMLWriter::writeStartElement(std::string_view name, AttributeList attributes) {
    return writeStartElement(name, Attributes(attributes));
}

bool EXXMLWriter::writeEndElement(std::string_view name) {
    return put("</", name, ">\n");
}

bool EXXMLWriter::writeStringContent(Text text) {
    return put(text.value_or(""));
}

bool EXXMLWriter::writeCDATAContent(Text text) {
    if (!text || text->empty()) return put();
    return put(kCDATAStart, *text, kCDATAEnd);
}

bool EXXMLWriter::writeBoolContent(bool flag) {
    return put(boolText(flag));
}

bool EXXMLWriter::writeInt64Content(std::int64_t number) {
    return put(NumberText(number));
}

bool EXXMLWriter::writeDoubleContent(double number) {
    return put(NumberText(number));
}

bool EXXMLWriter::writeDoubleNumberContent(std::optional<double> number) {
    return number ? writeDoubleContent(*number) : put();
}

bool EXXMLWriter::writeDateContent(std::optional<platform::Instant> date) {
    return put(DateText(date));
}

bool EXXMLWriter::writeDateOnlyContent(std::optional<EXDateOnly> day) {
    return put(dayText(day));
}

bool EXXMLWriter::writeTimeOnlyContent(std::optional<EXTimeOnly> time) {
    return put(timeText(time));
}

bool EXXMLWriter::writeEnumContent(std::optional<std::int64_t> code, const EXXMLMapping* mapping) {
    return put(nameOf(code, mapping));
}

bool EXXMLWriter::writeElementWithStringContent(std::string_view name, Text text) {
    return putElement(name, text.value_or(""));
}

bool EXXMLWriter::writeElementWithCDATAContent(std::string_view name, Text text) {
    if (!text || text->empty()) return putElement(name, "");
    return put("<", name, ">", kCDATAStart, *text, kCDATAEnd, "</", name, ">\n");
}

bool EXXMLWriter::writeElementWithBoolContent(std::string_view name, bool flag) {
    return putElement(name, boolText(flag));
}

bool EXXMLWriter::writeElementWithInt64Content(std::string_view name, std::int64_t number) {
    return putElement(name, NumberText(number));
}

bool EXXMLWriter::writeElementWithDoubleContent(std::string_view name, double number) {
    return putElement(name, NumberText(number));
}

bool EXXMLWriter::writeElementWithDoubleNumberContent(std::string_view name,
                                                      std::optional<double> number) {
    return number ? writeElementWithDoubleContent(name, *number) : putElement(name, "");
}

bool EXXMLWriter::writeElementWithDateContent(std::string_view name,
                                              std::optional<platform::Instant> date) {
    return putElement(name, DateText(date));
}

bool EXXMLWriter::writeElementWithDateOnlyContent(std::string_view name,
                                                  std::optional<EXDateOnly> day) {
    return putElement(name, dayText(day));
}

bool EXXMLWriter::writeElementWithTimeOnlyContent(std::string_view name,
                                                  std::optional<EXTimeOnly> time) {
    return putElement(name, timeText(time));
}

bool EXXMLWriter::writeElementWithEnumContent(std::string_view name,
                                              std::optional<std::int64_t> code,
                                              const EXXMLMapping* mapping) {
    return putElement(name, nameOf(code, mapping));
}

bool EXXMLWriter::writeElementWithValueContent(std::string_view name, const EXValue& value,
                                               EXXMLType type, const EXXMLMapping* mapping) {
    const bool lacksNumber = !value.isNumber();
    switch (type) {
        case EXXMLTypeUndefined:
            platform::currentConsole().writeLine(
                "ERROR: EXXMLTypeUndefined cannot be written to XML file");
            return false;
        case EXXMLTypeString:
            return alwaysWriteStringsAsCDATA_ ? writeElementWithCDATAContent(name, value.text())
                                              : writeElementWithStringContent(name, value.text());
        case EXXMLTypeCDATA:
            return writeElementWithCDATAContent(name, value.text());
        case EXXMLTypeBool:
            return putElement(name, lacksNumber ? "" : boolText(value.booleanValue()));
        case EXXMLTypeInt64:
            if (lacksNumber) return putElement(name, "");
            return writeElementWithInt64Content(name, value.integerValue());
        case EXXMLTypeDouble:
            if (lacksNumber) return putElement(name, "");
            return writeElementWithDoubleContent(name, value.realValue());
        case EXXMLTypeDate:
            return writeElementWithDateContent(name, copied(value.instant()));
        case EXXMLTypeDateOnly:
            return writeElementWithDateOnlyContent(name, copied(value.day()));
        case EXXMLTypeTimeOnly:
            return writeElementWithTimeOnlyContent(name, copied(value.time()));
        case EXXMLTypeEnum:
            return writeElementWithEnumContent(name, codeOf(value), mapping);
    }
    return false;
}

}  // namespace corvane
