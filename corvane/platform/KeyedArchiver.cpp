#include "corvane/platform/KeyedArchiver.h"

#include "corvane/platform/ArchiveFormat.h"

#include <algorithm>
#include <limits>

namespace corvane::platform {

/// One record being written: takes its slot at once, so that its contents come after it, and puts
/// the finished dictionary there at the end, when its class has had a chance to be new.
class KeyedArchiver::Record {
  public:
    explicit Record(KeyedArchiver& archiver)
        : archiver_(archiver), slot_(archiver.newSlot()), start_(archiver.keys_.size()) {
        if (++archiver_.depth_ > archive::kDeepestNesting) archiver_.failed_ = true;
    }

    Slot slot() const { return slot_; }

    Slot finish(std::string_view className, std::string_view baseName = {}) {
        archiver_.add(archive::kClassKey,
                      archiver_.writer_.addUID(archiver_.slotOfClass(className, baseName)));
        auto tail = [&](const std::vector<Ref>& refs) { return std::span(refs).subspan(start_); };
        archiver_.objects_[slot_] =
            archiver_.writer_.addDictionary(tail(archiver_.keys_), tail(archiver_.values_));
        archiver_.keys_.resize(start_);
        archiver_.values_.resize(start_);
        --archiver_.depth_;
        return slot_;
    }

