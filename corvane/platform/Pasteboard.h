// What is cut, copied and dragged: items, each in several typed forms.
#pragma once

#include "corvane/platform/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::platform {

/// Types that every program knows.
inline constexpr std::string_view kPasteboardTypeString = "public.utf8-plain-text";
inline constexpr std::string_view kPasteboardTypeURL = "public.url";
inline constexpr std::string_view kPasteboardTypeURLName = "public.url-name";

/// One thing in several forms, in the order of preference of whoever put it there. A value.
class PasteboardItem {
  public:
    /// Replaces what is there under the type, in its place. A null value is not kept.
    void setValue(std::string_view type, Value value);

    /// Null when the item has no such type. Texts are texts, everything else is bytes.
    const Value& valueForType(std::string_view type) const;
    std::optional<std::string> textForType(std::string_view type) const;
    bool hasType(std::string_view type) const { return !valueForType(type).isNull(); }
    std::vector<std::string> types() const;

    bool isEmpty() const { return forms_.empty(); }

  private:
    std::vector<std::pair<std::string, Value>> forms_;
};

/// What can be put on a pasteboard as one item.
class PasteboardWriting {
  public:
    virtual ~PasteboardWriting() = default;
    virtual std::vector<std::string> writableTypes() const = 0;
    /// Null where the object has nothing of the type.
    virtual Value pasteboardValueForType(std::string_view type) const = 0;

    PasteboardItem pasteboardItem() const;
};

/// In process; a widget toolkit connects it to the desktop's clipboard and drags. A value, for one
/// thread at a time.
class Pasteboard {
  public:
    void clear() { items_.clear(); }
    void addItem(PasteboardItem item) { items_.push_back(std::move(item)); }
    void writeObject(const PasteboardWriting& object) { addItem(object.pasteboardItem()); }

    const std::vector<PasteboardItem>& items() const { return items_; }
    bool hasType(std::string_view type) const;

    /// The texts of every item that has the type, in order.
    std::vector<std::string> textsForType(std::string_view type) const;

  private:
    std::vector<PasteboardItem> items_;
};

}  // namespace corvane::platform
