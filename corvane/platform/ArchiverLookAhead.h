// Fetches what a keyed archiver will write next while it is still writing something else.
#pragma once

#include "corvane/platform/AddressTable.h"
#include "corvane/platform/Prefetch.h"
#include "corvane/platform/PropertyListWriter.h"
#include "corvane/platform/SharedText.h"
#include "corvane/platform/URL.h"
#include "corvane/platform/Value.h"

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace corvane::platform {

/// Large containers have their elements all over memory, from where they take longer than the
/// writing itself. First the elements themselves are fetched, then what they refer to, then the
/// places in the tables where all of that is known. For one thread; holds nothing.
class ArchiverLookAhead {
  public:
    ArchiverLookAhead(const AddressTable& objects, const PropertyListWriter& writer)
        : objects_(objects), writer_(writer) {}

    /// Calls `use` with each element of a list or map, in order.
    template <class Container, class Use>
    void forEach(const Container& container, Use use) const {
        std::array<decltype(&*container.begin()), kFar> window;  // stepping through maps is slow
        std::size_t entered = 0;
        auto next = container.begin();
        const auto enter = [&] {
            if (next == container.end()) return;
            window[entered++ % kFar] = &*next;
            fetchItem(*next++);
        };
        while (entered < kFar && next != container.end())
            enter();
        for (std::size_t i = 0; i < entered; ++i) {
            if (i + kHalfway < entered) fetchContent(*window[(i + kHalfway) % kFar]);
            if (i + kNear < entered) fetchPlaces(*window[(i + kNear) % kFar]);
            use(*window[i % kFar]);
            enter();
        }
    }

  private:
    static constexpr std::size_t kFar = 8;
    static constexpr std::size_t kHalfway = 5;
    static constexpr std::size_t kNear = 3;

    void fetchItem(const Value&) const {}
    void fetchContent(const Value&) const {}
    void fetchPlaces(const Value&) const {}

    void fetchItem(const URL& url) const { fetchText(url.sharedText()); }
    void fetchContent(const URL& url) const { objects_.prefetch(url.sharedText().identity()); }
    void fetchPlaces(const URL& url) const { writer_.prefetchText(url.absoluteString()); }

    template <class T>
    void fetchItem(const std::shared_ptr<T>& object) const {
        if (object) prefetch(object.get(), sizeof(T));
    }
    template <class T>
    void fetchContent(const std::shared_ptr<T>& object) const {
        objects_.prefetch(object.get());
        forEachOwnText(object.get(), fetchText);
    }
    template <class T>
    void fetchPlaces(const std::shared_ptr<T>& object) const {
        forEachOwnText(object.get(),
                       [this](const SharedText& text) { writer_.prefetchText(text.view()); });
    }

    template <class Key, class T>
    void fetchItem(const std::pair<const Key, T>& entry) const {
        fetchItem(entry.first);
        fetchItem(entry.second);
    }
    template <class Key, class T>
    void fetchContent(const std::pair<const Key, T>& entry) const {
        fetchContent(entry.first);
        fetchContent(entry.second);
    }
    template <class Key, class T>
    void fetchPlaces(const std::pair<const Key, T>& entry) const {
        fetchPlaces(entry.first);
        fetchPlaces(entry.second);
    }

    /// Records that have texts of their own say which: ownTexts().
    template <class T, class Use>
    static void forEachOwnText(const T* object, Use use) {
        if constexpr (requires { object->ownTexts(); }) {
            if (!object) return;
            for (const SharedText* text : object->ownTexts())
                if (!text->isAbsent()) use(*text);
        }
    }

    static void fetchText(const SharedText& text) {
        constexpr std::size_t kMost = 192;  // its size is not known before it has come
        if (!text.isAbsent()) prefetch(text.identity(), kMost);
    }

    const AddressTable& objects_;
    const PropertyListWriter& writer_;
};

}  // namespace corvane::platform
