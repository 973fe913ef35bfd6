// Writes an object and everything it refers to as a keyed archive.
#pragma once

#include "corvane/platform/AddressTable.h"
#include "corvane/platform/Archivable.h"
#include "corvane/platform/ArchiveKey.h"
#include "corvane/platform/ArchiverLookAhead.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/Error.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/PropertyListWriter.h"
#include "corvane/platform/Value.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvane::platform {

/// Whether an archived list or map is declared as one that its reader may change.
enum class Growth { Fixed, Growable };

/// Archives are made by the static operations; an instance exists only while one of them runs, and
/// is what records see in encodeWithCoder. Equal texts, URLs and days are stored once, and so is
/// each object, however often it is met: one object stays one object.
///
/// The same objects give the same bytes. Nothing may change them meanwhile.
class KeyedArchiver {
  public:
    /// The archive's bytes; none when objects hold one another more than 512 deep, or there are
    /// 2^32 objects or more.
    static std::optional<Bytes> archivedData(const Value& root);
    static std::optional<Bytes> archivedData(const Archivable& root);

    /// Replaces the file at `path` whole; see replaceFile for durability and staging. None means
    /// that the file was written.
    static std::optional<Error> archiveToFile(const Value& root, const std::string& path,
                                              Durability durability = Durability::Rename,
                                              std::optional<std::string> stagingDirectory = {});
    static std::optional<Error> archiveToFile(const Archivable& root, const std::string& path);

    KeyedArchiver(const KeyedArchiver&) = delete;
    KeyedArchiver& operator=(const KeyedArchiver&) = delete;

    // For encodeWithCoder: one value under a key of the current record. An absent value is written
    // as the absent object. A key must not repeat within a record.

    void encodeBool(ArchiveKey key, bool flag);
    void encodeInteger(ArchiveKey key, std::int64_t number);
    void encodeDouble(ArchiveKey key, double number);
    void encodeText(ArchiveKey key, const SharedText& text);
    void encodeURL(ArchiveKey key, const std::optional<URL>& url);
    void encodeDay(ArchiveKey key, std::optional<EXDateOnly> day);
    void encodeObject(ArchiveKey key, const Value& value);

    template <class T>
    void encodeList(ArchiveKey key, const std::optional<std::vector<T>>& list,
                    Growth growth = Growth::Fixed) {
        if (!list) return encodeObject(key, nullptr);
        addSlot(key, slotOfList(*list, growth));
    }

    template <class Key, class T, class Less>
    void encodeMap(ArchiveKey key, const std::optional<std::map<Key, T, Less>>& map,
                   Growth growth = Growth::Fixed) {
        if (!map) return encodeObject(key, nullptr);
        addSlot(key, slotOfMap(*map, growth));
    }

    /// A value under a key that came from an archive. In place means: not as an object of its own,
    /// which only numbers, texts and bytes can be; other kinds are written as encodeObject does.
    void encodeField(std::string_view key, const Value& value, bool isInline);

  private:
    using Ref = PropertyListWriter::Ref;
    using Slot = std::uint32_t;
    using Slots = std::vector<Slot, BlockAllocator<Slot>>;
    class Record;

    KeyedArchiver();
    /// The top object of the file; none where there can be no file.
    std::optional<Ref> finish(Slot root);

    template <class Root>
    static std::optional<Bytes> dataOf(const Root& root);
    template <class Root>
    static std::optional<Error> write(const Root& root, const std::string& path,
                                      Durability durability,
                                      const std::optional<std::string>& staging);
    Slot slotOfRoot(const Value& root) { return slotOfValue(root); }
    Slot slotOfRoot(const Archivable& root) { return slotOfRecord(root); }

    void add(ArchiveKey key, Ref value);
    void addSlot(ArchiveKey key, Slot slot);
    Ref inlineRef(const Value& value);

    Slot newSlot();
    static Slot& entryAt(Slots& slots, Ref ref);
    Slot slotOfScalar(Ref scalar);
    Slot slotOfValue(const Value& value);
    Slot slotOfText(std::string_view text);
    Slot slotOfURL(const URL& url);
    Slot slotOfURLWithText(std::string_view absoluteString);
    Slot slotOfDay(EXDateOnly day);
    Slot slotOfInstant(Instant instant);
    Slot slotOfNullObject();
    Slot slotOfRecord(const Archivable& object);
    Slot slotOfObject(std::shared_ptr<Archivable> object);
    Slot slotOfContainer(const Value& container);

    // What may stand in a list or a map, where the absent object must not.
    Slot slotOfItem(const URL& url) { return slotOfURL(url); }
    Slot slotOfItem(const Value& value) {
        return value.isNull() ? slotOfNullObject() : slotOfValue(value);
    }
    template <class T>
    Slot slotOfItem(const std::shared_ptr<T>& object) {
        return object ? slotOfObject(object) : slotOfNullObject();
    }

    template <class List>
    Slot slotOfList(const List& list, Growth growth) {
        // Fixed lists without elements are all alike, and most records have one.
        const bool isShared = list.empty() && growth == Growth::Fixed;
        if (isShared && emptyListSlot_ != 0) return emptyListSlot_;
        const Slot slot = beginContainer();
        std::vector<Slot> items;
        items.reserve(list.size());
        lookAhead().forEach(list, [&](const auto& item) { items.push_back(slotOfItem(item)); });
        if (isShared) emptyListSlot_ = slot;
        return endList(slot, items, growth);
    }

    template <class Map>
    Slot slotOfMap(const Map& map, Growth growth) {
        const Slot slot = beginContainer();
        std::vector<Slot> keys;
        std::vector<Slot> items;
        keys.reserve(map.size());
        items.reserve(map.size());
        lookAhead().forEach(map, [&](const auto& entry) {
            keys.push_back(slotOfItem(entry.first));
            items.push_back(slotOfItem(entry.second));
        });
        return endMap(slot, keys, items, growth);
    }

    ArchiverLookAhead lookAhead() const { return {slotOfObject_, writer_}; }

    Slot beginContainer();
    Slot endList(Slot slot, std::span<const Slot> items, Growth growth);
    Slot endMap(Slot slot, std::span<const Slot> keys, std::span<const Slot> items, Growth growth);
    Slot slotOfClass(std::string_view className, std::string_view baseName);
    Slot slotOfNewClass(std::string_view className, std::string_view baseName);
    Ref arrayOfSlots(std::span<const Slot> slots);

    PropertyListWriter writer_;
    std::vector<Ref, BlockAllocator<Ref>> objects_;  ///< the object in each slot
    Slots slotOfScalar_;  ///< by number of the scalar; 0 where it has no slot
    Slots slotOfURL_;     ///< by number of its text; 0 where there is none
    std::unordered_map<std::int64_t, Slot> slotOfDay_;
    AddressTable slotOfObject_;
    std::unordered_map<std::string_view, Slot> slotOfClass_;
    std::array<std::pair<std::string_view, Slot>, 16> recentClasses_{};  ///< by address
    Slot nullTextSlot_ = 0;
    Slot nullObjectSlot_ = 0;
    Slot emptyListSlot_ = 0;

    // The records being written, outermost first, share these; each owns a tail of them.
    std::vector<Ref> keys_;
    std::vector<Ref> values_;
    // What was met stays alive until the end, so that no later object takes its address.
    std::vector<std::shared_ptr<Archivable>> retained_;
    std::vector<SharedText> retainedTexts_;
    std::vector<Value> retainedContainers_;
    int depth_ = 0;
    bool failed_ = false;
};

}  // namespace corvane::platform
