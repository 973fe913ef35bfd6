#include "corvane/formats/EXCSVWriter.h"

#include "corvane/formats/TextBuffer.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/TemporaryDirectory.h"

#include <algorithm>

namespace corvane {

namespace {

using Keys = std::span<const std::string>;

// Meant so, and not a plain line feed: the texts between the quotes may hold those.
constexpr std::string_view kTerminator = "\x1C\n";
constexpr std::string_view kQuote = "\"";

void putQuoted(TextBuffer& buffer, std::string_view text) {
    buffer.put(kQuote);
    for (std::size_t quote; (quote = text.find(kQuote)) != text.npos; text.remove_prefix(quote + 1))
        buffer.put(text.substr(0, quote + 1), kQuote);
    buffer.put(text, kQuote);
}

/// Whether the value has a text. Kinds other than text and day have none.
bool putField(TextBuffer& buffer, const EXValue& value, std::string_view separator) {
    if (const auto text = value.text()) {
        buffer.put(separator);
        putQuoted(buffer, *text);
        return true;
    }
    const auto* day = value.day();
    buffer.put(separator, day ? day->isoString() : std::string());
    return day != nullptr;
}

/// A field is set off only where its line holds text already: what is missing at the start of a
/// line shifts the fields after it to the left. The readers of these files know it so.
void putRow(TextBuffer& buffer, const EXKeyValueRows& rows, std::size_t index, Keys keys) {
    bool isEmpty = true;
    for (const auto& key : keys) {
        const auto value = rows.valueForKey(key, index);
        if (putField(buffer, value, isEmpty ? "" : EXCSVWriterSeparator)) isEmpty = false;
    }
    buffer.put(kTerminator);
}

bool writeText(platform::ByteSink& sink, const EXKeyValueRows& rows, Keys keys) {
    TextBuffer buffer(sink);
    std::string_view separator;
    for (const auto& key : keys) {
        buffer.put(separator, key);
        separator = EXCSVWriterSeparator;
    }
    bool isTaken = buffer.put(kTerminator);
    for (std::size_t index = 0; isTaken && index < rows.count(); ++index) {
        putRow(buffer, rows, index, keys);
        isTaken = buffer.put("");
    }
    return buffer.flush();
}

class TextSink final : public platform::ByteSink {
  public:
    explicit TextSink(std::string& text) : text_(text) {}
    bool write(std::span<const std::byte> piece) override {
        text_.append(reinterpret_cast<const char*>(piece.data()), piece.size());
        return true;
    }

  private:
    std::string& text_;
};

void trace(platform::Console& console, const EXKeyValueRows& rows, Keys keys) {
    std::string text = "\n### DEBUGGING\n-----------";
    TextSink sink(text);
    writeText(sink, rows, keys);
    console.writeLine(text += "\n-----------\n\n");
}

}  // namespace

bool EXCSVWriter::writeKeyValueRows(const EXKeyValueRows* rows, ColumnKeys columnKeys,
                                    const std::optional<std::string>& path) {
    if (!rows || !columnKeys || !path) return false;
    auto& console = platform::currentConsole();
    if (console.showsTraces()) trace(console, *rows, *columnKeys);
    const auto content = [&](platform::ByteSink& sink) {
        return writeText(sink, *rows, *columnKeys);
    };
    return !platform::replaceFileInPieces(*path, content, platform::Durability::Rename);
}

std::optional<std::string> EXCSVWriter::pathToTemporaryFileWritingKeyValueRows(
    const EXKeyValueRows* rows, ColumnKeys columnKeys, std::string_view fileNamePrefix) {
    std::string name(fileNamePrefix);
    std::erase(name, ':');
    const auto directory = platform::temporaryDirectory();
    if (!directory || name.find('/') != name.npos) return std::nullopt;
    const auto today = EXDateOnly(std::optional<platform::Instant>()).isoString();
    auto path = *directory + "/" + name + "-" + today + ".csv";
    if (!writeKeyValueRows(rows, columnKeys, path)) return std::nullopt;
    return path;
}

}  // namespace corvane