  private:
    KeyedArchiver& archiver_;
    Slot slot_;
    std::size_t start_;
};

KeyedArchiver::KeyedArchiver() {
    objects_.push_back(writer_.addText(archive::kNullText));
}

template <class Root>
std::optional<Bytes> KeyedArchiver::dataOf(const Root& root) {
    KeyedArchiver archiver;
    const auto top = archiver.finish(archiver.slotOfRoot(root));
    if (!top) return std::nullopt;
    BytesSink sink(archiver.writer_.fileSize());
    archiver.writer_.write(*top, sink);
    return sink.take();
}

template <class Root>
std::optional<Error> KeyedArchiver::write(const Root& root, const std::string& path,
                                          Durability durability,
                                          const std::optional<std::string>& staging) {
    KeyedArchiver archiver;
    const auto top = archiver.finish(archiver.slotOfRoot(root));
    if (!top) return Error{"archive", 0, "too many or too deeply nested objects for " + path};
    const auto content = [&](ByteSink& sink) { return archiver.writer_.write(*top, sink); };
    return replaceFileInPieces(path, content, durability, staging);
}

std::optional<Bytes> KeyedArchiver::archivedData(const Value& root) {
    return dataOf(root);
}

std::optional<Bytes> KeyedArchiver::archivedData(const Archivable& root) {
    return dataOf(root);
}

std::optional<Error> KeyedArchiver::archiveToFile(const Value& root, const std::string& path,
                                                  Durability durability,
                                                  std::optional<std::string> stagingDirectory) {
    return write(root, path, durability, stagingDirectory);
}

std::optional<Error> KeyedArchiver::archiveToFile(const Archivable& root, const std::string& path) {
    return write(root, path, Durability::Rename, std::nullopt);
}

std::optional<KeyedArchiver::Ref> KeyedArchiver::finish(Slot root) {
    if (failed_) return std::nullopt;
    const Ref rootKey = writer_.addKey(archive::kRootKey.name());
    const Ref rootUID = writer_.addUID(root);
    const Ref keys[] = {
        writer_.addKey(archive::kVersionKey.name()), writer_.addKey(archive::kArchiverKey.name()),
        writer_.addKey(archive::kTopKey.name()), writer_.addKey(archive::kObjectsKey.name())};
    const Ref values[] = {
        writer_.addInteger(archive::kVersion), writer_.addText(archive::kArchiverName),
        writer_.addDictionary({&rootKey, 1}, {&rootUID, 1}), writer_.addArray(objects_)};
    const Ref top = writer_.addDictionary(keys, values);
    return writer_.fitsFile() ? std::optional(top) : std::nullopt;
}

void KeyedArchiver::add(ArchiveKey key, Ref value) {
    keys_.push_back(writer_.addKey(key.name()));
    values_.push_back(value);
}

void KeyedArchiver::addSlot(ArchiveKey key, Slot slot) {
    add(key, writer_.addUID(slot));
}

void KeyedArchiver::encodeBool(ArchiveKey key, bool flag) {
    add(key, writer_.addBoolean(flag));
}

void KeyedArchiver::encodeInteger(ArchiveKey key, std::int64_t number) {
    add(key, writer_.addInteger(number));
}

void KeyedArchiver::encodeDouble(ArchiveKey key, double number) {
    add(key, writer_.addReal(number));
}

void KeyedArchiver::encodeText(ArchiveKey key, const SharedText& text) {
    addSlot(key, text.isAbsent() ? 0 : slotOfText(text.view()));
}

void KeyedArchiver::encodeURL(ArchiveKey key, const std::optional<URL>& url) {
    addSlot(key, url ? slotOfURL(*url) : 0);
}

void KeyedArchiver::encodeDay(ArchiveKey key, std::optional<EXDateOnly> day) {
    addSlot(key, day ? slotOfDay(*day) : 0);
}

void KeyedArchiver::encodeObject(ArchiveKey key, const Value& value) {
    addSlot(key, slotOfValue(value));
}

void KeyedArchiver::encodeField(std::string_view key, const Value& value, bool isInline) {
    const Ref ref = isInline ? inlineRef(value) : writer_.addUID(slotOfValue(value));
    keys_.push_back(writer_.addText(key));
    values_.push_back(ref);
}

KeyedArchiver::Ref KeyedArchiver::inlineRef(const Value& value) {
    switch (value.kind()) {
        case Value::Kind::Boolean:
            return writer_.addBoolean(value.booleanValue());
        case Value::Kind::Integer:
            return value.largeInteger() ? writer_.addUnsigned(*value.largeInteger())
                                        : writer_.addInteger(value.integerValue());
        case Value::Kind::Real:
            return writer_.addReal(value.realValue());
        case Value::Kind::Text:
            return writer_.addText(*value.text());
        case Value::Kind::Data:
            return writer_.addData(*value.data());
        default:
            return writer_.addUID(slotOfValue(value));
    }
}

KeyedArchiver::Slot KeyedArchiver::newSlot() {
    if (objects_.size() >= std::numeric_limits<Slot>::max()) {
        failed_ = true;
        return 0;
    }
    objects_.push_back(0);
    return static_cast<Slot>(objects_.size() - 1);
}

KeyedArchiver::Slot& KeyedArchiver::entryAt(Slots& slots, Ref ref) {
    if (ref >= slots.size())
        slots.resize(std::max<std::size_t>(ref + std::size_t{1}, 2 * slots.size()));
    return slots[ref];
}

KeyedArchiver::Slot KeyedArchiver::slotOfScalar(Ref scalar) {
    if (Slot known = entryAt(slotOfScalar_, scalar)) return known;
    const Slot slot = entryAt(slotOfScalar_, scalar) = newSlot();
    objects_[slot] = scalar;
    return slot;
}

KeyedArchiver::Slot KeyedArchiver::slotOfValue(const Value& value) {
    if (failed_) return 0;
    switch (value.kind()) {
        case Value::Kind::Null:
            return 0;
        case Value::Kind::Boolean:
            return slotOfScalar(writer_.addBoolean(value.booleanValue()));
        case Value::Kind::Integer:
            return slotOfScalar(value.largeInteger() ? writer_.addUnsigned(*value.largeInteger())
                                                     : writer_.addInteger(value.integerValue()));
        case Value::Kind::Real:
            return slotOfScalar(writer_.addReal(value.realValue()));
        case Value::Kind::Text:
            return slotOfText(*value.text());
        case Value::Kind::URL:
            return slotOfURL(*value.url());
        case Value::Kind::Moment:
            return slotOfInstant(*value.instant());
        case Value::Kind::Day:
            return slotOfDay(*value.day());
        // A time of day has no archive form of its own: its packed number stands for it.
        case Value::Kind::Time:
            return slotOfScalar(writer_.addInteger(value.time()->integerValue()));
        case Value::Kind::Data:
            return slotOfScalar(writer_.addData(*value.data()));
        case Value::Kind::Object:
            return slotOfObject(value.object());
        default:
            return slotOfContainer(value);
    }
}

KeyedArchiver::Slot KeyedArchiver::slotOfText(std::string_view text) {
    if (text != archive::kNullText) return slotOfScalar(writer_.addText(text));
    // As a plain text, these five characters would read back as the absent object.
    if (nullTextSlot_ == 0) {
        Record record(*this);
        nullTextSlot_ = record.slot();
        add(archive::kTextKey, writer_.addText(text));
        record.finish(archive::kGrowableTextClass, archive::kTextClass);
    }
    return nullTextSlot_;
}

// Most URLs are met again as copies that share their text, in maps by URL above all; only others
// are compared by what they say.
KeyedArchiver::Slot KeyedArchiver::slotOfURL(const URL& url) {
    const void* identity = url.sharedText().identity();
    if (!identity) return slotOfURLWithText(url.absoluteString());
    if (const Slot known = slotOfObject_.find(identity)) return known;
    const Slot slot = slotOfURLWithText(url.absoluteString());
    retainedTexts_.push_back(url.sharedText());
    slotOfObject_.add(identity, slot);
    return slot;
}

KeyedArchiver::Slot KeyedArchiver::slotOfURLWithText(std::string_view absoluteString) {
    const Ref text = writer_.addText(absoluteString);
    if (Slot known = entryAt(slotOfURL_, text)) return known;
    Record record(*this);
    entryAt(slotOfURL_, text) = record.slot();
    add(archive::kURLBaseKey, writer_.addUID(0));
    // Only the text of the absent object needs more than its own slot.
    const bool isPlain = absoluteString != archive::kNullText;
    addSlot(archive::kURLRelativeKey, isPlain ? slotOfScalar(text) : slotOfText(absoluteString));
    return record.finish(archive::kURLClass);
}

KeyedArchiver::Slot KeyedArchiver::slotOfDay(EXDateOnly day) {
    auto [entry, isNew] = slotOfDay_.try_emplace(day.integerValue(), 0);
    if (isNew) {
        Record record(*this);
        entry->second = record.slot();
        encodeInteger(EXDateOnly::kEncodedValueKey, day.integerValue());
        record.finish(EXDateOnly::kArchiveClassName);
    }
    return entry->second;
}

KeyedArchiver::Slot KeyedArchiver::slotOfInstant(Instant instant) {
    Record record(*this);
    encodeDouble(archive::kDateKey, secondsSinceReferenceDate(instant));
    return record.finish(archive::kDateClass);
}

KeyedArchiver::Slot KeyedArchiver::slotOfNullObject() {
    if (nullObjectSlot_ == 0) {
        Record record(*this);
        nullObjectSlot_ = record.slot();
        record.finish(archive::kNullClass);
    }
    return nullObjectSlot_;
}

KeyedArchiver::Slot KeyedArchiver::slotOfObject(std::shared_ptr<Archivable> object) {
    if (const Slot known = slotOfObject_.find(object.get())) return known;
    retained_.push_back(std::move(object));
    return slotOfRecord(static_cast<const Archivable&>(*retained_.back()));
}

KeyedArchiver::Slot KeyedArchiver::slotOfContainer(const Value& value) {
    const void* identity = value.list() ? static_cast<const void*>(value.list()) : value.map();
    if (const Slot known = slotOfObject_.find(identity)) return known;
    // Lists and maps are immutable and can hold no cycle, so they are entered when they are done.
    const bool growable = value.list() ? value.list()->growable : value.map()->growable;
    const Growth growth = growable ? Growth::Growable : Growth::Fixed;
    const Slot slot = value.list() ? slotOfList(value.list()->items, growth)
                                   : slotOfMap(value.map()->items, growth);
    if (failed_) return 0;
    retainedContainers_.push_back(value);
    slotOfObject_.add(identity, slot);
    return slot;
}

KeyedArchiver::Slot KeyedArchiver::slotOfRecord(const Archivable& object) {
    Record record(*this);
    if (failed_) return 0;
    slotOfObject_.add(&object, record.slot());
    object.encodeWithCoder(*this);
    return record.finish(object.archiveClassName());
}

KeyedArchiver::Ref KeyedArchiver::arrayOfSlots(std::span<const Slot> slots) {
    std::vector<Ref> uids(slots.size());
    std::transform(slots.begin(), slots.end(), uids.begin(),
                   [&](Slot slot) { return writer_.addUID(slot); });
    return writer_.addArray(uids);
}

KeyedArchiver::Slot KeyedArchiver::beginContainer() {
    if (++depth_ > archive::kDeepestNesting) failed_ = true;
    return newSlot();
}

KeyedArchiver::Slot KeyedArchiver::endList(Slot slot, std::span<const Slot> items, Growth growth) {
    const Slot type = growth == Growth::Fixed
                          ? slotOfClass(archive::kListClass, {})
                          : slotOfClass(archive::kGrowableListClass, archive::kListClass);
    const Ref keys[] = {writer_.addKey(archive::kItemsKey.name()),
                        writer_.addKey(archive::kClassKey.name())};
    const Ref values[] = {arrayOfSlots(items), writer_.addUID(type)};
    objects_[slot] = writer_.addDictionary(keys, values);
    --depth_;
    return slot;
}

KeyedArchiver::Slot KeyedArchiver::endMap(Slot slot, std::span<const Slot> keySlots,
                                          std::span<const Slot> items, Growth growth) {
    const Slot type = growth == Growth::Fixed
                          ? slotOfClass(archive::kMapClass, {})
                          : slotOfClass(archive::kGrowableMapClass, archive::kMapClass);
    const Ref keys[] = {writer_.addKey(archive::kKeysKey.name()),
                        writer_.addKey(archive::kItemsKey.name()),
                        writer_.addKey(archive::kClassKey.name())};
    const Ref values[] = {arrayOfSlots(keySlots), arrayOfSlots(items), writer_.addUID(type)};
    objects_[slot] = writer_.addDictionary(keys, values);
    --depth_;
    return slot;
}

KeyedArchiver::Slot KeyedArchiver::slotOfClass(std::string_view className,
                                               std::string_view baseName) {
    // Most names are constants, and a record with a name of its own keeps it while it is written.
    const auto address = reinterpret_cast<std::uintptr_t>(className.data());
    auto& recent = recentClasses_[(address >> 3) % recentClasses_.size()];
    if (recent.first != className || recent.second == 0)
        recent = {className, slotOfNewClass(className, baseName)};
    return recent.second;
}

KeyedArchiver::Slot KeyedArchiver::slotOfNewClass(std::string_view className,
                                                  std::string_view baseName) {
    auto [entry, isNew] = slotOfClass_.try_emplace(className, 0);
    if (!isNew) return entry->second;
    const Slot slot = entry->second = newSlot();
    std::vector<Ref> chain{writer_.addText(className)};
    if (!baseName.empty()) chain.push_back(writer_.addText(baseName));
    chain.push_back(writer_.addText(archive::kRootClass));
    const Ref keys[] = {writer_.addKey(archive::kClassNameKey.name()),
                        writer_.addKey(archive::kClassesKey.name())};
    const Ref values[] = {chain.front(), writer_.addArray(chain)};
    objects_[slot] = writer_.addDictionary(keys, values);
    return slot;
}

}  // namespace corvane::platform
