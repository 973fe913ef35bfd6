// The kinds of content that an XML element may have, shared by writer and scanner.
#pragma once

#include "corvane/toolkit/EXBimap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// Applications keep these codes with their own fields, so they never change and new ones come at
/// the end. docs/formats/xml-values.md describes the text of each.
enum EXXMLType : std::int32_t {
    EXXMLTypeUndefined = 0,
    EXXMLTypeString = 1,
    EXXMLTypeCDATA = 2,
    EXXMLTypeBool = 3,
    EXXMLTypeInt64 = 4,
    EXXMLTypeDouble = 5,
    EXXMLTypeDate = 6,
    EXXMLTypeDateOnly = 7,
    EXXMLTypeTimeOnly = 8,
    EXXMLTypeEnum = 9,
};

// A file format, as are the codes.
inline constexpr std::string_view EXXMLTypeBoolTrue = "true";
inline constexpr std::string_view EXXMLTypeBoolFalse = "false";

/// The names by which enumeration codes are written and read.
using EXXMLMapping = EXBimap<std::int64_t, std::string>;

}  // namespace corvane
