// By which fields a list of keyed objects is sorted.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

/// A regular value. Values are compared as EXValue compares them; one that is absent counts as less
/// than any other.
struct EXSortDescriptor {
    std::string key;
    bool ascending = true;

    friend bool operator==(const EXSortDescriptor&, const EXSortDescriptor&) = default;
};

using EXSortDescriptors = std::vector<EXSortDescriptor>;

/// By the first descriptor, where that finds them equal by the second, and so on; objects that all
/// of them find equal keep their order. Each object is asked once for each
/// key, by valueForKey.
template <class T>
void sortByDescriptors(std::vector<std::shared_ptr<T>>& objects,
                       const EXSortDescriptors& descriptors) {
    struct Row {
        std::vector<EXValue> values;
        std::shared_ptr<T> object;
    };
    std::vector<Row> rows;
    rows.reserve(objects.size());
    for (auto& object : objects) {
        Row& row = rows.emplace_back();
        for (const EXSortDescriptor& descriptor : descriptors)
            row.values.push_back(object->valueForKey(descriptor.key));
        row.object = std::move(object);
    }
    std::stable_sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
        for (std::size_t i = 0; i < descriptors.size(); ++i) {
            const auto order = a.values[i] <=> b.values[i];
            if (order != 0) return descriptors[i].ascending ? order < 0 : order > 0;
        }
        return false;
    });
    std::transform(rows.begin(), rows.end(), objects.begin(),
                   [](Row& row) { return std::move(row.object); });
}

}  // namespace corvane
