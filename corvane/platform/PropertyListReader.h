// Reads single objects of a binary property list in place, without building a tree.
#pragma once

#include "corvane/platform/BigEndian.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/PropertyListFormat.h"
#include "corvane/platform/SharedText.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane::platform {

/// One object as it lies in the file. `payload` points into the caller's bytes.
struct PropertyListObject {
    enum class Kind : std::uint8_t {
        Invalid,
        Null,
        Boolean,
        Integer,
        Real,
        Date,
        Data,
        ASCII,
        UTF16,
        UID,
        Array,
        Dictionary
    };

    Kind kind = Kind::Invalid;
    /// Of a Boolean (0 or 1), an Integer or a UID. A whole number above INT64_MAX is a Real, which
    /// may be off by a little, and has its own bits here; any other Real has 0.
    std::int64_t integer = 0;
    double real = 0;  ///< of a Real or a Date
    const std::uint8_t* payload = nullptr;
    std::uint64_t count = 0;  ///< bytes of Data and ASCII, units of UTF16, elements, pairs
};

/// A view over the bytes of a file, which must outlive it. Opening checks the frame: the trailer's
/// sizes add up to the file's length and every offset lies between the magic and the table. Each
/// object is checked when it is asked for; whatever the bytes are, nothing outside them is read.
class PropertyListReader {
  public:
    static std::optional<PropertyListReader> open(std::span<const std::byte> file);

    std::uint64_t objectCount() const { return objectCount_; }
    std::uint64_t topObject() const { return topObject_; }

    /// The object with this number; of kind Invalid when there is none or it does not fit the file.
    PropertyListObject object(std::uint64_t number) const;

    /// The object number of element i of an array, or of key i of a dictionary. REQUIRES: i <
    /// count.
    std::uint64_t reference(const PropertyListObject& container, std::uint64_t i) const {
        return readBigEndianWide(container.payload + i * refSize_, refSize_);
    }

    /// The object number of value i of a dictionary. REQUIRES: i < count.
    std::uint64_t valueReference(const PropertyListObject& dictionary, std::uint64_t i) const {
        return reference(dictionary, dictionary.count + i);
    }

    static constexpr std::uint64_t kNoUID = ~std::uint64_t{0};

    /// The number that object `number` holds as a UID; kNoUID when it is anything else.
    std::uint64_t uid(std::uint64_t number) const {
        if (number >= objectCount_) return kNoUID;
        const std::uint64_t offset = offsetOf(number);
        const std::uint8_t marker = begin_[offset];
        const unsigned size = (marker & 0x0Fu) + 1;
        if ((marker & 0xF0) != plist::kUID || size > 8 || offset + size >= tableStart_)
            return kNoUID;
        return readBigEndianWide(begin_ + offset + 1, size);
    }

    /// Says that the object with this number will be asked for soon: from further away, where it
    /// lies, and nearer, itself.
    void prefetchPlace(std::uint64_t number) const {
        if (number < objectCount_) prefetch(begin_ + tableStart_ + number * offsetSize_);
    }
    void prefetchObject(std::uint64_t number) const {
        if (number < objectCount_) prefetch(begin_ + offsetOf(number));
    }

    /// Whether object `number` says that it is a text.
    bool isAnyText(std::uint64_t number) const {
        if (number >= objectCount_) return false;
        const std::uint8_t type = begin_[offsetOf(number)] & 0xF0;
        return type == plist::kASCII || type == plist::kUTF16;
    }

    /// Whether object `number` is a flag or an integer of up to 8 bytes, and which.
    bool readInteger(std::uint64_t number, std::int64_t& integer) const {
        if (number >= objectCount_) return false;
        const std::uint64_t offset = offsetOf(number);
        const std::uint8_t marker = begin_[offset];
        if (marker == plist::kFalse || marker == plist::kTrue) {
            integer = marker == plist::kTrue;
            return true;
        }
        const unsigned size = 1u << (marker & 0x0F);
        if ((marker & 0xFC) != plist::kInteger || offset + size >= tableStart_) return false;
        integer = static_cast<std::int64_t>(readBigEndianWide(begin_ + offset + 1, size));
        return true;
    }

    /// The references to a dictionary's keys as they lie in the file: dictionaries with the same
    /// bytes here have the same keys in the same order.
    std::string_view keyReferences(const PropertyListObject& dictionary) const {
        return {reinterpret_cast<const char*>(dictionary.payload), dictionary.count * refSize_};
    }

    /// The text of an ASCII or UTF16 object as UTF-8 (unpaired surrogates become U+FFFD), in the
    /// arena if one is given; absent for other kinds and for ASCII text with bytes above 0x7F.
    static SharedText text(const PropertyListObject& object, Arena* arena = nullptr);

    /// Whether object `number` is the text `text`.
    bool isText(std::uint64_t number, std::string_view text) const;

  private:
    PropertyListReader() = default;
    std::uint64_t offsetOf(std::uint64_t number) const {
        return readBigEndianWide(begin_ + tableStart_ + number * offsetSize_, offsetSize_);
    }
    bool readTrailer();
    bool offsetsAreInside() const;
    PropertyListObject container(PropertyListObject::Kind kind, const std::uint8_t* at,
                                 unsigned bytesPerElement) const;

    // The table and the trailer follow every object, so that whole words may be loaded anywhere
    // in front of them.
    const std::uint8_t* begin_ = nullptr;
    std::uint64_t size_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::uint64_t tableStart_ = 0;
    unsigned offsetSize_ = 0;
    unsigned refSize_ = 0;
};

}  // namespace corvane::platform
