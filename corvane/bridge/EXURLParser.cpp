#include "corvane/bridge/EXURLParser.h"

#include "corvane/platform/TextEncoding.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace corvane {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

/// Texts up to this length are coded on the stack first, so that the result is allocated once and
/// in its own size, or not at all.
constexpr std::size_t kPiece = 256;

/// What one byte becomes. Of four bytes, so that it is written at once whatever its length.
struct Code {
    char text[3];
    std::uint8_t length;
};
using EncodingTable = std::array<Code, 256>;

constexpr EncodingTable encodingTable(std::string_view marks) {
    EncodingTable table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        const char c = static_cast<char>(byte);
        const bool stays = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                           (c >= '0' && c <= '9') || marks.find(c) != marks.npos;
        table[byte] =
            stays ? Code{{c}, 1} : Code{{'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]}, 3};
    }
    return table;
}

constexpr EncodingTable plusEncodingTable() {
    EncodingTable table = encodingTable("-._~");
    table[' '] = {{'+'}, 1};
    return table;
}

constexpr EncodingTable kPlusEncoding = plusEncodingTable();
constexpr EncodingTable kParameterEncoding = encodingTable("-._~!$'()*,:@");

std::string encoded(std::string_view text, const EncodingTable& table) {
    std::string result;
    if (text.size() > kPiece) result.reserve(text.size() + text.size() / 4);
    char buffer[3 * kPiece + 1];
    while (!text.empty()) {
        const auto piece = text.substr(0, kPiece);
        char* end = buffer;
        for (char c : piece) {
            const Code& code = table[static_cast<unsigned char>(c)];
            std::memcpy(end, &code, sizeof code);
            end += code.length;
        }
        result.append(buffer, end);
        text.remove_prefix(piece.size());
    }
    return result;
}

constexpr std::array<std::int8_t, 256> hexValues() {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (int i = 0; i < 16; ++i) {
        values[static_cast<unsigned char>(kHexDigits[i])] = static_cast<std::int8_t>(i);
        values[static_cast<unsigned char>(kHexDigits[i] | 0x20)] = static_cast<std::int8_t>(i);
    }
    return values;
}

constexpr std::array<std::int8_t, 256> kHexValues = hexValues();

/// The byte that the two digits at `at` stand for; negative where they are none.
int byteOfDigits(const char* at) {
    const int high = kHexValues[static_cast<unsigned char>(at[0])];
    const int low = kHexValues[static_cast<unsigned char>(at[1])];
    return (high | low) < 0 ? -1 : high << 4 | low;
}

/// What a byte of coded text is to its reader.
constexpr std::uint8_t kPercent = 1;
constexpr std::uint8_t kBetweenParameters = 2;
constexpr std::uint8_t kBehindKey = 4;

struct DecodingTable {
    std::array<std::uint8_t, 256> kinds{};
    std::array<char, 256> texts{};
};

constexpr DecodingTable decodingTable(char plus) {
    DecodingTable table;
    for (std::size_t byte = 0; byte < table.texts.size(); ++byte)
        table.texts[byte] = static_cast<char>(byte);
    table.texts['+'] = plus;
    table.kinds['%'] = kPercent;
    table.kinds['&'] = kBetweenParameters;
    table.kinds['='] = kBehindKey;
    return table;
}

constexpr DecodingTable kParameterDecoding = decodingTable('+');
constexpr DecodingTable kQueryDecoding = decodingTable(' ');

/// Decodes coded text from its front on.
class Decoder {
  public:
    /// REQUIRES: room at `to` for as many bytes as the text has.
    Decoder(std::string_view text, const DecodingTable& table, char* to)
        : table_(table), at_(text.data()), end_(text.data() + text.size()), to_(to) {}

    const char* position() const { return at_; }

    /// Steps over `mark` where it comes next.
    bool take(char mark) {
        const bool found = at_ != end_ && *at_ == mark;
        at_ += found;
        return found;
    }

    /// Takes what comes before the first byte of the kinds `ends`; false where that cannot be
    /// decoded.
    bool takeText(std::uint8_t ends, std::string_view& text) {
        const char* at = at_;
        char* to = to_;
        unsigned char bits = 0;
        while (at < end_) {
            auto byte = static_cast<unsigned char>(*at);
            const std::uint8_t kind = table_.kinds[byte] & (ends | kPercent);
            if (kind == 0) {
                *to++ = table_.texts[byte];
                ++at;
            } else if (kind == kPercent) {
                const int coded = end_ - at < 3 ? -1 : byteOfDigits(at + 1);
                if (coded < 0) return false;
                byte = static_cast<unsigned char>(coded);
                *to++ = static_cast<char>(byte);
                at += 3;
            } else {
                break;
            }
            bits |= byte;
        }
        text = {to_, to};
        at_ = at;
        to_ = to;
        return !(bits & 0x80) || platform::isUTF8(text);
    }

    /// Takes one parameter; false where it cannot be decoded.
    bool takeParameter(EXURLQuery::Parameter& parameter) {
        return takeText(kBetweenParameters | kBehindKey, parameter.first) &&
               (!take('=') || takeText(kBetweenParameters, parameter.second.emplace()));
    }

  private:
    const DecodingTable& table_;
    const char* at_;
    const char* end_;
    char* to_;
};

}  // namespace

std::string EXURLParser::percentPlusEncodeString(std::string_view text) {
    // What builds on this counts in 32 bits: there the empty text is all that is left of a text of
    // 2 GiB, and only the front of one beyond 4 GiB.
    const auto length = static_cast<std::int32_t>(std::min(text.find('\0'), text.size()));
    if (length <= 0) return {};
    return encoded(text.substr(0, static_cast<std::size_t>(length)), kPlusEncoding);
}

std::string EXURLParser::percentEncodeParameter(std::string_view text) {
    return encoded(text, kParameterEncoding);
}

std::optional<std::string> EXURLParser::percentDecodeParameter(std::string_view text) {
    std::string result(text.size(), '\0');
    std::string_view decoded;
    if (!Decoder(text, kParameterDecoding, result.data()).takeText(0, decoded)) return std::nullopt;
    result.resize(decoded.size());
    return result;
}

std::optional<EXURLParser::Query> EXURLParser::parseQuery(std::optional<std::string_view> query,
                                                          platform::Error* error) {
    if (!query) return Query();
    const auto texts = std::make_shared_for_overwrite<char[]>(query->size());
    std::vector<Query::Parameter> parameters;
    Decoder decoder(*query, kQueryDecoding, texts.get());
    const char* start;
    do {
        start = decoder.position();
        if (decoder.takeParameter(parameters.emplace_back())) continue;
        if (error) {
            *error = {"url", EINVAL,
                      fmt::format("the query's parameter at byte {} is not percent-encoded UTF-8",
                                  start - query->data())};
        }
        return std::nullopt;
    } while (decoder.take('&'));
    return Query(texts, parameters);
}

}  // namespace corvane
