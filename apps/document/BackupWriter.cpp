#include "apps/document/BackupWriter.h"

#include "corvane/formats/EXXMLWriter.h"
#include "corvane/platform/TextEncoding.h"

#include "apps/document/BackupLayout.h"
#include "apps/document/BackupReader.h"
#include "apps/document/XMLText.h"

#include <fmt/format.h>

#include <cerrno>
#include <stdexcept>

namespace corvane::backup {

namespace {

struct Unwritable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What is beyond could not be read again.
constexpr DocumentLimits kLimits;

class BoundedSink final : public platform::ByteSink {
  public:
    explicit BoundedSink(platform::ByteSink& beyond) : beyond_(beyond) {}

    bool write(std::span<const std::byte> piece) override {
        size_ += piece.size();
        return !isFull() && beyond_.write(piece);
    }
    bool isFull() const { return size_ > kLimits.bytes; }

  private:
    platform::ByteSink& beyond_;
    std::size_t size_ = 0;
};

class Writing {
  public:
    explicit Writing(platform::ByteSink& sink) : sink_(sink), writer_(sink_) {}

    bool write(const BackupDocument& document) {
        writer_.openAutoCreating(false);
        writeRecord(document, documentLayout());
        const bool isWritten = writer_.close();
        if (sink_.isFull()) throw Unwritable("too large for a document");
        return isWritten;
    }

  private:
    void countElement() {
        if (++elements_ > kLimits.elements) throw Unwritable("too many elements for a document");
    }

    void countRecord() {
        if (++records_ > kLimits.records) throw Unwritable("too many records for a document");
    }

    /// Attributes with their values as they are to be written.
    void start(std::string_view name, const XMLAttributes& attributes) {
        countElement();
        std::vector<EXXMLWriter::Attribute> written;
        for (const auto& [key, value] : attributes)
            written.push_back({key, value});
        writer_.writeStartElement(name, written);
    }

    static void append(XMLAttributes& attributes, const XMLAttributes& more) {
        for (const auto& [name, value] : more)
            attributes.push_back({name, forAttribute(value)});
    }

    void writeRecord(const Record& record, const RecordLayout& layout) {
        start(layout.element, attributesOf(record, layout));
        auto unknown = record.unknown.elements.begin();
        for (std::size_t part = 0; part <= layout.parts.size(); ++part) {
            for (; unknown != record.unknown.elements.end() && unknown->after <= part; ++unknown)
                writeUnknown(unknown->node);
            if (part < layout.parts.size() && isWritten(record, layout, part)) {
                writePart(record, layout.parts[part], unknownOfPart(record, part));
            }
        }
        for (; unknown != record.unknown.elements.end(); ++unknown)
            writeUnknown(unknown->node);
        writer_.writeEndElement(layout.element);
    }

    static XMLAttributes attributesOf(const Record& record, const RecordLayout& layout) {
        XMLAttributes attributes;
        if (&layout == &documentLayout()) {
            attributes.push_back({std::string(kVersionAttribute), std::string(kVersion)});
        }
        const std::string_view uri = record.uri.absoluteString();
        if (layout.identity != Identity::None && !uri.empty()) {
            requireUTF8(uri, kURIAttribute);
            const bool escapes = needsEscape(uri);
            attributes.push_back(
                {std::string(kURIAttribute), forAttribute(escapes ? escaped(uri) : uri)});
            if (escapes) {
                attributes.push_back(
                    {std::string(kEscapeAttribute), std::string(kBackslashEscape)});
            }
        }
        append(attributes, record.unknown.attributes);
        return attributes;
    }

    void writePart(const Record& record, const Part& part, const Unknown* unknown) {
        if (part.isCollection()) {
            writeCollection(record, part, unknown);
        } else {
            writeField(part, part.get(record), unknown);
        }
    }

    void writeCollection(const Record& owner, const Part& part, const Unknown* unknown) {
        static const Unknown kNothing;
        if (!unknown) unknown = &kNothing;
        XMLAttributes attributes;
        append(attributes, unknown->attributes);
        start(part.name, attributes);
        auto element = unknown->elements.begin();
        for (std::size_t i = 0; i < part.count(owner); ++i) {
            for (; element != unknown->elements.end() && element->after <= i; ++element)
                writeUnknown(element->node);
            countRecord();
            writeRecord(part.at(owner, i), *part.records);
        }
        for (; element != unknown->elements.end(); ++element)
            writeUnknown(element->node);
        writer_.writeEndElement(part.name);
    }

