#include "corvane/platform/PropertyListWriter.h"

#include "corvane/platform/BigEndian.h"
#include "corvane/platform/OutputBuffer.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/PropertyListFormat.h"
#include "corvane/platform/TextEncoding.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <limits>

namespace corvane::platform {

using Ref = PropertyListWriter::Ref;

namespace {

constexpr Ref kFalseRef = 0;
constexpr Ref kTrueRef = 1;
constexpr std::size_t kFirstTextSlots = 256;
constexpr std::size_t kSmallChunk = 64 * 1024;
// Behind the end of each chunk, so that short objects are moved as whole words.
constexpr std::size_t kSlack = OutputBuffer::kShort;
// From this size on the table of texts leaves the faster part of the processor's cache.
constexpr std::size_t kLargeTable = 256 * 1024;

// Sizes of integers in the format: 1, 2 or 4 bytes unsigned, else 8 signed.
unsigned integerSize(std::uint64_t number) {
    unsigned size = plist::byteCount(number);
    return size == 3 ? 4 : size > 4 ? 8 : size;
}

unsigned log2(unsigned size) {
    return static_cast<unsigned>(std::countr_zero(size));
}

// Large chunks come in huge pages, of which a small file needs none.
std::size_t chunkSizeAfter(std::uint64_t byteCount) {
    return byteCount < kLargeBlock ? kSmallChunk : kLargeBlock;
}

std::size_t sizePrefix(std::uint64_t size) {
    return size < plist::kSizeFollows ? 1 : 2 + integerSize(size);
}

/// By eight bytes at a time, because every text of an archive passes here.
std::uint32_t hashOf(std::span<const std::uint8_t> bytes) {
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
    std::uint64_t hash = bytes.size() * kSpread;
    const auto mix = [&](std::uint64_t word) {
        hash = (std::rotl(hash, 23) ^ word) * kSpread;
        hash ^= hash >> 32;
    };
    const std::uint8_t* at = bytes.data();
    std::size_t left = bytes.size();
    for (; left >= 8; left -= 8, at += 8) {
        std::uint64_t word;
        std::memcpy(&word, at, 8);
        mix(word);
    }
    std::uint64_t tail = 0;
    if (left > 0) std::memcpy(&tail, at, left);
    mix(tail);
    return static_cast<std::uint32_t>(hash >> 16);
}

// What the first bytes of an object say about it.
struct Extent {
    std::size_t prefix;  ///< of marker and size
    std::size_t bytes;   ///< after the prefix, where they are not references
    std::size_t refs;    ///< after the prefix
};

Extent extentOf(const std::uint8_t* object) {
    const unsigned low = object[0] & 0x0F;
    switch (object[0] & 0xF0) {
        case plist::kNull:
            return {1, 0, 0};
        case plist::kInteger:
        case plist::kReal:
        case plist::kDate & 0xF0:
            return {1, std::size_t{1} << low, 0};
        case plist::kUID:
            return {1, low + std::size_t{1}, 0};
        default:
            break;
    }
    std::size_t prefix = 1;
    std::size_t count = low;
    if (low == plist::kSizeFollows) {
        const unsigned width = 1u << (object[1] & 0x0F);
        prefix = 2 + width;
        count = readBigEndian(object + 2, width);
    }
    switch (object[0] & 0xF0) {
        case plist::kArray:
            return {prefix, 0, count};
        case plist::kDictionary:
            return {prefix, 0, 2 * count};
        case plist::kUTF16:
            return {prefix, 2 * count, 0};
        default:
            return {prefix, count, 0};
    }
}

// The object as it stands in the file, with its references in `refSize` bytes.
void putObject(const std::uint8_t* object, OutputBuffer& output, unsigned refSize) {
    const Extent extent = extentOf(object);
    const std::size_t size = extent.prefix + extent.bytes;
    size <= OutputBuffer::kShort ? output.putShort(object, size) : output.put({object, size});
    object += extent.prefix;
    for (std::size_t i = 0; i < extent.refs; ++i, object += sizeof(Ref)) {
        Ref ref;
        std::memcpy(&ref, object, sizeof ref);
        output.putNumber(ref, refSize);
    }
}

}  // namespace

PropertyListWriter::PropertyListWriter() : texts_(kFirstTextSlots) {
    // The two flags come first, so that no text ever has number 0.
    for (std::uint8_t flag : {plist::kFalse, plist::kTrue}) {
        append(1);
        put({&flag, 1});
    }
}

// Begins an object, which must be put in full before the next one begins.
Ref PropertyListWriter::append(std::size_t size) {
    if (size > room_) {
        const std::size_t chunk = std::max(size + kSlack, chunkSizeAfter(byteCount_));
        chunks_.push_back(makeBlock<std::uint8_t>(chunk));
        room_ = chunk - kSlack;
        free_ = chunks_.back().get();
    }
    byteCount_ += size;
    overflow_ = overflow_ || objects_.size() >= std::numeric_limits<Ref>::max();
    if (overflow_) return kFalseRef;
    objects_.push_back(free_);
    return static_cast<Ref>(objects_.size() - 1);
}

void PropertyListWriter::put(std::span<const std::uint8_t> bytes) {
    free_ = std::copy(bytes.begin(), bytes.end(), free_);
    room_ -= bytes.size();
}

void PropertyListWriter::putSize(std::uint8_t marker, std::uint64_t size) {
    if (size < plist::kSizeFollows) {
        *free_++ = static_cast<std::uint8_t>(marker | size);
        --room_;
        return;
    }
    const unsigned width = integerSize(size);
    *free_++ = static_cast<std::uint8_t>(marker | plist::kSizeFollows);
    *free_++ = static_cast<std::uint8_t>(plist::kInteger | log2(width));
    room_ -= 2;
    putNumber(size, width);
}

void PropertyListWriter::putNumber(std::uint64_t number, unsigned size) {
    writeBigEndianWide(free_, number, size);
    free_ += size;
    room_ -= size;
}

Ref PropertyListWriter::addBoolean(bool flag) {
    return flag ? kTrueRef : kFalseRef;
}

Ref PropertyListWriter::appendNumber(std::uint8_t marker, std::uint64_t number, unsigned size) {
    const Ref ref = append(1 + size);
    *free_++ = marker;
    --room_;
    putNumber(number, size);
    return ref;
}

Ref PropertyListWriter::addInteger(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    Ref& known = bits < smallIntegers_.size() ? smallIntegers_[bits] : integers_[number];
    if (known == 0) {
        const unsigned size = integerSize(bits);
        known = appendNumber(static_cast<std::uint8_t>(plist::kInteger | log2(size)), bits, size);
    }
    return known;
}

Ref PropertyListWriter::addUnsigned(std::uint64_t number) {
    const auto bits = static_cast<std::int64_t>(number);
    if (bits >= 0) return addInteger(bits);
    // In 8 bytes it would be negative.
    const Ref ref = append(17);
    std::uint8_t object[17] = {plist::kInteger | 4};
    writeBigEndian(object + 9, number, 8);
    put(object);
    return ref;
}

Ref PropertyListWriter::addFloat(float number) {
    return appendNumber(plist::kReal | 2, std::bit_cast<std::uint32_t>(number), 4);
}

Ref PropertyListWriter::addDate(double seconds) {
    return appendNumber(plist::kDate, std::bit_cast<std::uint64_t>(seconds), 8);
}

Ref PropertyListWriter::addReal(double number) {
    const auto bits = std::bit_cast<std::uint64_t>(number);
    auto [entry, isNew] = reals_.try_emplace(bits, 0);
    if (isNew) entry->second = appendNumber(plist::kReal | 3, bits, 8);
    return entry->second;
}

Ref PropertyListWriter::addUID(std::uint32_t uid) {
    if (uid >= uids_.size())
        uids_.resize(std::max<std::size_t>(uid + std::size_t{1}, 2 * uids_.size()));
    if (uids_[uid] == 0) {
        const unsigned size = integerSize(uid);
        uids_[uid] = appendNumber(static_cast<std::uint8_t>(plist::kUID | (size - 1)), uid, size);
    }
    return uids_[uid];
}

Ref PropertyListWriter::addData(std::span<const std::byte> data) {
    const Ref ref = append(sizePrefix(data.size()) + data.size());
    putSize(plist::kData, data.size());
    put({reinterpret_cast<const std::uint8_t*>(data.data()), data.size()});
    return ref;
}

Ref PropertyListWriter::addText(std::string_view text) {
    if (isASCII(text)) {
        return addUniquePayload(plist::kASCII, text.size(),
                                {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }
    const std::vector<std::uint8_t> units = utf16BigEndianFromUTF8(text);
    return addUniquePayload(plist::kUTF16, units.size() / 2, units);
}

void PropertyListWriter::prefetchText(std::string_view text) const {
    constexpr std::size_t kLongest = 512;  // more takes longer to hash than its place to come
    if (text.size() > kLongest || texts_.size() * sizeof(TextSlot) < kLargeTable) return;
    const std::span payload(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    platform::prefetch(&texts_[hashOf(payload) & (texts_.size() - 1)]);
}

Ref PropertyListWriter::addKey(std::string_view key) {
    const auto address = reinterpret_cast<std::uintptr_t>(key.data());
    RecentKey& recent = recentKeys_[(address >> 3 ^ address >> 11) % recentKeys_.size()];
    if (recent.key.data() != key.data() || recent.key.size() != key.size())
        recent = {key, addText(key)};
    return recent.ref;
}

Ref PropertyListWriter::addUniquePayload(std::uint8_t marker, std::uint64_t size,
                                         std::span<const std::uint8_t> payload) {
    if (4 * textCount_ >= 3 * texts_.size()) growTexts();
    const std::uint32_t hash = hashOf(payload);
    std::size_t i = hash & (texts_.size() - 1);
    for (; texts_[i].ref != 0; i = (i + 1) & (texts_.size() - 1))
        if (texts_[i].hash == hash && isText(texts_[i].ref, marker, payload)) return texts_[i].ref;

    const Ref ref = append(sizePrefix(size) + payload.size());
    putSize(marker, size);
    put(payload);
    texts_[i] = {hash, ref};
    ++textCount_;
    return ref;
}

bool PropertyListWriter::isText(Ref ref, std::uint8_t marker,
                                std::span<const std::uint8_t> payload) const {
    const std::uint8_t* candidate = objects_[ref];
    if ((candidate[0] & 0xF0) != marker) return false;
    const Extent extent = extentOf(candidate);
    return extent.bytes == payload.size() &&
           std::memcmp(candidate + extent.prefix, payload.data(), payload.size()) == 0;
}

void PropertyListWriter::growTexts() {
    Table<TextSlot> grown(2 * texts_.size());
    for (const TextSlot& slot : texts_) {
        if (slot.ref == 0) continue;
        std::size_t i = slot.hash & (grown.size() - 1);
        while (grown[i].ref != 0)
            i = (i + 1) & (grown.size() - 1);
        grown[i] = slot;
    }
    texts_ = std::move(grown);
}

Ref PropertyListWriter::appendContainer(std::uint8_t marker, std::uint64_t count,
                                        std::span<const Ref> first, std::span<const Ref> second) {
    const Ref ref = append(sizePrefix(count) + first.size_bytes() + second.size_bytes());
    putSize(marker, count);
    for (auto refs : {first, second})
        put({reinterpret_cast<const std::uint8_t*>(refs.data()), refs.size_bytes()});
    refCount_ += first.size() + second.size();
    return ref;
}

Ref PropertyListWriter::addArray(std::span<const Ref> elements) {
    return appendContainer(plist::kArray, elements.size(), elements, {});
}

Ref PropertyListWriter::addDictionary(std::span<const Ref> keys, std::span<const Ref> values) {
    return appendContainer(plist::kDictionary, keys.size(), keys, values);
}

struct PropertyListWriter::Layout {
    unsigned refSize;
    std::uint64_t tableStart;
    unsigned offsetSize;
};

PropertyListWriter::Layout PropertyListWriter::layout() const {
    const unsigned refSize = plist::byteCount(objects_.size());
    const std::uint64_t tableStart =
        plist::kMagic.size() + byteCount_ - refCount_ * sizeof(Ref) + refCount_ * refSize;
    return {refSize, tableStart, plist::byteCount(tableStart)};
}

std::uint64_t PropertyListWriter::fileSize() const {
    const Layout parts = layout();
    return parts.tableStart + objects_.size() * parts.offsetSize + plist::kTrailerSize;
}

bool PropertyListWriter::write(Ref top, ByteSink& sink) const {
    const Layout parts = layout();
    // With room for a whole word at the end.
    const auto table = makeBlock<std::uint8_t>(objects_.size() * parts.offsetSize + 8);
    std::uint8_t* entry = table.get();
    OutputBuffer output(sink);
    output.put({reinterpret_cast<const std::uint8_t*>(plist::kMagic.data()), plist::kMagic.size()});
    for (const std::uint8_t* object : objects_) {
        writeBigEndianWide(entry, output.position(), parts.offsetSize);
        entry += parts.offsetSize;
        putObject(object, output, parts.refSize);
    }
    output.put({table.get(), entry});

    std::array<std::uint8_t, plist::kTrailerSize> trailer{};
    trailer[plist::kTrailerOffsetSize] = static_cast<std::uint8_t>(parts.offsetSize);
    trailer[plist::kTrailerRefSize] = static_cast<std::uint8_t>(parts.refSize);
    writeBigEndian(&trailer[plist::kTrailerObjectCount], objects_.size(), 8);
    writeBigEndian(&trailer[plist::kTrailerTopObject], top, 8);
    writeBigEndian(&trailer[plist::kTrailerTableStart], parts.tableStart, 8);
    output.put(trailer);
    return output.flush();
}

}  // namespace corvane::platform
