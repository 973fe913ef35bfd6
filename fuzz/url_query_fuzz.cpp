// Whatever the bytes, a query is parsed or refused, and what was parsed is found again in a query
// built from it with either encoding. What is encoded decodes to itself exactly where it is UTF-8.
#include "corvane/bridge/EXURLParser.h"
#include "corvane/platform/TextEncoding.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

using corvane::EXURLParser;

namespace {

void require(bool truth) {
    if (!truth) std::abort();
}

template <class Encode>
std::string joined(const EXURLParser::Query& query, Encode encode) {
    std::string text;
    bool isFirst = true;
    for (const auto& [key, value] : query) {
        if (!std::exchange(isFirst, false)) text += '&';
        text += encode(key);
        if (value) text.append("=").append(encode(*value));
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const bool isText = corvane::platform::isUTF8(text);

    const auto parameter = EXURLParser::percentEncodeParameter(text);
    require(EXURLParser::percentDecodeParameter(parameter) ==
            (isText ? std::optional(text) : std::nullopt));

    const auto plus = EXURLParser::percentPlusEncodeString(text);
    const std::string front = text.substr(0, text.find('\0'));
    const auto parsed = EXURLParser::parseQuery("key=" + plus);
    require(parsed.has_value() == corvane::platform::isUTF8(front));
    require(!parsed || parsed->at("key") == front);

    if (const auto query = EXURLParser::parseQuery(text)) {
        require(EXURLParser::parseQuery(joined(*query, EXURLParser::percentEncodeParameter)) ==
                query);
        if (text.find('\0') == text.npos && text.find("%00") == text.npos)
            require(EXURLParser::parseQuery(joined(*query, EXURLParser::percentPlusEncodeString)) ==
                    query);
    }
    return 0;
}
