// Writes a backup document, so that reading it gives an equal one. Functions without state; any
// thread.
#pragma once

#include "corvane/platform/ByteSink.h"
#include "corvane/platform/Error.h"

#include "apps/document/BackupDocument.h"

#include <optional>

namespace corvane::backup {

/// Whether the sink has taken the whole document. An error tells what of the document cannot be
/// written: a text that is not UTF-8, a day or time whose ISO text means another or none, more than
/// a reader takes. The error's place stays empty where the sink refused.
bool writeBackupDocument(const BackupDocument& document, platform::ByteSink& sink,
                         std::optional<platform::Error>& error);

}  // namespace corvane::backup
