#include "corvane/platform/KeyedUnarchiver.h"

#include "corvane/platform/ArchiveFormat.h"
#include "corvane/platform/ArchivedClass.h"
#include "corvane/platform/MappedFile.h"

#include <limits>

namespace corvane::platform {

using Kind = PropertyListObject::Kind;
using Shape = ArchivedClass::Shape;

namespace {

// What a file may make the reader do, per byte of its length. Honest files stay far below: each
// element and each byte of a text is paid for once and takes a byte of its own in the file. Files
// that point many objects at the same contents run into the limit and are refused.
constexpr std::uint64_t kBudgetPerByte = 10;
constexpr std::uint64_t kBudgetBase = 64 * 1024;
constexpr std::uint64_t kContentCost = 8;     // of a list element or a byte of text
constexpr std::uint64_t kFieldCost = 16;      // of a key and its value listed together
constexpr std::size_t kBytesPerCompare = 16;  // of a key; a step of a search costs 1

constexpr std::size_t kLongestLayout = 64;

}  // namespace

/// A dictionary being read. Keys are mostly asked for in the order in which they were written, so
/// each search starts where the last one ended.
struct KeyedUnarchiver::Record {
    Object dictionary;
    std::uint64_t cursor = 0;
    ArchivedClass* type = nullptr;
    std::size_t asked = 0;      ///< keys asked for so far, while the layout of the class holds
    unsigned layoutNumber = 0;  ///< the class's when reading began; 0 without a class
    DecodedSlot slotBefore{};   ///< what was known when a container was begun
};

KeyedUnarchiver::KeyedUnarchiver(PropertyListReader reader, std::size_t fileSize,
                                 const ArchiveClasses& classes)
    : reader_(reader), classes_(classes), budget_(kBudgetPerByte * fileSize + kBudgetBase) {}

// What the values refer to has left the processor's cache, and is fetched ahead again.
KeyedUnarchiver::~KeyedUnarchiver() {
    for (; !values_.empty(); values_.pop_front())
        if (values_.size() > kLookAhead) values_[kLookAhead].prefetchRecord();
}

Value KeyedUnarchiver::unarchiveData(std::span<const std::byte> data,
                                     const ArchiveClasses& classes) {
    auto reader = PropertyListReader::open(data);
    if (!reader) return {};
    KeyedUnarchiver unarchiver(*reader, data.size(), classes);
    return unarchiver.readRoot();
}

Value KeyedUnarchiver::unarchiveFile(const std::string& path, const ArchiveClasses& classes) {
    auto file = MappedFile::open(path);
    if (!file) return {};
    file->fetch();
    return unarchiveData(file->bytes(), classes);
}

bool KeyedUnarchiver::fail() {
    failed_ = true;
    return false;
}

bool KeyedUnarchiver::charge(std::uint64_t work) {
    if (failed_ || work > budget_) return fail();
    budget_ -= work;
    return true;
}

// Keys ------------------------------------------------------------------------------------------

// The number of the object under a key, where kNothing stands for a missing key.
inline std::uint64_t KeyedUnarchiver::findIn(Record& record, ArchiveKey key) {
    // A record inside this one may have changed what is known of the class.
    if (record.layoutNumber != 0 && record.layoutNumber == record.type->layoutNumber) {
        const auto& places = record.type->places;
        if (record.asked < places.size() && isSame(places[record.asked].first, key))
            return reader_.valueReference(record.dictionary, places[record.asked++].second);
    }
    return findSlowly(record, key);
}

std::uint64_t KeyedUnarchiver::findSlowly(Record& record, ArchiveKey key) {
    const std::uint64_t place = search(record, key.name());
    if (place == kNothing) return kNothing;
    if (record.layoutNumber != 0 && record.layoutNumber == record.type->layoutNumber &&
        record.asked == record.type->places.size() && record.asked < kLongestLayout) {
        record.type->places.emplace_back(key, place);
        ++record.asked;
    }
    return reader_.valueReference(record.dictionary, place);
}

std::uint64_t KeyedUnarchiver::search(Record& record, std::string_view key) {
    const std::uint64_t count = record.dictionary.count;
    if (!charge(key.size() / kBytesPerCompare)) return kNothing;
    for (std::uint64_t step = 0; step < count; ++step) {
        // The first step is free: it finds the key of every archive written in reading order.
        if (step > 0 && !charge(1)) return kNothing;
        if (record.cursor >= count) record.cursor = 0;
        const std::uint64_t place = record.cursor++;
        if (reader_.isText(reader_.reference(record.dictionary, place), key)) return place;
    }
    return kNothing;
}

void KeyedUnarchiver::recognizeLayout(Record& record) {
    const std::string_view layout = reader_.keyReferences(record.dictionary);
    ArchivedClass& type = *record.type;
    if (type.layoutNumber == 0 || layout != type.layout) {
        type.layout = layout;
        type.places.clear();
        ++type.layoutNumber;
    }
    record.layoutNumber = type.layoutNumber;
}

inline std::uint64_t KeyedUnarchiver::find(ArchiveKey key) {
    return record_ && !failed_ ? findIn(*record_, key) : kNothing;
}

// The slot that an object refers to. What is no reference to a slot is a fault.
inline KeyedUnarchiver::Slot KeyedUnarchiver::slotAt(std::uint64_t objectNumber) {
    const Slot slot = reader_.uid(objectNumber);
    if (slot < objects_.count) return slot;
    fail();
    return 0;
}

inline KeyedUnarchiver::Slot KeyedUnarchiver::slotUnder(Record& record, ArchiveKey key) {
    const std::uint64_t number = findIn(record, key);
    return number != kNothing ? slotAt(number) : 0;
}

inline KeyedUnarchiver::Slot KeyedUnarchiver::slotUnder(ArchiveKey key) {
    const std::uint64_t number = find(key);
    return number != kNothing ? slotAt(number) : 0;
}

inline const Value& KeyedUnarchiver::valueIn(Slot slot) {
    static const Value absent;
    if (failed_ || slot == 0) return absent;
    const Value* known = slots_[slot].value();
    return known ? *known : valueInNewSlot(slot);
}

// A number in place, or a number object that a writer stored as any other object.
Value KeyedUnarchiver::numberAt(std::uint64_t objectNumber) {
    const Object object = reader_.object(objectNumber);
    return object.kind == Kind::UID ? valueIn(slotAt(objectNumber)) : scalar(object);
}

// Frame -----------------------------------------------------------------------------------------

bool KeyedUnarchiver::readFrame() {
    Record top{reader_.object(reader_.topObject())};
    if (top.dictionary.kind != Kind::Dictionary) return false;
    const std::uint64_t version = findIn(top, archive::kVersionKey);
    std::int64_t versionNumber = archive::kVersion;
    if (version != kNothing && !reader_.readInteger(version, versionNumber)) return false;
    const std::uint64_t archiver = findIn(top, archive::kArchiverKey);
    if (archiver != kNothing && !reader_.isText(archiver, archive::kArchiverName)) return false;
    // A number that leads nowhere gives an object of no kind.
    Record roots{reader_.object(findIn(top, archive::kTopKey))};
    objects_ = reader_.object(findIn(top, archive::kObjectsKey));
    if (versionNumber != archive::kVersion) return false;
    if (roots.dictionary.kind != Kind::Dictionary || objects_.kind != Kind::Array) return false;
    // Texts are counted in 32 bits.
    if (reader_.objectCount() >= std::numeric_limits<std::uint32_t>::max()) return false;
    root_ = slotUnder(roots, archive::kRootKey);
    return !failed_;
}

Value KeyedUnarchiver::readRoot() {
    if (!readFrame()) return {};
    slots_.resize(objects_.count);
    textOfObject_.resize(reader_.objectCount());
    const Value& root = valueIn(root_);
    return failed_ ? Value() : root;
}

// For factories ---------------------------------------------------------------------------------

bool KeyedUnarchiver::decodeBool(ArchiveKey key) {
    const std::uint64_t number = find(key);
    std::int64_t integer = 0;
    if (number == kNothing || reader_.readInteger(number, integer)) return integer != 0;
    return numberAt(number).booleanValue();
}

std::int64_t KeyedUnarchiver::decodeInteger(ArchiveKey key) {
    const std::uint64_t number = find(key);
    std::int64_t integer = 0;
    if (number == kNothing || reader_.readInteger(number, integer)) return integer;
    return numberAt(number).integerValue();
}

double KeyedUnarchiver::decodeDouble(ArchiveKey key) {
    const std::uint64_t number = find(key);
    return number == kNothing ? 0 : numberAt(number).realValue();
}

SharedText KeyedUnarchiver::decodeText(ArchiveKey key) {
    return textIn(slotUnder(key));
}

std::optional<URL> KeyedUnarchiver::decodeURL(ArchiveKey key) {
    const std::uint64_t number = find(key);
    if (number == kNothing) return std::nullopt;
    const bool isKnown = number == filedUnder_.objectNumber && !failed_;
    const URL* url = (isKnown ? *filedUnder_.key : valueIn(slotAt(number))).url();
    return url ? std::optional(*url) : std::nullopt;
}

std::optional<EXDateOnly> KeyedUnarchiver::decodeDay(ArchiveKey key) {
    const EXDateOnly* day = valueIn(slotUnder(key)).day();
    return day ? std::optional(*day) : std::nullopt;
}

Value KeyedUnarchiver::decodeObject(ArchiveKey key) {
    return valueIn(slotUnder(key));
}

SharedText KeyedUnarchiver::className() const {
    return record_ && record_->type ? record_->type->name : SharedText();
}

std::vector<KeyedUnarchiver::Field> KeyedUnarchiver::decodeFields() {
    std::vector<Field> fields;
    if (!record_ || !charge(kFieldCost * record_->dictionary.count)) return fields;
    // A value's own factory may come back here, so the record is not looked up again.
    const Object dictionary = record_->dictionary;
    for (std::uint64_t i = 0; i < dictionary.count && !failed_; ++i) {
        const SharedText& key = textOf(reader_.reference(dictionary, i));
        if (key.view() == archive::kClassKey.name()) continue;
        auto [value, isInline] = fieldAt(reader_.valueReference(dictionary, i));
        fields.push_back({key, std::move(value), isInline});
    }
    return fields;
}

std::pair<Value, bool> KeyedUnarchiver::fieldAt(std::uint64_t objectNumber) {
    const Object object = reader_.object(objectNumber);
    if (object.kind == Kind::ASCII || object.kind == Kind::UTF16)
        return {textOf(objectNumber), true};
    if (object.kind != Kind::UID) return {scalar(object), true};
    return {valueIn(slotAt(objectNumber)), false};
}

// Objects ---------------------------------------------------------------------------------------

Value KeyedUnarchiver::scalar(const Object& object) {
    switch (object.kind) {
        case Kind::Boolean:
            return object.integer != 0;
        case Kind::Integer:
            return object.integer;
        case Kind::Real:
            if (object.integer != 0) return static_cast<std::uint64_t>(object.integer);
            return object.real;
        case Kind::Date:
            return instantFromReferenceSeconds(object.real);
        case Kind::Data: {
            if (!charge(kContentCost * object.count)) return {};
            auto* first = reinterpret_cast<const std::byte*>(object.payload);
            return Bytes(first, first + object.count);
        }
        default:
            fail();
            return {};
    }
}

const SharedText& KeyedUnarchiver::textOf(std::uint64_t objectNumber) {
    static const SharedText absent;
    if (objectNumber >= textOfObject_.size()) return fail(), absent;
    std::uint32_t& known = textOfObject_[objectNumber];
    if (known != 0) return texts_[known - 1];
    const Object object = reader_.object(objectNumber);
    if (!charge(kContentCost * object.count)) return absent;
    SharedText text = reader_.text(object, arena_.get());
    if (text.isAbsent()) return fail(), absent;
    known = static_cast<std::uint32_t>(texts_.size()) + 1;
    return texts_.emplace_back(std::move(text));
}

// The text in a slot; absent where it holds none. Plain texts are known by their object, so that
// they need no value of their own.
SharedText KeyedUnarchiver::textIn(Slot slot) {
    if (failed_ || slot == 0) return {};
    if (const SharedText* known = slots_[slot].text()) return *known;
    const std::uint64_t number = objectIn(slot);
    if (reader_.isAnyText(number)) {
        const SharedText& text = textOf(number);
        if (failed_ || text.view() == archive::kNullText) return {};
        if (slots_[slot].isNew()) slots_[slot] = DecodedSlot(text);
        return text;
    }
    const SharedText* text = valueIn(slot).sharedText();
    return text ? *text : SharedText();
}

const Value& KeyedUnarchiver::valueInNewSlot(Slot slot) {
    static const Value absent;
    if (slots_[slot].isInProgress() || ++depth_ > archive::kDeepestNesting) return fail(), absent;
    slots_[slot] = DecodedSlot::inProgress();
    Value value = decodeSlot(slot);
    --depth_;
    const Value& kept = values_.emplace_back(std::move(value));
    slots_[slot] = DecodedSlot(kept);
    return kept;
}

Value KeyedUnarchiver::decodeSlot(Slot slot) {
    const std::uint64_t number = objectIn(slot);
    const Object object = reader_.object(number);
    switch (object.kind) {
        case Kind::ASCII:
        case Kind::UTF16:
            return textIn(slot);
        case Kind::Dictionary: {
            Record record{object};
            return decodeRecord(record);
        }
        default:
            return scalar(object);
    }
}

Value KeyedUnarchiver::decodeRecord(Record& record) {
    record.type = classOf(record);
    if (!record.type) return {};
    // Within one class, records mostly lie alike; the class of any other record is not known well
    // enough for that.
    if (record.type->shape != Shape::Unknown) recognizeLayout(record);
    switch (record.type->shape) {
        case Shape::List:
            return nestedList(record);
        case Shape::Map:
            return nestedMap(record);
        case Shape::Text:
            return nestedText(record);
        case Shape::Data:
            return nestedData(record);
        case Shape::URL:
            return nestedURL(record);
        case Shape::Date:
            return nestedDate(record);
        case Shape::Day:
            return nestedDay(record);
        case Shape::Null:
            return {};
        case Shape::Made:
        case Shape::Unknown:
            break;
    }
    if (!record.type->factory) return fail(), Value();
    Record* outer = std::exchange(record_, &record);
    Value made = (*record.type->factory)(*this);
    record_ = outer;
    return made;
}

// Classes ---------------------------------------------------------------------------------------

ArchivedClass* KeyedUnarchiver::classOf(Record& record) {
    const std::uint64_t count = record.dictionary.count;
    Slot slot = 0;
    // Most writers put the class last, some first; the search wraps around to the others.
    if (count > 0 && reader_.reference(record.dictionary, count - 1) == classKey_) {
        slot = slotAt(reader_.valueReference(record.dictionary, count - 1));
    } else if (count > 0) {
        record.cursor = count - 1;
        const std::uint64_t place = search(record, archive::kClassKey.name());
        record.cursor = 0;
        if (place == kNothing) return fail(), nullptr;
        classKey_ = reader_.reference(record.dictionary, place);
        slot = slotAt(reader_.valueReference(record.dictionary, place));
    }
    if (slot == 0) return fail(), nullptr;
    auto& recent = recentClasses_[slot % recentClasses_.size()];
    if (recent.second && recent.first == slot) return recent.second;
    auto [entry, isNew] = classOfSlot_.try_emplace(slot);
    if (isNew) entry->second = readClass(slot);
    ArchivedClass* type = entry->second.get();
    if (!type) fail();
    recent = {slot, type};
    return type;
}

std::unique_ptr<ArchivedClass> KeyedUnarchiver::readClass(Slot slot) {
    Record description{reader_.object(objectIn(slot))};
    if (description.dictionary.kind != Kind::Dictionary) return nullptr;
    std::vector<SharedText> names;
    const std::uint64_t name = findIn(description, archive::kClassNameKey);
    if (name != kNothing) names.push_back(textOf(name));
    const std::uint64_t ancestors = findIn(description, archive::kClassesKey);
    if (ancestors != kNothing) {
        const Object chain = reader_.object(ancestors);
        if (chain.kind != Kind::Array || !charge(kContentCost * chain.count)) return nullptr;
        for (std::uint64_t i = 0; i < chain.count && !failed_; ++i)
            names.push_back(textOf(reader_.reference(chain, i)));
    }
    if (names.empty() || failed_) return nullptr;

    auto type = std::make_unique<ArchivedClass>();
    type->name = names.front();
    for (const SharedText& candidate : names)
        if (type->shape == Shape::Unknown) type->recognize(candidate.view(), classes_);
    if (type->shape == Shape::Unknown) type->factory = classes_.fallback();
    return type;
}

// Objects of the built-in classes ---------------------------------------------------------------

Value KeyedUnarchiver::nestedText(Record& record) {
    const std::uint64_t number = findIn(record, archive::kTextKey);
    if (reader_.uid(number) == PropertyListReader::kNoUID) return textOf(number);
    const Value& text = valueIn(slotAt(number));
    if (!text.text()) fail();
    return text;
}

Value KeyedUnarchiver::nestedData(Record& record) {
    Value data = numberAt(findIn(record, archive::kDataKey));
    if (!data.data()) fail();
    return data;
}

Value KeyedUnarchiver::nestedURL(Record& record) {
    const URL* base = valueIn(slotUnder(record, archive::kURLBaseKey)).url();
    SharedText relative = textIn(slotUnder(record, archive::kURLRelativeKey));
    if (failed_ || relative.isAbsent()) return fail(), Value();
    if (!base) return URL(std::move(relative));
    // Resolving makes a new text, while one base and one relative text can stand in many URLs.
    if (!charge(kContentCost * (base->absoluteString().size() + relative.view().size()))) return {};
    return URL::resolving(relative.view(), *base);
}

Value KeyedUnarchiver::nestedDate(Record& record) {
    return instantFromReferenceSeconds(numberAt(findIn(record, archive::kDateKey)).realValue());
}

Value KeyedUnarchiver::nestedDay(Record& record) {
    const std::uint64_t packed = findIn(record, EXDateOnly::kEncodedValueKey);
    return EXDateOnly::withIntegerValue(packed != kNothing ? numberAt(packed).integerValue() : 0);
}

void KeyedUnarchiver::prefetchSlots(const Object& list, std::uint64_t current) const {
    const auto ahead = [&](unsigned steps) {
        const std::uint64_t i = current + steps * kLookAhead;
        return i < list.count ? reader_.reference(list, i) : kNothing;
    };
    reader_.prefetchPlace(ahead(3));
    reader_.prefetchObject(ahead(2));
    const Slot slot = reader_.uid(ahead(1));
    if (slot < objects_.count) platform::prefetch(&slots_[slot]);
}

// The list under a key, whose elements are slots.
KeyedUnarchiver::Object KeyedUnarchiver::listIn(Record& record, ArchiveKey key) {
    const Object list = reader_.object(findIn(record, key));
    if (list.kind != Kind::Array || !charge(kContentCost * list.count)) fail();
    return list;
}

inline const Value& KeyedUnarchiver::itemIn(const Object& list, std::uint64_t i) {
    const Slot slot = slotAt(reader_.reference(list, i));
    if (slot == 0) fail();
    return valueIn(slot);
}

std::optional<KeyedUnarchiver::Items> KeyedUnarchiver::nestedItems(Record& record) {
    const Object list = listIn(record, archive::kItemsKey);
    if (failed_) return std::nullopt;
    Items items;
    items.reserve(list.count);
    for (std::uint64_t i = 0; i < list.count; ++i) {
        prefetchSlots(list, i);
        items.push_back(&itemIn(list, i));
        if (failed_) return std::nullopt;
    }
    return items;
}

std::optional<KeyedUnarchiver::Entries> KeyedUnarchiver::nestedEntries(Record& record) {
    const Object keys = listIn(record, archive::kKeysKey);
    const Object items = listIn(record, archive::kItemsKey);
    if (failed_ || keys.count != items.count) return fail(), std::nullopt;
    Entries entries;
    entries.keys.reserve(keys.count);
    for (std::uint64_t i = 0; i < keys.count && !failed_; ++i) {
        prefetchSlots(keys, i);
        entries.keys.push_back(&itemIn(keys, i));
    }
    entries.items.reserve(items.count);
    for (std::uint64_t i = 0; i < items.count && !failed_; ++i) {
        prefetchContent(entries.keys, i);
        filedUnder_ = {reader_.reference(keys, i), entries.keys[i]};
        entries.items.push_back(&itemIn(items, i));
    }
    filedUnder_ = {};
    return failed_ ? std::nullopt : std::optional(std::move(entries));
}

Value KeyedUnarchiver::nestedList(Record& record) {
    auto items = nestedItems(record);
    if (!items) return {};
    ValueList list{{}, record.type->growable};
    list.items.reserve(items->size());
    for (const Value* item : *items)
        list.items.push_back(*item);
    return list;
}

Value KeyedUnarchiver::nestedMap(Record& record) {
    auto entries = nestedEntries(record);
    if (!entries) return {};
    ValueMap map{{}, record.type->growable};
    for (std::size_t i = 0; i < entries->keys.size(); ++i)
        map.items.insert_or_assign(map.items.end(), *entries->keys[i], *entries->items[i]);
    return map;
}

// Records' own containers are read straight into their fields, without being boxed as values. This
// says whether the slot holds one of the wanted kind, and notes that it is being read.
bool KeyedUnarchiver::beginContainer(Slot slot, Record& record, bool wantsMap) {
    if (slot == 0) return false;
    record.dictionary = reader_.object(objectIn(slot));
    if (record.dictionary.kind == Kind::Dictionary) record.type = classOf(record);
    const Shape wanted = wantsMap ? Shape::Map : Shape::List;
    if (!record.type || record.type->shape != wanted) {
        valueIn(slot);  // for its faults: what it holds is not wanted here
        return false;
    }
    if (slots_[slot].isInProgress() || depth_ >= archive::kDeepestNesting) return fail();
    record.slotBefore = std::exchange(slots_[slot], DecodedSlot::inProgress());
    ++depth_;
    recognizeLayout(record);
    return true;
}

void KeyedUnarchiver::endContainer(Slot slot, const Record& record) {
    slots_[slot] = record.slotBefore;
    --depth_;
}

std::optional<KeyedUnarchiver::Items> KeyedUnarchiver::decodeItems(ArchiveKey key) {
    const Slot slot = slotUnder(key);
    // Writers share one empty list between all that have one.
    if (slot != 0 && slot == emptyList_) return Items();
    Record record;
    if (!beginContainer(slot, record, false)) return std::nullopt;
    auto items = nestedItems(record);
    endContainer(slot, record);
    if (items && items->empty()) emptyList_ = slot;
    return items;
}

std::optional<KeyedUnarchiver::Entries> KeyedUnarchiver::decodeEntries(ArchiveKey key) {
    const Slot slot = slotUnder(key);
    Record record;
    if (!beginContainer(slot, record, true)) return std::nullopt;
    auto entries = nestedEntries(record);
    endContainer(slot, record);
    return entries;
}

}  // namespace corvane::platform
