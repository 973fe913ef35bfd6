// Composes a binary property list from the inside out: contents first, then what holds them.
#pragma once

#include "corvane/platform/ByteSink.h"
#include "corvane/platform/LargeBlocks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane::platform {

/// Each add operation returns the number of the object, by which later containers refer to it.
/// Equal texts, numbers and UIDs become one object. How wide a reference must be shows only at the
/// end, so containers keep their references apart until then.
class PropertyListWriter {
  public:
    using Ref = std::uint32_t;

    PropertyListWriter();

    Ref addBoolean(bool flag);
    Ref addInteger(std::int64_t number);
    Ref addUnsigned(std::uint64_t number);
    Ref addReal(double number);

    /// In half the bytes.
    Ref addFloat(float number);

    /// In seconds since 2001-01-01 00:00 UTC.
    Ref addDate(double seconds);
    Ref addData(std::span<const std::byte> data);
    Ref addUID(std::uint32_t uid);

    /// UTF-8 in; ill-formed sequences are written as U+FFFD.
    Ref addText(std::string_view text);

    /// The same for a constant of the program, which is known by its address when it comes again.
    Ref addKey(std::string_view key);

    /// Says that the text will be added soon.
    void prefetchText(std::string_view text) const;

    Ref addArray(std::span<const Ref> elements);

    /// REQUIRES: as many values as keys, and keys that are texts.
    Ref addDictionary(std::span<const Ref> keys, std::span<const Ref> values);

    /// False when there are 2^32 objects or more, which no file can hold.
    bool fitsFile() const { return !overflow_; }

    /// In bytes, of what write() writes.
    std::uint64_t fileSize() const;

    /// The file with `top` as its top object; false as soon as the sink answers so. REQUIRES:
    /// fitsFile().
    bool write(Ref top, ByteSink& sink) const;

  private:
    struct Layout;
    Layout layout() const;

    template <class T>
    using Table = std::vector<T, BlockAllocator<T>>;

    Ref append(std::size_t size);
    Ref appendContainer(std::uint8_t marker, std::uint64_t count, std::span<const Ref> first,
                        std::span<const Ref> second);
    Ref appendNumber(std::uint8_t marker, std::uint64_t number, unsigned size);
    void put(std::span<const std::uint8_t> bytes);
    void putSize(std::uint8_t marker, std::uint64_t size);
    void putNumber(std::uint64_t number, unsigned size);
    Ref addUniquePayload(std::uint8_t marker, std::uint64_t size,
                         std::span<const std::uint8_t> payload);
    bool isText(Ref ref, std::uint8_t marker, std::span<const std::uint8_t> payload) const;
    void growTexts();

    // The objects as they will stand in the file, except that references take four bytes here. In
    // chunks, because they grow to the size of the file and would be copied again and again.
    std::vector<Block<std::uint8_t>> chunks_;
    std::uint8_t* free_ = nullptr;
    std::size_t room_ = 0;
    Table<const std::uint8_t*> objects_;
    std::uint64_t byteCount_ = 0;  ///< of all objects
    std::uint64_t refCount_ = 0;   ///< of all references in them
    bool overflow_ = false;

    struct TextSlot {
        std::uint32_t hash = 0;
        Ref ref = 0;
    };
    Table<TextSlot> texts_;  ///< open addressing; ref 0 is never a text
    std::size_t textCount_ = 0;
    struct RecentKey {
        std::string_view key;
        Ref ref = 0;
    };
    std::array<RecentKey, 256> recentKeys_{};  ///< by address
    std::array<Ref, 256> smallIntegers_{};     ///< from 0 on; 0 where there is none yet
    Table<Ref> uids_;                          ///< by UID; 0 where there is none yet
    std::unordered_map<std::int64_t, Ref> integers_;
    std::unordered_map<std::uint64_t, Ref> reals_;
};

}  // namespace corvane::platform
