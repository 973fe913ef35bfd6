// The import extension's work: a backup document that the user shares from another program is
// handed over to the main application through the shared container.
#pragma once

#include "corvane/platform/ExtensionContext.h"

#include <functional>

namespace corvane {

/// Has no state; any thread.
///
///     // a file as the attachment; destroying it waits for the import
///     auto file = std::make_shared<platform::FileItemProvider>(
///         url, platform::TypesByExtension{{"cvbx", "org.corvane.backup"}});
///     HGImportExtensionHandler().importWithExtensionContext({{{{file}}}}, [](bool success) {});
class HGImportExtensionHandler {
  public:
    using Completion = std::function<void(bool success)>;

    /// Loads the context's one attachment of the type HGCorvaneBackupManagerFileUTI and makes it
    /// the container's imported backup, in place of any earlier one: on the disk before success is
    /// reported, and for no reader ever half a document. Where the copy fails, there is none. The
    /// completion may be empty.
    ///
    /// Returns at once. The rest runs on the provider's thread, with two lines on the console.
    ///
    /// A context that is not one item with one attachment of that type is reported as false, and
    /// the import goes on with the first attachment all the same, so that the completion may be
    /// called again with the copy's result: the first answer counts. It is not called at all (or
    /// not again) for an attachment that loads as anything but a URL.
    ///
    /// Throws std::out_of_range, after it has called the completion, for a context without items
    /// or a first item without attachments.
    void importWithExtensionContext(const platform::ExtensionContext& context,
                                    Completion completion) const;
};

}  // namespace corvane
