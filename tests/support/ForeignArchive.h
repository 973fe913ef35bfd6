// Builds keyed archives by hand, in forms that this library's own archiver never writes.
#pragma once

#include "corvane/platform/BigEndian.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/PropertyListFormat.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::tests {

/// A list of raw property-list objects, framed on demand. References are object numbers and are
/// written with `refSize` bytes.
// clang-format off
class ForeignArchive {
  public:
    using Ref = std::uint64_t;
    using Entries = std::vector<std::pair<std::string, Ref>>;

    explicit ForeignArchive(unsigned refSize = 2, unsigned uidSize = 4)
        : refSize_(refSize), uidSize_(uidSize) {}

    Ref raw(std::string bytes) {
        objects_.push_back(std::move(bytes));
        return objects_.size() - 1;
    }
    Ref text(std::string_view ascii) { return raw(sized(0x50, ascii.size()) + std::string(ascii)); }
    Ref integer(std::uint8_t number) { return raw({'\x10', static_cast<char>(number)}); }
    Ref uid(std::uint64_t slot) {
        return raw(std::string(1, static_cast<char>(0x80 | (uidSize_ - 1))) + number(slot, uidSize_));
    }
    Ref array(const std::vector<Ref>& elements) {
        std::string bytes = sized(0xA0, elements.size());
        for (Ref element : elements) bytes += number(element, refSize_);
        return raw(bytes);
    }
    Ref uids(const std::vector<std::uint64_t>& slots) {
        std::vector<Ref> elements;
        for (auto slot : slots) elements.push_back(uid(slot));
        return array(elements);
    }
    Ref dictionary(const Entries& entries) {
        std::string keys, values;
        for (const auto& [key, value] : entries) {
            keys += number(text(key), refSize_);
            values += number(value, refSize_);
        }
        return raw(sized(0xD0, entries.size()) + keys + values);
    }
    /// A class description; without a chain, "$classes" is left out.
    Ref classNamed(std::string_view name, const std::vector<std::string>& chain = {}) {
        Entries entries{{"$classname", text(name)}};
        if (!chain.empty()) {
            std::vector<Ref> names;
            for (const auto& ancestor : chain) names.push_back(text(ancestor));
            entries.emplace_back("$classes", array(names));
        }
        return dictionary(entries);
    }

    /// The whole file, with `slots` as "$objects" and UID 1 as the root.
    platform::Bytes file(const std::vector<Ref>& slots) {
        const Ref top = dictionary({{"$version", raw({"\x12\x00\x01\x86\xA0", 5})},
                                    {"$archiver", text("NSKeyedArchiver")},
                                    {"$top", dictionary({{"root", uid(1)}})},
                                    {"$objects", array(slots)}});
        return framed(top);
    }

    /// A file whose root has these entries and a class of this name (UID 2), followed by `more`.
    platform::Bytes record(std::string_view className, Entries entries,
                           const std::vector<Ref>& more = {}) {
        entries.emplace_back("$class", uid(2));
        std::vector<Ref> slots{text("$null"), dictionary(entries), classNamed(className)};
        slots.insert(slots.end(), more.begin(), more.end());
        return file(slots);
    }

    platform::Bytes framed(Ref top) const {
        std::string file(platform::plist::kMagic);
        std::string offsets;
        const unsigned offsetSize = 4;
        for (const auto& object : objects_) {
            offsets += number(file.size(), offsetSize);
            file += object;
        }
        const std::uint64_t tableStart = file.size();
        file += offsets + std::string(6, '\0') + number(offsetSize, 1) + number(refSize_, 1) +
                number(objects_.size(), 8) + number(top, 8) + number(tableStart, 8);
        auto* bytes = reinterpret_cast<const std::byte*>(file.data());
        return {bytes, bytes + file.size()};
    }

    static std::string number(std::uint64_t value, unsigned size) {
        std::string bytes(size, '\0');
        platform::writeBigEndian(reinterpret_cast<std::uint8_t*>(bytes.data()), value, size);
        return bytes;
    }

  private:
    static std::string sized(unsigned marker, std::size_t count) {
        if (count < 15) return std::string(1, static_cast<char>(marker | count));
        return std::string{static_cast<char>(marker | 15), '\x12'} + number(count, 4);
    }

    unsigned refSize_;
    unsigned uidSize_;
    std::vector<std::string> objects_;
};
// clang-format on

}  // namespace corvane::tests