    void writeField(const Part& field, const EXValue& value, const Unknown* unknown) {
        requireComingBack(value, field.name);
        const EXXMLMapping* mapping = field.mapping ? &field.mapping() : nullptr;
        const bool named =
            !mapping || value.isNull() || mapping->objectForKey(value.integerValue()).has_value();
        const auto text = value.text();
        if (!unknown && named && !(text && (needsEscape(*text) || hasMarkup(*text)))) {
            countElement();
            writer_.writeElementWithValueContent(field.name, value, field.type, mapping);
        } else {
            writeUncommonField(field, value, mapping, named, unknown);
        }
    }

    /// With attributes or markup.
    void writeUncommonField(const Part& field, const EXValue& value, const EXXMLMapping* mapping,
                            bool named, const Unknown* unknown) {
        XMLAttributes attributes;
        const auto text = value.text();
        const bool escapes = text && needsEscape(*text);
        if (escapes) {
            attributes.push_back({std::string(kEscapeAttribute), std::string(kBackslashEscape)});
        }
        if (!named) {
            attributes.push_back(
                {std::string(kCodeAttribute), fmt::format("{}", value.integerValue())});
        }
        if (unknown) append(attributes, unknown->attributes);
        start(field.name, attributes);
        if (text) {
            writeText(escapes ? escaped(*text) : std::string(*text));
        } else if (value.isNull() && unknown) {
            writer_.writeString(forContent(unknown->name));
        } else {
            writeContent(field, value, mapping);
        }
        if (unknown) {
            for (const auto& element : unknown->elements)
                writeNode(element.node);
        }
        writer_.writeEndElement(field.name);
    }

    void writeText(const std::string& text) {
        if (hasMarkup(text)) {
            writer_.writeCDATAContent(forCDATA(text));
        } else {
            writer_.writeStringContent(text);
        }
    }

    void writeContent(const Part& field, const EXValue& value, const EXXMLMapping* mapping) {
        if (const auto* day = value.day()) {
            writer_.writeDateOnlyContent(*day);
        } else if (const auto* time = value.time()) {
            writer_.writeTimeOnlyContent(*time);
        } else if (const auto* instant = value.instant()) {
            writer_.writeDateContent(*instant);
        } else if (field.type == EXXMLTypeBool) {
            writer_.writeBoolContent(value.booleanValue());
        } else if (field.type == EXXMLTypeEnum) {
            writer_.writeEnumContent(value.integerValue(), mapping);
        } else {
            writer_.writeInt64Content(value.integerValue());
        }
    }

    /// A line feed is nothing between records and fields.
    void writeUnknown(const XMLNode& node) {
        writeNode(node);
        writer_.writeString("\n");
    }

    /// Without a line feed, which would be text inside an element that may have text.
    void writeNode(const XMLNode& node) {
        if (node.name.empty()) {
            writer_.writeString(forContent(node.text));
            return;
        }
        XMLAttributes attributes;
        append(attributes, node.attributes);
        start(node.name, attributes);
        for (const XMLNode& child : node.children)
            writeNode(child);
        writer_.writeString("</");
        writer_.writeString(node.name);
        writer_.writeString(">");
    }

    static void requireUTF8(std::string_view text, std::string_view where) {
        if (!platform::isUTF8(text)) {
            throw Unwritable(fmt::format("a document cannot hold a '{}' that is not UTF-8", where));
        }
    }

    static void requireComingBack(const EXValue& value, std::string_view where) {
        if (const auto text = value.text()) return requireUTF8(*text, where);
        if (!comesBack(value)) {
            throw Unwritable(fmt::format("a document cannot hold such a '{}'", where));
        }
    }

    BoundedSink sink_;
    EXXMLWriter writer_;
    std::size_t elements_ = 0;
    std::size_t records_ = 0;
};

}  // namespace

bool writeBackupDocument(const BackupDocument& document, platform::ByteSink& sink,
                         std::optional<platform::Error>& error) {
    error.reset();
    try {
        return Writing(sink).write(document);
    } catch (const Unwritable& problem) {
        error = platform::Error{"backup", EILSEQ, problem.what()};
        return false;
    }
}

}  // namespace corvane::backup
