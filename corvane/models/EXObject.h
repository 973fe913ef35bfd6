// What models list and edit: any shared object, without a base class that it would have to have.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace corvane {

/// A handle that keeps its object alive and knows nothing of it but its identity and its class. Two
/// handles are equal when they lead to one object, whatever it contains. Records, files, and parts
/// of a larger value alike: a part shares the ownership of the whole. Handles may be copied on any
/// thread; on which the object may be used is its own matter.
///
///     auto task = std::make_shared<HGTaskProxy>();
///     EXObject object = task;
///     object.as<HGTaskProxy>()        // task
///     object.as<HGProjectProxy>()     // null
///     object == EXObject(task)        // true
///     EXObject(std::shared_ptr<backup::Task>(document, &document->tasks[3]))
class EXObject {
  public:
    /// No object.
    EXObject() = default;
    EXObject(std::nullptr_t) {}

    template <class T>
    EXObject(std::shared_ptr<T> object) {
        if (!object) return;
        using Object = std::remove_const_t<T>;
        if constexpr (std::is_polymorphic_v<T>) {
            // By whichever of its bases an object comes, it is the same one.
            class_ = &typeid(*object);
            auto* whole = dynamic_cast<const void*>(object.get());
            object_ = std::shared_ptr<void>(std::move(object), const_cast<void*>(whole));
        } else {
            class_ = &typeid(Object);
            object_ = std::const_pointer_cast<Object>(std::move(object));
        }
    }

    /// The object as what it is; null where it is of another class, one that derives from T too.
    template <class T>
    std::shared_ptr<T> as() const {
        if (!class_ || *class_ != typeid(T)) return nullptr;
        return std::static_pointer_cast<T>(object_);
    }

    explicit operator bool() const { return object_ != nullptr; }
    const void* identity() const { return object_.get(); }

    friend bool operator==(const EXObject& a, const EXObject& b) {
        return a.identity() == b.identity();
    }

  private:
    std::shared_ptr<void> object_;
    const std::type_info* class_ = nullptr;
};

}  // namespace corvane

template <>
struct std::hash<corvane::EXObject> {
    std::size_t operator()(const corvane::EXObject& object) const noexcept {
        return std::hash<const void*>()(object.identity());
    }
};
