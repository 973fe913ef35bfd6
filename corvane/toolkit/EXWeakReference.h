// A reference that does not keep its object alive, with the identity of that object: for lists and
// hashed maps of objects that others own. Any thread.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace corvane {

/// Two references are equal while they lead to one object, and when the objects of both are gone.
/// As a key of a hashed map: once the object is gone the hash is 0, and the entry is no longer
/// found by its key; walk over the map and erase by iterator.
///
///     auto token = std::make_shared<Token>();
///     EXWeakReference reference(token);
///     reference.object()                          // token
///     reference == EXWeakReference(token)         // true
///     token = nullptr;
///     reference.object()                          // null
///     reference == EXWeakReference<Token>()       // true
template <class T>
class EXWeakReference {
  public:
    /// Leads to nothing.
    EXWeakReference() = default;

    explicit EXWeakReference(const std::shared_ptr<T>& object) : object_(object) {}

    static EXWeakReference weakReferenceWithObject(const std::shared_ptr<T>& object) {
        return EXWeakReference(object);
    }

    /// Null once the object is gone.
    std::shared_ptr<T> object() const { return object_.lock(); }

    /// By the object's address; 0 once it is gone.
    std::size_t hash() const {
        const auto object = this->object();
        return object ? std::hash<const void*>{}(address(object.get())) : 0;
    }

    /// A base of an object is that object.
    template <class U>
    bool isEqual(const EXWeakReference<U>& other) const {
        const auto mine = object();
        const auto others = other.object();
        return address(mine.get()) == address(others.get());
    }
    template <class U>
    friend bool operator==(const EXWeakReference& a, const EXWeakReference<U>& b) {
        return a.isEqual(b);
    }

  private:
    template <class U>
    static const void* address(const U* object) {
        if constexpr (std::is_polymorphic_v<U>)
            return dynamic_cast<const void*>(object);
        else
            return object;
    }

    std::weak_ptr<T> object_;
};

}  // namespace corvane

template <class T>
struct std::hash<corvane::EXWeakReference<T>> {
    // Not noexcept: that makes containers keep each entry's hash instead of asking for it again,
    // when it may have become 0.
    std::size_t operator()(const corvane::EXWeakReference<T>& reference) const {
        return reference.hash();
    }
};
