#include "apps/document/BackupReader.h"

#include "corvane/formats/EXXMLScanner.h"

#include "apps/document/BackupLayout.h"
#include "apps/document/XMLText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <expat.h>
#include <memory>
#include <unordered_set>

namespace corvane::backup {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kXMLSpace = " \t\r\n";

/// Ends the reading; caught before expat's own code is reached.
struct Refusal {
    std::size_t offset;
    std::string message;
};

/// An element that has begun and not ended yet.
struct Frame {
    enum class Kind { Record, Collection, Field, Unknown };

    Kind kind = Kind::Record;
    std::size_t offset = 0;  ///< of the start tag
    Record* record = nullptr;
    const RecordLayout* layout = nullptr;  ///< of the record
    std::size_t part = 0;   ///< of the record: the one that this is, or how far the record has come
    std::uint64_t met = 0;  ///< the record's parts that have been there, a bit each
    XMLNode* node = nullptr;

    // Of a field.
    std::string text;
    bool isEscaped = false;
    std::optional<std::int16_t> code;
    Unknown unknown;

    const Part& described() const { return layout->parts[part]; }
};

std::optional<std::int16_t> codeFrom(std::string_view text) {
    std::int16_t code = 0;
    const auto [stop, problem] = std::from_chars(text.data(), text.data() + text.size(), code);
    bool whole = problem == std::errc() && stop == text.data() + text.size();
    return whole ? std::optional(code) : std::nullopt;
}

Unknown& unknownOf(Record& record, std::size_t part) {
    auto& all = record.unknownOfParts;
    auto at = std::find_if(all.begin(), all.end(),
                           [&](const auto& entry) { return entry.first >= part; });
    if (at == all.end() || at->first != part) at = all.insert(at, {part, {}});
    return at->second;
}

class Reading {
  public:
    Reading(std::string_view bytes, const DocumentLimits& limits)
        : bytes_(bytes), limits_(limits), parser_(XML_ParserCreate("UTF-8"), XML_ParserFree) {
        if (!parser_) throw std::bad_alloc();
        frames_.reserve(kDeepestNesting);  // so that a frame stays where it is
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(),
            [](void* self, const char* name, const char** attributes) {
                static_cast<Reading*>(self)->guarded(&Reading::begin, name, attributes);
            },
            [](void* self, const char*) { static_cast<Reading*>(self)->guarded(&Reading::end); });
        XML_SetCharacterDataHandler(parser_.get(), [](void* self, const char* text, int size) {
            static_cast<Reading*>(self)->guarded(
                &Reading::take, std::string_view(text, static_cast<std::size_t>(size)));
        });
        XML_SetStartDoctypeDeclHandler(
            parser_.get(), [](void* self, const char*, const char*, const char*, int) {
                static_cast<Reading*>(self)->guarded(&Reading::refuseDoctype);
            });
    }

    std::variant<BackupDocument, Problem> read() {
        if (bytes_.size() > limits_.bytes) return Problem{1, 1, "too large for a document"};
        const auto status =
            XML_Parse(parser_.get(), bytes_.data(), static_cast<int>(bytes_.size()), XML_TRUE);
        if (failure_) std::rethrow_exception(failure_);
        if (refusal_) return located(*refusal_);
        if (status == XML_STATUS_OK) return std::move(document_);
        return Problem{XML_GetCurrentLineNumber(parser_.get()),
                       XML_GetCurrentColumnNumber(parser_.get()) + 1,
                       XML_ErrorString(XML_GetErrorCode(parser_.get()))};
    }

