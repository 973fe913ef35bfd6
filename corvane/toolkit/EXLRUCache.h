// A small bounded cache that forgets the pair that was longest not used. Its owner keeps it on one
// thread.
#pragma once

#include "corvane/toolkit/EXLRUCacheItem.h"

#include <cstdint>
#include <list>
#include <optional>
#include <unordered_map>
#include <utility>

namespace corvane {

/// Objects come out as copies. Keys need equality and std::hash.
///
///     EXLRUCache<std::string, int> cache(2);
///     cache.addObject(1, "a");
///     cache.addObject(2, "b");
///     cache.objectForKey("a")          // 1
///     cache.addObject(3, "c");
///     cache.objectForKey("b")          // none: the longest not used
template <class Key, class Object>
class EXLRUCache {
  public:
    /// A full cache is one that holds exactly that many pairs: one of size 0 or less never is, and
    /// grows without end.
    explicit EXLRUCache(std::int64_t size) : size_(size) {}
    EXLRUCache(const EXLRUCache&) = delete;
    EXLRUCache& operator=(const EXLRUCache&) = delete;

    std::int64_t size() const { return size_; }

    /// The pair becomes the last used one. A former pair of the key is not looked for: it counts
    /// against the size until its turn to be forgotten comes, and takes the newer one along. Remove
    /// the key first where that matters.
    void addObject(Object object, Key key) {
        if (isFull()) forgetLast();
        items_.emplace_front(std::move(object), key);
        itemsByKeys_.insert_or_assign(std::move(key), items_.begin());
    }

    /// A copy, and the pair becomes the last used one; none for an unknown key.
    std::optional<Object> objectForKey(const Key& key) {
        const auto found = itemsByKeys_.find(key);
        if (found == itemsByKeys_.end()) return std::nullopt;
        items_.splice(items_.begin(), items_, found->second);
        return found->second->object();
    }

    /// Nothing for an unknown key.
    void removeObjectWithKey(const Key& key) {
        const auto found = itemsByKeys_.find(key);
        if (found == itemsByKeys_.end()) return;
        const auto item = found->second;
        itemsByKeys_.erase(found);
        items_.erase(item);
    }

  private:
    using Items = std::list<EXLRUCacheItem<Key, Object>>;

    bool isFull() const {
        return !items_.empty() && static_cast<std::int64_t>(items_.size()) == size_;
    }

    void forgetLast() {
        itemsByKeys_.erase(items_.back().key());
        items_.pop_back();
    }

    const std::int64_t size_;
    Items items_;  ///< the last used one first
    std::unordered_map<Key, typename Items::iterator> itemsByKeys_;
};

}  // namespace corvane
