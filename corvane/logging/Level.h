// How important a message is, and sets of such levels. Values.
#pragma once

namespace corvane::logging {

/// Each level is a bit, so that any set of them can be chosen.
enum class Level : unsigned {
    Error = 1,        ///< An operation stopped.
    Warning = 2,      ///< Something was passed over.
    Information = 4,  ///< What a person may want to know who looks back at the day.
    Debug = 8,        ///< What a developer wants to know who looks for a fault.
    Verbose = 16,     ///< The same, in numbers too large to have it always.
};

/// A set of levels; bits that are no level mean nothing.
using LevelMask = unsigned;

constexpr LevelMask kNoLevel = 0;
constexpr LevelMask kUpToError = 1;
constexpr LevelMask kUpToWarning = 3;
constexpr LevelMask kUpToInformation = 7;
constexpr LevelMask kUpToDebug = 15;
constexpr LevelMask kUpToVerbose = 31;

constexpr bool contains(LevelMask levels, Level level) {
    return (levels & static_cast<LevelMask>(level)) != 0;
}

}  // namespace corvane::logging
