// Reads keyed archives, whoever wrote them, and gives an absent result for what is none.
#pragma once

#include "corvane/platform/ArchiveClasses.h"
#include "corvane/platform/ArchiveKey.h"
#include "corvane/platform/Arena.h"
#include "corvane/platform/DecodedSlot.h"
#include "corvane/platform/LargeBlocks.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/PropertyListReader.h"
#include "corvane/platform/Value.h"

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvane::platform {

struct ArchivedClass;

/// Archives are read by the static operations; an instance exists only while one of them runs, and
/// is what a record's factory reads its keys from. Only what is asked for is decoded.
///
/// The bytes are never trusted: a file that is malformed anywhere in what is asked for (cycles,
/// indexes out of range, unknown classes, sizes that do not add up, nesting beyond 512) gives an
/// absent result. Time and memory stay within a small multiple of the file's size, because what a
/// file may make the reader do is counted against its length.
class KeyedUnarchiver {
  public:
    /// The root object; null when the bytes are no readable archive or its root is absent.
    static Value unarchiveData(std::span<const std::byte> data, const ArchiveClasses& classes);

    /// The same of a file's contents; null also when the file is missing or unreadable.
    static Value unarchiveFile(const std::string& path, const ArchiveClasses& classes);

    KeyedUnarchiver(const KeyedUnarchiver&) = delete;
    KeyedUnarchiver& operator=(const KeyedUnarchiver&) = delete;

    // For factories: the value under a key of the current record. A missing key, an absent object
    // and an object of another type all read as absent, 0 or false. Flags may be stored as numbers
    // and numbers as flags. A text in place where an object or a number belongs is malformed.

    bool decodeBool(ArchiveKey key);
    std::int64_t decodeInteger(ArchiveKey key);  ///< reals are truncated
    double decodeDouble(ArchiveKey key);
    SharedText decodeText(ArchiveKey key);
    std::optional<URL> decodeURL(ArchiveKey key);
    std::optional<EXDateOnly> decodeDay(ArchiveKey key);
    Value decodeObject(ArchiveKey key);

    template <class T>
    std::shared_ptr<T> decodeObject(ArchiveKey key) {
        return decodeObject(key).objectAs<T>();
    }

    /// A list's elements that are T (URL, or the class of a record); others are passed over.
    template <class T>
    auto decodeList(ArchiveKey key) {
        std::optional<std::vector<Item<T>>> result;
        auto items = decodeItems(key);
        if (!items) return result;
        result.emplace().reserve(items->size());
        for (const Value* item : *items)
            if (auto typed = itemAs<T>(*item)) result->push_back(*std::move(typed));
        return result;
    }

    /// A map's entries whose key is a URL and whose value is a T.
    template <class T>
    auto decodeURLMap(ArchiveKey key) {
        std::optional<std::map<URL, Item<T>>> result;
        auto entries = decodeEntries(key);
        if (!entries) return result;
        result.emplace();
        for (std::size_t i = 0; i < entries->keys.size(); ++i) {
            prefetchContent(entries->keys, i);
            prefetchContent(entries->items, i);
            const URL* url = entries->keys[i]->url();
            auto typed = itemAs<T>(*entries->items[i]);
            // Archives written in order fill the map without a search.
            if (url && typed) result->insert_or_assign(result->end(), *url, *std::move(typed));
        }
        return result;
    }

    /// The class name of the current record, as the archive has it.
    SharedText className() const;

    struct Field {
        SharedText key;
        Value value;
        bool isInline = false;  ///< stored in place, not as an object of its own
    };

    /// Every key of the current record with its value, in archive order, "$class" left out.
    std::vector<Field> decodeFields();

    /// Where the decoded objects live; for factories that make objects of their own there.
    Arena& arena() { return *arena_; }

  private:
    using Slot = std::uint64_t;
    using Object = PropertyListObject;
    using Items = std::vector<const Value*>;
    struct Entries {
        Items keys;
        Items items;
    };
    // Objects decoded long ago have left the processor's cache; this many are fetched meanwhile.
    static constexpr std::size_t kLookAhead = 8;
    void prefetchSlots(const Object& list, std::uint64_t current) const;
    static void prefetchContent(const Items& items, std::size_t current) {
        if (current + 2 * kLookAhead < items.size())
            platform::prefetch(items[current + 2 * kLookAhead]);
        if (current + kLookAhead < items.size()) items[current + kLookAhead]->prefetchContent();
    }
    static constexpr std::uint64_t kNothing = ~std::uint64_t{0};
    struct Record;

    KeyedUnarchiver(PropertyListReader reader, std::size_t fileSize, const ArchiveClasses& classes);
    ~KeyedUnarchiver();

    bool readFrame();
    Value readRoot();
    bool fail();
    bool charge(std::uint64_t work);

    // Keys
    std::uint64_t find(ArchiveKey key);
    std::uint64_t findIn(Record& record, ArchiveKey key);
    std::uint64_t findSlowly(Record& record, ArchiveKey key);
    std::uint64_t search(Record& record, std::string_view key);
    void recognizeLayout(Record& record);
    Slot slotAt(std::uint64_t objectNumber);
    Slot slotUnder(Record& record, ArchiveKey key);
    Slot slotUnder(ArchiveKey key);
    Value numberAt(std::uint64_t objectNumber);

    // Objects
    Value scalar(const Object& object);
    std::pair<Value, bool> fieldAt(std::uint64_t objectNumber);
    const SharedText& textOf(std::uint64_t objectNumber);
    std::uint64_t objectIn(Slot slot) const { return reader_.reference(objects_, slot); }
    SharedText textIn(Slot slot);
    const Value& valueIn(Slot slot);
    const Value& valueInNewSlot(Slot slot);
    Value decodeSlot(Slot slot);
    Value decodeRecord(Record& record);
    ArchivedClass* classOf(Record& record);
    std::unique_ptr<ArchivedClass> readClass(Slot slot);
    Value nestedText(Record& record);
    Value nestedData(Record& record);
    Value nestedURL(Record& record);
    Value nestedDate(Record& record);
    Value nestedDay(Record& record);
    Value nestedList(Record& record);
    Value nestedMap(Record& record);
    Object listIn(Record& record, ArchiveKey key);
    const Value& itemIn(const Object& list, std::uint64_t i);
    std::optional<Items> nestedItems(Record& record);
    std::optional<Entries> nestedEntries(Record& record);

    std::optional<Items> decodeItems(ArchiveKey key);
    std::optional<Entries> decodeEntries(ArchiveKey key);
    bool beginContainer(Slot slot, Record& record, bool wantsMap);
    void endContainer(Slot slot, const Record& record);

    template <class T>
    using Item = std::conditional_t<std::is_same_v<T, URL>, URL, std::shared_ptr<T>>;

    template <class T>
    static std::optional<Item<T>> itemAs(const Value& item) {
        if constexpr (std::is_same_v<T, URL>) {
            return item.url() ? std::optional(*item.url()) : std::nullopt;
        } else {
            auto object = item.objectAs<T>();
            return object ? std::optional(std::move(object)) : std::nullopt;
        }
    }

    ArenaHolder arena_{Arena::create()};
    PropertyListReader reader_;
    const ArchiveClasses& classes_;
    Object objects_;  ///< the list of slots
    Slot root_ = 0;
    Record* record_ = nullptr;  ///< the record whose factory is running
    int depth_ = 0;
    bool failed_ = false;
    std::uint64_t budget_;

    std::vector<DecodedSlot, BlockAllocator<DecodedSlot>> slots_;
    /// The key of the map's entry that is being read. Records mostly hold the URL that they are
    /// filed under, by the same object.
    struct {
        std::uint64_t objectNumber = kNothing;
        const Value* key = nullptr;
    } filedUnder_;
    std::pmr::monotonic_buffer_resource blocks_{largeBlocks()};
    std::pmr::deque<Value> values_{&blocks_};  ///< deques, so that references to elements stay
    std::vector<std::uint32_t, BlockAllocator<std::uint32_t>>
        textOfObject_;  ///< by object number: index in texts_ + 1
    std::pmr::deque<SharedText> texts_{&blocks_};
    std::unordered_map<Slot, std::unique_ptr<ArchivedClass>> classOfSlot_;
    std::array<std::pair<Slot, ArchivedClass*>, 8> recentClasses_{};
    Slot emptyList_ = 0;  ///< the slot that was last seen to hold a list without elements
    std::uint64_t classKey_ = kNothing;  ///< the object that was last seen to be the text "$class"
};

}  // namespace corvane::platform
