#include "corvane/bridge/HGImportExtensionHandler.h"

#include "corvane/bridge/BackupFileType.h"
#include "corvane/bridge/HGSharedContainer.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/FileCopy.h"
#include "corvane/platform/Files.h"

#include <fmt/format.h>

#include <utility>

namespace corvane {

namespace {

using platform::URL;
using platform::Value;

std::string description(const Value& item) {
    if (item.isNull()) return "(null)";
    if (auto* url = item.url()) return std::string(url->absoluteString());
    if (auto text = item.text()) return std::string(*text);
    return "(neither a URL nor a text)";
}

bool handOver(const URL& document, const std::optional<URL>& target) {
    const auto from = document.path();
    const auto to = target ? target->path() : std::nullopt;
    if (!to) return false;
    const bool copied = from && !platform::copyFile(*from, *to, platform::Durability::Synced);
    // An earlier document must not be taken for this one. It goes only now, so that there is one
    // of the two at any time.
    if (!copied) (void)platform::removeFile(*to);
    return copied;
}

void importItem(const Value& item, const HGImportExtensionHandler::Completion& completion) {
    platform::Console& console = platform::currentConsole();
    console.writeLine(fmt::format("### COMPLETION: Loaded item {}", description(item)));
    const URL* document = item.url();
    if (!document) return;
    const auto target = HGSharedContainer::defaultContainer().importedBackupFileURL();
    console.writeLine(
        fmt::format("==> INFO: Shared url = '{}'", target ? target->absoluteString() : "(null)"));
    const bool success = handOver(*document, target);
    if (completion) completion(success);
}

}  // namespace

void HGImportExtensionHandler::importWithExtensionContext(const platform::ExtensionContext& context,
                                                          Completion completion) const {
    // Whoever shares more than one document, or names its type wrongly, is told so, but what can be
    // imported is imported: the checks report and do not stop.
    auto check = [&](bool truth) {
        if (!truth && completion) completion(false);
    };
    check(context.inputItems.size() == 1);
    const auto& attachments = context.inputItems.at(0).attachments;
    check(attachments.size() == 1);
    const auto attachment = attachments.at(0);
    check(attachment->hasItemConformingToTypeIdentifier(HGCorvaneBackupManagerFileUTI));
    attachment->loadItemForTypeIdentifier(
        HGCorvaneBackupManagerFileUTI,
        [completion = std::move(completion)](const Value& item, const auto&) {
            importItem(item, completion);
        });
}

}  // namespace corvane
