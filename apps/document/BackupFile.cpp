#include "apps/document/BackupFile.h"

#include "corvane/bridge/BackupFileType.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/MappedFile.h"

#include "apps/document/BackupReader.h"
#include "apps/document/BackupWriter.h"

#include <cerrno>
#include <variant>

namespace corvane::backup {

namespace {

using platform::Error;

class TextSink final : public platform::ByteSink {
  public:
    bool write(std::span<const std::byte> piece) override {
        text.append(reinterpret_cast<const char*>(piece.data()), piece.size());
        return true;
    }
    std::string text;
};

}  // namespace

bool isBackupPath(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot != path.npos && dot > 0 && path[dot - 1] != '/' &&
           path.substr(dot + 1) == HGCorvaneBackupManagerFileExtension;
}

std::optional<BackupDocument> loadBackupDocument(const std::string& path, Error* error) {
    const auto file = platform::MappedFile::open(path, error);
    if (!file) return std::nullopt;
    const auto bytes = file->bytes();
    return parseBackupDocument({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, path,
                               error);
}

std::optional<BackupDocument> parseBackupDocument(std::string_view content, const std::string& name,
                                                  Error* error) {
    auto result = readBackupDocument(content);
    if (auto* document = std::get_if<BackupDocument>(&result)) return std::move(*document);
    if (error) *error = {"backup", EINVAL, name + ":" + std::get<Problem>(result).text()};
    return std::nullopt;
}

std::optional<std::string> textOfBackupDocument(const BackupDocument& document, Error* error) {
    TextSink sink;
    std::optional<Error> problem;
    if (writeBackupDocument(document, sink, problem)) return std::move(sink.text);
    if (error && problem) *error = std::move(*problem);
    return std::nullopt;
}

std::optional<Error> saveBackupDocument(const BackupDocument& document, const std::string& path) {
    std::optional<Error> problem;
    auto failure = platform::replaceFileInPieces(
        path,
        [&](platform::ByteSink& sink) { return writeBackupDocument(document, sink, problem); },
        platform::Durability::Synced);
    return problem ? problem : failure;
}

}  // namespace corvane::backup
