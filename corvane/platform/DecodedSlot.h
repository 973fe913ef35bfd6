// What the reader of an archive knows of one of the objects in it.
#pragma once

#include "corvane/platform/SharedText.h"
#include "corvane/platform/Value.h"

#include <cstdint>

namespace corvane::platform {

/// Nothing yet, that it is being read, a plain text, or a value. As large as a pointer, as archives
/// have many; refers to texts and values and owns none.
class DecodedSlot {
  public:
    DecodedSlot() = default;
    explicit DecodedSlot(const Value& value) : bits_(bitsOf(&value)) {}
    explicit DecodedSlot(const SharedText& text) : bits_(bitsOf(&text) | kText) {}
    static DecodedSlot inProgress() {
        DecodedSlot slot;
        slot.bits_ = kInProgress;
        return slot;
    }

    bool isNew() const { return bits_ == 0; }
    bool isInProgress() const { return bits_ == kInProgress; }

    /// Null where it is nothing of the kind.
    const Value* value() const {
        return (bits_ & kMarks) == 0 ? reinterpret_cast<const Value*>(bits_) : nullptr;
    }
    const SharedText* text() const {
        return (bits_ & kText) != 0 ? reinterpret_cast<const SharedText*>(bits_ & ~kMarks)
                                    : nullptr;
    }

  private:
    // In the bits that are 0 in every address of a value or text.
    static constexpr std::uintptr_t kText = 1;
    static constexpr std::uintptr_t kInProgress = 2;
    static constexpr std::uintptr_t kMarks = kText | kInProgress;
    static_assert(alignof(Value) > kMarks && alignof(SharedText) > kMarks);

    static std::uintptr_t bitsOf(const void* address) {
        return reinterpret_cast<std::uintptr_t>(address);
    }

    std::uintptr_t bits_ = 0;
};

}  // namespace corvane::platform
