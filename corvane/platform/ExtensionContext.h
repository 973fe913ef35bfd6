// What another program shares with an extension of this one: items with attachments, each of which
// is loaded when it is asked for. Made by whoever hosts the extension.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/Value.h"

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// One attachment. Types are named by type identifiers such as "org.corvane.backup".
class ItemProvider {
  public:
    /// Gets the loaded item, mostly a URL, or null and the reason.
    using LoadHandler = std::function<void(const Value& item, const std::optional<Error>& error)>;

    virtual ~ItemProvider() = default;

    virtual bool hasItemConformingToTypeIdentifier(std::string_view typeIdentifier) const = 0;

    /// Calls the handler once, on any thread, before or after this returns. The caller need not
    /// keep anything for it, the provider included.
    virtual void loadItemForTypeIdentifier(std::string_view typeIdentifier,
                                           LoadHandler handler) = 0;
};

struct ExtensionItem {
    std::vector<std::shared_ptr<ItemProvider>> attachments;  ///< None is null.
};

struct ExtensionContext {
    std::vector<ExtensionItem> inputItems;
};

}  // namespace corvane::platform
