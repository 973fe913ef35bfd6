// A file as an attachment that is shared with an extension.
#pragma once

#include "corvane/platform/ExtensionContext.h"
#include "corvane/platform/SerialQueue.h"

#include <functional>
#include <map>
#include <string>

namespace corvane::platform {

/// Type identifiers by file name extension, which is in lower case and without its dot.
using TypesByExtension = std::map<std::string, std::string, std::less<>>;

/// The item is the file's URL. Loading finds out on a thread of its own whether there is a regular
/// file that can be read; destroying the provider waits for it. The file's extension alone decides
/// about its type, in any letter case.
class FileItemProvider final : public ItemProvider {
  public:
    FileItemProvider(URL file, const TypesByExtension& types);

    bool hasItemConformingToTypeIdentifier(std::string_view typeIdentifier) const override;
    void loadItemForTypeIdentifier(std::string_view typeIdentifier, LoadHandler handler) override;

  private:
    URL file_;
    std::string typeIdentifier_;  ///< Empty where the extension is unknown.
    SerialQueue loads_{"item-loads"};
};

}  // namespace corvane::platform
