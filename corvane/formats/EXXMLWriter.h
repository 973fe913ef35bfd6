// Writes an XML document element by element, with typed content, into a file or a sink. It neither
// escapes nor indents nor checks the nesting: that is its caller's part. For one thread at a time.
#pragma once

#include "corvane/formats/EXXMLType.h"
#include "corvane/platform/ByteSink.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/OutputFile.h"
#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

class TextBuffer;

/// Text is UTF-8 and goes out byte by byte as it comes, in content as in attributes: a reader is to
/// find what was passed in. What may hold markup goes into CDATA, and must not hold "]]>".
///
/// A line feed follows an empty element and an end tag, and nothing else. This layout is part of
/// the backup format.
///
/// Operations that write answer false from the first one on that finds the disk or sink unable to
/// take what was collected so far, and while the writer is closed. That everything went out, only
/// close() and flush() tell.
///
/// A document that replaces another one is streamed into the exchange of files
/// (platform/FileReplacement.h), which leaves the old one where anything fails:
///
///     platform::replaceFileInPieces(path, [&](platform::ByteSink& sink) {
///         EXXMLWriter writer(sink);
///         writer.openAutoCreating(false);
///         writer.writeStartElement("task", {{"id", "7"}});
///         writer.writeElementWithInt64Content("priority", -1);
///         writer.writeEndElement("task");
///         return writer.close();
///     }, platform::Durability::Synced);
///
///     <?xml version="1.0" encoding="UTF-8"?>
///     <task id="7"><priority>-1</priority>
///     </task>
class EXXMLWriter {
  public:
    struct Attribute {
        std::string_view name;
        std::string_view value;
    };
    using Attributes = std::span<const Attribute>;
    using AttributeList = std::initializer_list<Attribute>;
    using Text = std::optional<std::string_view>;

    /// For the file at the path, which opening opens; see OutputFile for writing in place.
    explicit EXXMLWriter(std::string path);

    /// For a sink, which must outlive the writer. Opening begins a document where the sink stands.
    explicit EXXMLWriter(platform::ByteSink& sink);

    /// Closes. Whether everything was written nobody learns any more.
    ~EXXMLWriter();

    EXXMLWriter(const EXXMLWriter&) = delete;
    EXXMLWriter& operator=(const EXXMLWriter&) = delete;

    /// Opens and writes the XML declaration; whether the writer is open now. With `autoCreating` a
    /// file at the path is removed first, and a new one made; what hinders that is a warning on the
    /// console. A directory or device is not removed. Without, the file must exist, is written over
    /// from its start and keeps what lies beyond the new end. A sink needs neither.
    ///
    /// An open writer is closed first, and stays closed where that fails.
    bool openAutoCreating(bool autoCreating, platform::Error* error = nullptr);
    bool isOpen() const { return buffer_ != nullptr; }

    /// Writes what was collected and closes; whether everything since opening was written. Asked
    /// again, the answer is the same.
    [[nodiscard]] bool close();

    /// Writes what was collected.
    [[nodiscard]] bool flush();

    /// What failed first since opening, opening included.
    const std::optional<platform::Error>& error() const { return error_; }

    /// Empty for a writer into a sink.
    const std::string& path() const { return path_; }

    /// Whether the typed entry below writes strings as CDATA; false at first.
    bool alwaysWriteStringsAsCDATA() const { return alwaysWriteStringsAsCDATA_; }
    void setAlwaysWriteStringsAsCDATA(bool flag) { alwaysWriteStringsAsCDATA_ = flag; }

    /// A copy in memory of everything written since opening; none while closed. Kept from the next
    /// opening on, by those who ask for it: it costs as much memory as the document has bytes.
    Text debugString() const { return debugString_; }
    void setKeepsDebugString(bool flag) { keepsDebugString_ = flag; }

    /// The text as it is.
    bool writeString(std::string_view text);

    /// Attributes keep the order given.
    bool writeElementWithAttributes(std::string_view name, Attributes attributes);
    bool writeElementWithAttributes(std::string_view name, AttributeList attributes);
    bool writeStartElement(std::string_view name, Attributes attributes = {});
    bool writeStartElement(std::string_view name, AttributeList attributes);
    bool writeEndElement(std::string_view name);

    // Content. What is absent writes nothing, and succeeds.

    bool writeStringContent(Text text);

    /// Nothing for an empty text.
    bool writeCDATAContent(Text text);

    bool writeBoolContent(bool flag);
    bool writeInt64Content(std::int64_t number);

    /// Six digits after the point. Infinities and NaN count as absent, having no such text: one
    /// that no scanner reads could cost the whole document.
    bool writeDoubleContent(double number);
    bool writeDoubleNumberContent(std::optional<double> number);

    /// In UTC and whole seconds, by EXXMLScanner::isoDateFormatter().
    bool writeDateContent(std::optional<platform::Instant> date);

    bool writeDateOnlyContent(std::optional<EXDateOnly> day);
    bool writeTimeOnlyContent(std::optional<EXTimeOnly> time);

    /// The code's name; a code without one, and all where there is no mapping, count as absent.
    bool writeEnumContent(std::optional<std::int64_t> code, const EXXMLMapping* mapping);

    // Elements with content: start tag, content as above, end tag. Absent content leaves the
    // element empty.

    bool writeElementWithStringContent(std::string_view name, Text text);
    bool writeElementWithCDATAContent(std::string_view name, Text text);
    bool writeElementWithBoolContent(std::string_view name, bool flag);
    bool writeElementWithInt64Content(std::string_view name, std::int64_t number);
    bool writeElementWithDoubleContent(std::string_view name, double number);
    bool writeElementWithDoubleNumberContent(std::string_view name, std::optional<double> number);
    bool writeElementWithDateContent(std::string_view name, std::optional<platform::Instant> date);
    bool writeElementWithDateOnlyContent(std::string_view name, std::optional<EXDateOnly> day);
    bool writeElementWithTimeOnlyContent(std::string_view name, std::optional<EXTimeOnly> time);
    bool writeElementWithEnumContent(std::string_view name, std::optional<std::int64_t> code,
                                     const EXXMLMapping* mapping);

    /// The element with the value as content of the type. Numbers of any kind serve for booleans,
    /// integers, doubles and codes; a value of a kind that is no content of the type counts as
    /// absent. A type that cannot be written writes no element and answers false, the undefined one
    /// with a line on the console.
    bool writeElementWithValueContent(std::string_view name, const EXValue& value, EXXMLType type,
                                      const EXXMLMapping* mapping = nullptr);

  private:
    bool openFile(bool autoCreating);
    bool noteFailure();
    template <class... Pieces>
    bool put(const Pieces&... pieces);
    bool putAttributes(Attributes attributes);
    bool putElement(std::string_view name, std::string_view content);

    std::string path_;
    platform::ByteSink* const givenSink_ = nullptr;
    std::unique_ptr<platform::OutputFile> file_;
    std::unique_ptr<TextBuffer> buffer_;  // there while open
    std::optional<platform::Error> error_;
    std::optional<std::string> debugString_;
    bool keepsDebugString_ = false;
    bool alwaysWriteStringsAsCDATA_ = false;
};

}  // namespace corvane