  private:
    /// Nothing may be thrown through expat.
    template <class... Parameters, class... Arguments>
    void guarded(void (Reading::*handle)(Parameters...), Arguments... arguments) {
        if (refusal_ || failure_) return;
        try {
            (this->*handle)(arguments...);
            return;
        } catch (Refusal& refusal) {
            refusal_ = std::move(refusal);
        } catch (...) {
            failure_ = std::current_exception();
        }
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    std::size_t offset() const {
        return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
    }
    [[noreturn]] void refuse(std::string message) const {
        throw Refusal{offset(), std::move(message)};
    }

    /// As expat counts.
    Problem located(const Refusal& refusal) const {
        Problem problem{1, 1, refusal.message};
        const std::string_view before = bytes_.substr(0, refusal.offset);
        for (std::size_t at = before.starts_with(kByteOrderMark) ? 3 : 0; at < before.size();
             ++at) {
            const bool within = (static_cast<unsigned char>(before[at]) & 0xC0) == 0x80;
            const bool ofCRLF = before.substr(at).starts_with("\r\n");
            if (before[at] == '\n' || (before[at] == '\r' && !ofCRLF)) {
                ++problem.line;
                problem.column = 1;
            } else if (!within) {
                ++problem.column;
            }
        }
        return problem;
    }

    void refuseDoctype() { refuse("a document type declaration, which no document has"); }

    void begin(const char* name, const char** attributes) {
        if (frames_.size() == kDeepestNesting) refuse("nested too deeply");
        if (++elements_ > limits_.elements) refuse("too many elements");
        if (frames_.empty()) return beginDocument(name, attributes);
        Frame& parent = frames_.back();
        switch (parent.kind) {
            case Frame::Kind::Record:
                return beginPart(parent, name, attributes);
            case Frame::Kind::Collection:
                return beginRecord(parent, name, attributes);
            case Frame::Kind::Field:
                return beginUnknown(parent.unknown, 0, name, attributes);
            case Frame::Kind::Unknown:
                return beginNode(parent.node->children.emplace_back(), name, attributes);
        }
    }

    Frame& push(Frame::Kind kind) {
        Frame& frame = frames_.emplace_back();
        frame.kind = kind;
        frame.offset = offset();
        return frame;
    }

    void beginDocument(std::string_view name, const char** attributes) {
        if (name != kRootElement)
            refuse(fmt::format("not a backup: no element '{}'", kRootElement));
        Frame& frame = push(Frame::Kind::Record);
        frame.record = &document_;
        frame.layout = &documentLayout();
        bool hasVersion = false;
        for (; *attributes; attributes += 2) {
            if (attributes[0] == kVersionAttribute) {
                hasVersion = true;
                if (attributes[1] != kVersion) refuse("of a version that this program cannot read");
            } else {
                document_.unknown.attributes.push_back({attributes[0], attributes[1]});
            }
        }
        if (!hasVersion) refuse("not a backup: no version");
    }

    void beginPart(Frame& parent, std::string_view name, const char** attributes) {
        const auto& parts = parent.layout->parts;
        auto found = std::find_if(parts.begin(), parts.end(),
                                  [&](const Part& part) { return part.name == name; });
        if (found == parts.end()) {
            return beginUnknown(parent.record->unknown, parent.part, name, attributes);
        }
        const auto index = static_cast<std::size_t>(found - parts.begin());
        const std::uint64_t bit = std::uint64_t{1} << index;
        if (parent.met & bit) refuse(fmt::format("'{}' for the second time", name));
        parent.met |= bit;
        parent.part = index + 1;
        Record* record = parent.record;
        const RecordLayout* layout = parent.layout;
        Frame& frame = push(found->isCollection() ? Frame::Kind::Collection : Frame::Kind::Field);
        frame.record = record;
        frame.layout = layout;
        frame.part = index;
        for (; *attributes; attributes += 2)
            takeAttribute(frame, attributes[0], attributes[1]);
        if (found->isCollection() && !frame.unknown.isEmpty()) {
            unknownOf(*record, index) = std::move(frame.unknown);
        }
    }

    void takeAttribute(Frame& frame, std::string_view name, std::string_view value) {
        if (frame.described().type == EXXMLTypeString && name == kEscapeAttribute) {
            frame.isEscaped = takeEscape(value);
        } else {
            frame.unknown.attributes.push_back({std::string(name), std::string(value)});
        }
    }

    bool takeEscape(std::string_view value) const {
        if (value != kBackslashEscape) refuse("an escape that this program cannot read");
        return true;
    }

    void beginRecord(Frame& parent, std::string_view name, const char** attributes) {
        const Part& collection = parent.described();
        Record& owner = *parent.record;
        if (name != collection.records->element) {
            return beginUnknown(unknownOf(owner, parent.part), collection.count(owner), name,
                                attributes);
        }
        if (++records_ > limits_.records) refuse("too many records");
        Frame& frame = push(Frame::Kind::Record);
        frame.record = &collection.add(owner);
        frame.layout = collection.records;
        takeIdentity(frame, attributes);
    }

    void takeIdentity(Frame& frame, const char** attributes) {
        const bool hasIdentity = frame.layout->identity != Identity::None;
        std::optional<std::string> uri;
        bool isEscaped = false;
        for (; *attributes; attributes += 2) {
            const std::string_view name = attributes[0];
            if (hasIdentity && name == kURIAttribute) {
                uri = attributes[1];
            } else if (hasIdentity && name == kEscapeAttribute) {
                isEscaped = takeEscape(attributes[1]);
            } else {
                frame.record->unknown.attributes.push_back({attributes[0], attributes[1]});
            }
        }
        if (uri && isEscaped) {
            uri = unescaped(*uri);
            if (!uri) refuse("a backslash that escapes nothing");
        }
        frame.record->uri = URL(uri.value_or(""));
        if (frame.layout->identity != Identity::Required) return;
        if (uri.value_or("").empty())
            refuse(fmt::format("a {} without uri", frame.layout->element));
        if (!uris_.insert(frame.record->uri).second) refuse("a uri for the second time");
    }

    void beginUnknown(Unknown& unknown, std::size_t after, std::string_view name,
                      const char** attributes) {
        auto& element = unknown.elements.emplace_back();
        element.after = after;
        beginNode(element.node, name, attributes);
    }

    void beginNode(XMLNode& node, std::string_view name, const char** attributes) {
        node.name = name;
        for (; *attributes; attributes += 2)
            node.attributes.push_back({attributes[0], attributes[1]});
        push(Frame::Kind::Unknown).node = &node;
    }

    void take(std::string_view text) {
        Frame& frame = frames_.back();
        switch (frame.kind) {
            case Frame::Kind::Field:
                frame.text += text;
                break;
            case Frame::Kind::Unknown: {
                auto& children = frame.node->children;
                if (children.empty() || !children.back().name.empty()) children.emplace_back();
                children.back().text += text;
                break;
            }
            case Frame::Kind::Record:
            case Frame::Kind::Collection:
                if (text.find_first_not_of(kXMLSpace) != text.npos) refuse("text outside a field");
                break;
        }
    }

    void end() {
        Frame& frame = frames_.back();
        if (frame.kind == Frame::Kind::Field) endField(frame);
        if (frame.kind == Frame::Kind::Record) endRecord(frame);
        frames_.pop_back();
    }

    void endField(Frame& frame) {
        const EXValue value = valueOf(frame);
        if (!comesBack(value)) refuseField(frame);
        frame.described().set(*frame.record, value);
        if (frame.unknown.isEmpty()) return;
        unknownOf(*frame.record, frame.part) = std::move(frame.unknown);
    }

    [[noreturn]] void refuseField(const Frame& frame) const {
        throw Refusal{frame.offset, fmt::format("not a value of '{}'", frame.described().name)};
    }

    EXValue valueOf(Frame& frame) const {
        const Part& field = frame.described();
        const EXXMLScanner scanner(frame.text);
        if (field.type == EXXMLTypeEnum && scanner.string().empty()) return codeOf(frame);
        if (frame.isEscaped) {
            const auto text = unescaped(scanner.string());
            if (!text) refuseField(frame);
            return EXValue(*text);
        }
        EXValue value;
        const EXXMLMapping* mapping = field.mapping ? &field.mapping() : nullptr;
        if (scanner.scanValueContent(&value, field.type, mapping)) return value;
        // A later version may have more codes than this one.
        if (field.type != EXXMLTypeEnum) refuseField(frame);
        frame.unknown.name = scanner.string();
        return {};
    }

    /// The code that stands in an attribute because it has no name.
    EXValue codeOf(Frame& frame) const {
        auto& attributes = frame.unknown.attributes;
        auto found = std::find_if(attributes.begin(), attributes.end(), [](const auto& attribute) {
            return attribute.name == kCodeAttribute;
        });
        if (found == attributes.end()) return {};
        const auto code = codeFrom(found->value);
        if (!code) refuseField(frame);
        attributes.erase(found);
        return EXValue(*code);
    }

    /// What stood behind an element that will not be written stands behind the one before it.
    void endRecord(Frame& frame) {
        auto& elements = frame.record->unknown.elements;
        if (elements.empty()) return;
        // Once a part, not once an element: to ask copies the part's text, of any length.
        std::vector<std::size_t> places{0};
        for (std::size_t part = 0; part < frame.layout->parts.size(); ++part) {
            const bool stays = isWritten(*frame.record, *frame.layout, part);
            places.push_back(stays ? part + 1 : places.back());
        }
        for (auto& element : elements)
            element.after = places[element.after];
        std::stable_sort(elements.begin(), elements.end(),
                         [](const auto& a, const auto& b) { return a.after < b.after; });
    }

    std::string_view bytes_;
    DocumentLimits limits_;
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;
    BackupDocument document_;
    std::vector<Frame> frames_;
    std::unordered_set<URL> uris_;
    std::size_t elements_ = 0;
    std::size_t records_ = 0;
    std::optional<Refusal> refusal_;
    std::exception_ptr failure_;
};

}  // namespace

std::string Problem::text() const {
    return fmt::format("{}:{}: {}", line, column, message);
}

std::variant<BackupDocument, Problem> readBackupDocument(std::string_view bytes,
                                                         const DocumentLimits& limits) {
    return Reading(bytes, limits).read();
}

}  // namespace corvane::backup
