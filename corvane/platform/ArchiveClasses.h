// The table by which an unarchiver finds out how to make objects of the classes a file names.
#pragma once

#include "corvane/platform/Arena.h"
#include "corvane/platform/Value.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::platform {

class KeyedUnarchiver;

/// A plain value: fill one, keep it const, share it between threads and unarchivers. Texts, lists,
/// maps, URLs, date-times, days, bytes and numbers need no entry.
class ArchiveClasses {
  public:
    /// Makes an object from the record the coder stands at. It may read any keys, in any order
    /// (archive order is fastest), and must not keep the coder.
    using Factory = std::function<Value(KeyedUnarchiver& coder)>;

    ArchiveClasses& add(std::string className, Factory factory) {
        factories_[std::move(className)] = std::move(factory);
        return *this;
    }

    /// Registers T under T::kArchiveClassName, made with T(KeyedUnarchiver&) among all that the
    /// archive decodes to. Whoever calls this must have included KeyedUnarchiver.h.
    template <class T>
    ArchiveClasses& add() {
        return add(std::string(T::kArchiveClassName), [](auto& coder) {
            return Value(std::allocate_shared<T>(ArenaAllocator<T>(coder.arena()), coder));
        });
    }

    /// Serves every class without an entry of its own. Without one, such a class makes the whole
    /// archive unreadable, as does a file that needs a class this version does not have.
    ArchiveClasses& addFallback(Factory factory) {
        fallback_ = std::move(factory);
        return *this;
    }

    /// The class's factory; null when it has none.
    const Factory* find(std::string_view className) const {
        auto entry = factories_.find(className);
        return entry == factories_.end() ? nullptr : &entry->second;
    }

    /// Null when none was added.
    const Factory* fallback() const { return fallback_ ? &fallback_ : nullptr; }

  private:
    std::map<std::string, Factory, std::less<>> factories_;
    Factory fallback_;
};

}  // namespace corvane::platform
