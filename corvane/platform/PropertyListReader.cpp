#include "corvane/platform/PropertyListReader.h"

#include "corvane/platform/PropertyListFormat.h"
#include "corvane/platform/TextEncoding.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace corvane::platform {

using Kind = PropertyListObject::Kind;

namespace {

// Whether every number below `limit` fits `bytes` bytes with room to spare, as strict readers ask.
bool staysBelow(std::uint64_t limit, unsigned bytes) {
    return bytes >= 8 || limit < (std::uint64_t{1} << (8 * bytes));
}

double readReal(const std::uint8_t* at, unsigned size) {
    if (size == 4) return std::bit_cast<float>(static_cast<std::uint32_t>(readBigEndian(at, 4)));
    return std::bit_cast<double>(readBigEndian(at, 8));
}

// 16-byte integers exist for unsigned values above 2^63 - 1.
PropertyListObject readWideInteger(const std::uint8_t* at) {
    if (readBigEndian(at, 8) != 0) return {};
    std::uint64_t low = readBigEndian(at + 8, 8);
    const auto bits = static_cast<std::int64_t>(low);
    if (bits < 0) return {.kind = Kind::Real, .integer = bits, .real = static_cast<double>(low)};
    return {.kind = Kind::Integer, .integer = bits};
}

}  // namespace

std::optional<PropertyListReader> PropertyListReader::open(std::span<const std::byte> file) {
    PropertyListReader reader;
    reader.begin_ = reinterpret_cast<const std::uint8_t*>(file.data());
    reader.size_ = file.size();
    if (!reader.readTrailer() || !reader.offsetsAreInside()) return std::nullopt;
    return reader;
}

bool PropertyListReader::readTrailer() {
    const std::size_t magicSize = plist::kMagic.size();
    if (size_ <= magicSize + plist::kTrailerSize) return false;
    if (std::memcmp(begin_, plist::kMagic.data(), magicSize) != 0) return false;

    const std::uint8_t* trailer = begin_ + size_ - plist::kTrailerSize;
    if (std::any_of(trailer, trailer + plist::kTrailerOffsetSize, [](auto b) { return b != 0; }))
        return false;
    offsetSize_ = trailer[plist::kTrailerOffsetSize];
    refSize_ = trailer[plist::kTrailerRefSize];
    objectCount_ = readBigEndian(trailer + plist::kTrailerObjectCount, 8);
    topObject_ = readBigEndian(trailer + plist::kTrailerTopObject, 8);
    tableStart_ = readBigEndian(trailer + plist::kTrailerTableStart, 8);

    if (offsetSize_ < 1 || offsetSize_ > 8 || refSize_ < 1 || refSize_ > 8) return false;
    if (objectCount_ == 0 || topObject_ >= objectCount_) return false;
    const std::uint64_t tableEnd = size_ - plist::kTrailerSize;
    if (tableStart_ <= magicSize || tableStart_ > tableEnd) return false;
    if ((tableEnd - tableStart_) % offsetSize_ != 0) return false;
    if ((tableEnd - tableStart_) / offsetSize_ != objectCount_) return false;
    return staysBelow(objectCount_, refSize_) && staysBelow(tableStart_, offsetSize_);
}

bool PropertyListReader::offsetsAreInside() const {
    const std::uint8_t* entry = begin_ + tableStart_;
    for (std::uint64_t i = 0; i < objectCount_; ++i, entry += offsetSize_) {
        std::uint64_t offset = readBigEndianWide(entry, offsetSize_);
        if (offset < plist::kMagic.size() || offset >= tableStart_) return false;
    }
    return true;
}

PropertyListObject PropertyListReader::object(std::uint64_t number) const {
    if (number >= objectCount_) return {};
    const std::uint8_t* at = begin_ + offsetOf(number);
    const auto room = static_cast<std::uint64_t>(begin_ + tableStart_ - at) - 1;
    const unsigned low = *at & 0x0F;
    const unsigned size = low <= 4 ? 1u << low : 0;
    switch (*at & 0xF0) {
        case plist::kNull:
            if (*at == plist::kNull) return {.kind = Kind::Null};
            if (*at == plist::kFalse || *at == plist::kTrue)
                return {.kind = Kind::Boolean, .integer = *at == plist::kTrue};
            return {};
        case plist::kInteger:
            if (size == 0 || size > room) return {};
            if (size == 16) return readWideInteger(at + 1);
            return {.kind = Kind::Integer,
                    .integer = static_cast<std::int64_t>(readBigEndianWide(at + 1, size))};
        case plist::kReal:
            if ((size != 4 && size != 8) || size > room) return {};
            return {.kind = Kind::Real, .real = readReal(at + 1, size)};
        case plist::kDate & 0xF0:
            if (*at != plist::kDate || room < 8) return {};
            return {.kind = Kind::Date, .real = readReal(at + 1, 8)};
        case plist::kUID:
            if (low > 7 || low >= room) return {};
            // A UID beyond 63 bits turns negative here and is out of every archive's range.
            return {.kind = Kind::UID,
                    .integer = static_cast<std::int64_t>(readBigEndianWide(at + 1, low + 1))};
        case plist::kData:
            return container(Kind::Data, at, 1);
        case plist::kASCII:
            return container(Kind::ASCII, at, 1);
        case plist::kUTF16:
            return container(Kind::UTF16, at, 2);
        case plist::kArray:
            return container(Kind::Array, at, refSize_);
        case plist::kDictionary:
            return container(Kind::Dictionary, at, 2 * refSize_);
        default:
            return {};
    }
}

PropertyListObject PropertyListReader::container(Kind kind, const std::uint8_t* at,
                                                 unsigned bytesPerElement) const {
    const std::uint8_t* end = begin_ + tableStart_;
    PropertyListObject result{.kind = kind};
    result.count = *at++ & 0x0F;
    if (result.count == plist::kSizeFollows) {
        if (at == end || (*at & 0xF0) != plist::kInteger || (*at & 0x0F) > 3) return {};
        const unsigned size = 1u << (*at++ & 0x0F);
        if (static_cast<std::uint64_t>(end - at) < size) return {};
        result.count = readBigEndianWide(at, size);
        at += size;
    }
    if (result.count > static_cast<std::uint64_t>(end - at) / bytesPerElement) return {};
    result.payload = at;
    return result;
}

SharedText PropertyListReader::text(const PropertyListObject& object, Arena* arena) {
    if (object.kind == Kind::UTF16)
        return SharedText(utf8FromUTF16BigEndian({object.payload, 2 * object.count}), arena);
    if (object.kind != Kind::ASCII) return {};
    const std::string_view bytes(reinterpret_cast<const char*>(object.payload), object.count);
    return isASCII(bytes) ? SharedText(bytes, arena) : SharedText();
}

bool PropertyListReader::isText(std::uint64_t number, std::string_view text) const {
    PropertyListObject key = object(number);
    if (key.kind == Kind::ASCII)
        return key.count == text.size() && std::memcmp(key.payload, text.data(), text.size()) == 0;
    // UTF-8 takes at least one byte a unit, so longer texts need not be converted.
    return key.kind == Kind::UTF16 && key.count <= text.size() &&
           PropertyListReader::text(key).view() == text;
}

}  // namespace corvane::platform
