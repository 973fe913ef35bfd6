// One pair of a cache. Both are copies, and never change.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace corvane {

template <class T>
inline constexpr bool kIsSharedMutable = false;
template <class T>
inline constexpr bool kIsSharedMutable<T*> = !std::is_const_v<T>;
template <class T>
inline constexpr bool kIsSharedMutable<std::shared_ptr<T>> = !std::is_const_v<T>;

template <class Key, class Object>
class EXLRUCacheItem {
    static_assert(!kIsSharedMutable<Key> && !kIsSharedMutable<Object>,
                  "a copied pointer would let others change what the cache holds");

  public:
    EXLRUCacheItem(Object object, Key key) : key_(std::move(key)), object_(std::move(object)) {}

    const Key& key() const { return key_; }
    const Object& object() const { return object_; }

  private:
    Key key_;
    Object object_;
};

}  // namespace corvane
