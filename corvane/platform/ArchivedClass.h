// What the reader of an archive knows of one of the classes in it.
#pragma once

#include "corvane/platform/ArchiveClasses.h"
#include "corvane/platform/ArchiveKey.h"
#include "corvane/platform/SharedText.h"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::platform {

/// What a class is read as, and the layout of the record of it that was read last: most records of
/// a class have the same keys in the same places, and are then read without looking at the keys.
struct ArchivedClass {
    /// Made are the records that the table of classes has a factory for.
    enum class Shape { List, Map, Text, Data, URL, Date, Day, Null, Made, Unknown };

    Shape shape = Shape::Unknown;
    bool growable = false;
    SharedText name;
    const ArchiveClasses::Factory* factory = nullptr;

    std::string_view layout;    ///< the key references of that record
    unsigned layoutNumber = 0;  ///< counts the changes of layout
    std::vector<std::pair<ArchiveKey, std::uint64_t>> places;  ///< in the order of asking

    /// Takes the shape, and the factory, of the class of this name where there is one.
    void recognize(std::string_view candidate, const ArchiveClasses& classes);
};

}  // namespace corvane::platform
