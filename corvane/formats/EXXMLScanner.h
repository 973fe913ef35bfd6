// Reads the text of one XML element back as a typed value: the inverse of EXXMLWriter's typed
// content. It is no parser; it gets the text that one has collected. Short-lived, for one thread.
#pragma once

#include "corvane/formats/EXISODateFormatter.h"
#include "corvane/formats/EXXMLType.h"
#include "corvane/platform/Instant.h"
#include "corvane/toolkit/EXValue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Every operation tells whether the text has the form asked for, and then stores the value where a
/// place is given; else it leaves the place alone.
///
/// Plain values need a text. The others, whose place is an optional, take the empty one as no
/// value, and store none.
///
///     std::optional<std::int64_t> number;
///     EXXMLScanner(" 12abc\n").scanInt64NumberContent(&number)      // true, 12
///     EXXMLScanner(" \n").scanInt64NumberContent(&number)           // true, none
///     EXXMLScanner("True").scanBoolNumberContent()                  // false
class EXXMLScanner {
  public:
    template <class T>
    using Out = std::optional<T>*;

    /// None counts as empty.
    explicit EXXMLScanner(std::optional<std::string_view> string);

    /// The one form of dates that writer and scanner have.
    static const EXISODateFormatter& isoDateFormatter();

    /// The text without white space and line breaks at its ends.
    const std::string& string() const { return string_; }

    /// Whether there is no text; stores no value then.
    bool scanNilContent(EXValue* content = nullptr) const;

    bool scanStringContent(Out<std::string> content = nullptr) const;

    /// Exactly "true" or "false".
    bool scanBoolContent(bool* content = nullptr) const;
    bool scanBoolNumberContent(Out<bool> content = nullptr) const;

    /// Digits with or without a sign; what follows them is ignored. A number beyond 64 bits gives
    /// the nearest end of them.
    bool scanIntegerContent(std::int64_t* content = nullptr) const;
    bool scanIntegerNumberContent(Out<std::int64_t> content = nullptr) const;
    bool scanInt64Content(std::int64_t* content = nullptr) const;
    bool scanInt64NumberContent(Out<std::int64_t> content = nullptr) const;

    /// With "." before the decimals in every locale; what follows the number is ignored. A number
    /// that is too large gives the largest finite one.
    bool scanDoubleContent(double* content = nullptr) const;
    bool scanDoubleNumberContent(Out<double> content = nullptr) const;

    bool scanDateContent(Out<platform::Instant> content = nullptr) const;
    bool scanDateOnlyContent(Out<EXDateOnly> content = nullptr) const;
    bool scanTimeOnlyContent(Out<EXTimeOnly> content = nullptr) const;

    /// The code that has exactly this name; without a mapping the text as an integer.
    bool scanEnumContent(std::int64_t* content, const EXXMLMapping* mapping) const;
    bool scanEnumNumberContent(Out<std::int64_t> content, const EXXMLMapping* mapping) const;

    /// The content as a value of the type, null for an empty text. False for a type that has no
    /// content, for the undefined one with a line on the console.
    bool scanValueContent(EXValue* content, EXXMLType type,
                          const EXXMLMapping* mapping = nullptr) const;

  private:
    template <class T>
    bool scanInto(EXValue* content, bool (EXXMLScanner::*scan)(Out<T>) const) const;

    std::string string_;
};

}  // namespace corvane
