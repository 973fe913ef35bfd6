// A two-way map: objects by key and keys by object. A plain container of its owner, not locked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace corvane {

/// A regular value if keys and objects are; both need equality and std::hash.
///
///     EXBimap<int, std::string> weekdays;
///     weekdays.setObject("Sunday", 1);
///     weekdays.objectForKey(1)                 // "Sunday"
///     weekdays.keyForObject("Sunday")          // 1
///     weekdays.setObject("Sun", 1);
///     weekdays.objectForKey(1)                 // "Sun"
///     weekdays.keyForObject("Sunday")          // 1, still
template <class Key, class Object>
class EXBimap {
  public:
    /// The number of keys.
    std::size_t count() const { return keyMap_.size(); }

    std::optional<Object> objectForKey(const Key& key) const { return find(keyMap_, key); }
    std::optional<Key> keyForObject(const Object& object) const { return find(objectMap_, object); }

    /// What the key's former object and the object's former key lead to stays: old names keep being
    /// understood.
    void setObject(const Object& object, const Key& key) {
        keyMap_.insert_or_assign(key, object);
        objectMap_.insert_or_assign(object, key);
    }

    /// Removes the key and its object; nothing for an unknown key.
    void removeObjectforKey(const Key& key) {
        const auto entry = keyMap_.find(key);
        if (entry == keyMap_.end()) return;
        objectMap_.erase(entry->second);
        keyMap_.erase(entry);
    }

    void removeAllObjects() {
        keyMap_.clear();
        objectMap_.clear();
    }

    friend bool operator==(const EXBimap&, const EXBimap&) = default;

  private:
    template <class From, class To>
    static std::optional<To> find(const std::unordered_map<From, To>& map, const From& from) {
        const auto entry = map.find(from);
        return entry == map.end() ? std::nullopt : std::optional(entry->second);
    }

    std::unordered_map<Key, Object> keyMap_;
    std::unordered_map<Object, Key> objectMap_;
};

}  // namespace corvane
