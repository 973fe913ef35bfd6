// The parameters of URLs: encoding them where a URL is built, splitting and decoding a query where
// one comes in. Functions without state; any thread.
#pragma once

#include "corvane/bridge/EXURLQuery.h"
#include "corvane/platform/Error.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Texts are UTF-8. What is encoded is the text's bytes, whatever they are; ill-formed ones are
/// found by decoding.
///
///     EXURLParser::percentEncodeParameter("2+2 & more")   // "2%2B2%20%26%20more"
///     EXURLParser::percentPlusEncodeString("2+2 & more")  // "2%2B2+%26+more"
///     auto query = EXURLParser::parseQuery("title=Buy+milk&notes=2%2B2&flag");
///     query->at("title")                                  // "Buy milk"
///     query->at("notes")                                  // "2+2"
///     query->at("flag")                                   // none: a key without "="
///     query->contains("due")                              // false
///     EXURLParser::parseQuery("a=%ZZ")                    // none: cannot be decoded
class EXURLParser {
  public:
    using Query = EXURLQuery;

    /// As forms are encoded: a space becomes "+", and every byte becomes "%XX" that is no ASCII
    /// letter or digit and none of "-._~". The text ends before its first zero byte.
    static std::string percentPlusEncodeString(std::string_view text);

    /// A space becomes "%20" here, and "!$'()*,:@" stay too.
    static std::string percentEncodeParameter(std::string_view text);

    /// Every "%XX" as the byte it stands for, in either letter case; a "+" stays. None where two
    /// hex digits are missing behind a "%", or the bytes are not UTF-8.
    static std::optional<std::string> percentDecodeParameter(std::string_view text);

    /// The parameters between the "&", each divided at its first "=" and decoded, with "+" as a
    /// space. Of equal keys the last one counts. An absent query has none; an empty one, like any
    /// empty piece, has the empty key without a value.
    ///
    /// None where a key or a value cannot be decoded: a query comes from a stranger, who must not
    /// make the program throw. `error`, where given, then has the domain "url" and the code EINVAL.
    static std::optional<Query> parseQuery(std::optional<std::string_view> query,
                                           platform::Error* error = nullptr);

    EXURLParser() = delete;
};

}  // namespace corvane
