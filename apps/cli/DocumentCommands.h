// The program's commands for documents. Each does its work and prints its result; where it cannot,
// it throws a Failure.
#pragma once

#include "apps/cli/Commands.h"
#include "apps/cli/SchemeURL.h"

#include <optional>
#include <string>

namespace corvane::cli {

// As the main application.

/// Either file may be a list or a document. An OUT that is there is replaced only if asked for.
void runConvert(const std::string& in, const std::string& out, bool replaces);

/// Changes a document and publishes it again, if there is a container.
void runComplete(const std::string& file, const std::string& uri);
void runSet(const std::string& file, const std::string& uri, const std::string& field,
            const std::string& value);

/// The form of a task; "new" in the place of a URI is a task that is to be added.
struct DetailQuestion {
    std::string file;
    std::string uri;
    std::optional<std::string> field;  ///< to be set, with the value
    std::optional<std::string> value;
};
void runDetail(const DetailQuestion& question, Format format);

/// To a dated file in the directory for temporary files where no other is named.
void runExportCSV(const std::string& file, const std::optional<std::string>& out);

void runOpen(const SchemeRequest& request, Format format);

/// Takes the document that was handed over. A file that is there is replaced only if asked for.
void runRestore(const std::string& file, bool replaces);

// As a companion.

/// Hands a document over to the main application.
void runImport(const std::string& file);

/// The watch's side, with the phone's side answering. `into` names the watch's own container.
void runWatchRequest(View view, const std::optional<std::string>& into, Format format);
void runWatchComplete(const std::string& file, const std::string& uri);

}  // namespace corvane::cli
