// What is exported to a table: records in their order, each answering values by key. Owned by its
// caller; asked on the thread that writes.
#pragma once

#include "corvane/toolkit/EXValue.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace corvane {

/// An interface over records wherever they lie, so that none has to be copied to be exported.
class EXKeyValueRows {
  public:
    virtual ~EXKeyValueRows() = default;
    virtual std::size_t count() const = 0;

    /// Null for what the record at the index does not have. May be asked for more than once in a
    /// writing, and answers the same each time.
    virtual EXValue valueForKey(std::string_view key, std::size_t index) const = 0;

    /// The same value where it is a text that the record itself holds, so that nothing is copied to
    /// be shown; it stays until all is written. None says to ask valueForKey, which then answers.
    virtual std::optional<std::string_view> heldTextForKey(std::string_view /*key*/,
                                                           std::size_t /*index*/) const {
        return std::nullopt;
    }
};

}  // namespace corvane
