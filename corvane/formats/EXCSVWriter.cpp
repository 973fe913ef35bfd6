#include "corvane/formats/EXCSVWriter.h"

#include "corvane/formats/TextBuffer.h"
#include "corvane/platform/BackgroundSink.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/TemporaryDirectory.h"

#include <algorithm>
#include <vector>

namespace corvane {

namespace {

using Keys = std::span<const std::string>;

// Meant so, and not a plain line feed: the texts between the quotes may hold those.
constexpr std::string_view kTerminator = "\x1C\n";
constexpr std::string_view kQuote = "\"";

/// Asked for before the first of them is written, so that they come from memory at one time.
constexpr std::size_t kRowsAtOnce = 32;

void putQuoted(TextBuffer& buffer, std::string_view separator, std::string_view text) {
    auto quote = text.find(kQuote);
    if (quote == text.npos) {
        buffer.put(separator, kQuote, text, kQuote);
        return;
    }
    buffer.put(separator, kQuote);
    for (; quote != text.npos; quote = text.find(kQuote)) {
        buffer.put(text.substr(0, quote + 1), kQuote);
        text.remove_prefix(quote + 1);
    }
    buffer.put(text, kQuote);
}

/// What a record shows for a key.
struct Field {
    std::optional<std::string_view> text;
    EXValue value;  ///< Of no meaning where the record holds the text.
};

/// Texts may lie anywhere in memory, from where they take longer than the writing itself.
void fetch(std::string_view text) {
    constexpr std::size_t kMost = 256;  // from there on the processor sees it coming
    platform::prefetch(text.data(), std::min(text.size(), kMost));
}

void read(Field& field, const EXKeyValueRows& rows, std::size_t index, std::string_view key) {
    field.text = rows.heldTextForKey(key, index);
    if (!field.text) {
        field.value = rows.valueForKey(key, index);
        field.text = field.value.text();
    }
    if (field.text) fetch(*field.text);
}

/// Whether the field has a text. Kinds other than text and day have none.
bool putField(TextBuffer& buffer, std::string_view separator, const Field& field) {
    if (field.text) {
        putQuoted(buffer, separator, *field.text);
        return true;
    }
    const auto* day = field.value.day();
    buffer.put(separator, day ? day->isoString() : std::string());
    return day != nullptr;
}

/// A field is set off only where its line holds text already: what is missing at the start of a
/// line shifts the fields after it to the left. The readers of these files know it so.
void putRow(TextBuffer& buffer, std::span<const Field> fields) {
    bool isEmpty = true;
    for (const auto& field : fields)
        if (putField(buffer, isEmpty ? "" : EXCSVWriterSeparator, field)) isEmpty = false;
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
    // Kept from one round to the next: making fields anew costs more than filling them.
    std::vector<Field> fields(kRowsAtOnce * keys.size());
    const std::size_t count = rows.count();
    for (std::size_t index = 0; isTaken && index < count;) {
        const std::size_t end = std::min(index + kRowsAtOnce, count);
        auto field = fields.begin();
        for (std::size_t row = index; row < end; ++row)
            for (const auto& key : keys)
                read(*field++, rows, row, key);
        for (std::size_t row = 0; index < end; ++index, ++row)
            putRow(buffer, std::span(fields).subspan(row * keys.size(), keys.size()));
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
        platform::BackgroundSink background(sink);
        return writeText(background, *rows, *columnKeys) && background.finish();
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
