// The names of the keyed archive format, which lies on top of a binary property list.
//
// Every object stands once in the list "$objects", and whoever refers to it holds its index as a
// UID; index 0 is the absent object. docs/formats/keyed-archive.md describes the format in full.
#pragma once

#include "corvane/platform/ArchiveKey.h"

#include <cstdint>
#include <string_view>

namespace corvane::platform::archive {

inline constexpr ArchiveKey kVersionKey = "$version";
inline constexpr std::int64_t kVersion = 100000;
inline constexpr ArchiveKey kArchiverKey = "$archiver";
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr ArchiveKey kTopKey = "$top";
inline constexpr ArchiveKey kRootKey = "root";
inline constexpr ArchiveKey kObjectsKey = "$objects";
inline constexpr std::string_view kNullText = "$null";

inline constexpr ArchiveKey kClassKey = "$class";
inline constexpr ArchiveKey kClassNameKey = "$classname";
inline constexpr ArchiveKey kClassesKey = "$classes";
inline constexpr std::string_view kRootClass = "NSObject";

inline constexpr std::string_view kListClass = "NSArray";
inline constexpr std::string_view kGrowableListClass = "NSMutableArray";
inline constexpr std::string_view kMapClass = "NSDictionary";
inline constexpr std::string_view kGrowableMapClass = "NSMutableDictionary";
inline constexpr std::string_view kTextClass = "NSString";
inline constexpr std::string_view kGrowableTextClass = "NSMutableString";
inline constexpr std::string_view kDataClass = "NSData";
inline constexpr std::string_view kGrowableDataClass = "NSMutableData";
inline constexpr std::string_view kURLClass = "NSURL";
inline constexpr std::string_view kDateClass = "NSDate";
inline constexpr std::string_view kNullClass = "NSNull";

inline constexpr ArchiveKey kItemsKey = "NS.objects";
inline constexpr ArchiveKey kKeysKey = "NS.keys";
inline constexpr ArchiveKey kTextKey = "NS.string";
inline constexpr ArchiveKey kDataKey = "NS.data";
inline constexpr ArchiveKey kURLBaseKey = "NS.base";
inline constexpr ArchiveKey kURLRelativeKey = "NS.relative";
inline constexpr ArchiveKey kDateKey = "NS.time";

/// How deep objects may hold one another; strict readers refuse more, and it bounds the stack.
inline constexpr int kDeepestNesting = 512;

}  // namespace corvane::platform::archive
