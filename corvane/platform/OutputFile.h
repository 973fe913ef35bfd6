// A file that is written in place, piece by piece. Whoever looks meanwhile sees half of it and a
// failure leaves it so: where that matters, use replaceFileInPieces.
#pragma once

#include "corvane/platform/Error.h"
#include "corvane/platform/FileDescriptor.h"
#include "corvane/platform/FileSink.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvane::platform {

/// For one thread at a time. Destruction closes it and tells nothing; finish() does.
class OutputFile final : public ByteSink {
  public:
    /// An existing file, to be written over from its start and not truncated. Devices and pipes are
    /// opened too.
    static std::unique_ptr<OutputFile> open(const std::string& path, Error* error = nullptr);

    /// A new file, or an existing one without its content.
    static std::unique_ptr<OutputFile> create(const std::string& path, Error* error = nullptr);

    bool write(std::span<const std::byte> piece) override { return sink_.write(piece); }

    /// Closes the file, which some file systems need to tell that the disk is full. The first
    /// failure of all; none means that the system took everything. Nothing may be written then.
    [[nodiscard]] std::optional<Error> finish();

    /// The first failure of a write.
    std::optional<Error> failure() const;

  private:
    OutputFile(FileDescriptor file, std::string path)
        : file_(std::move(file)), sink_(file_.get()), path_(std::move(path)) {}
    static std::unique_ptr<OutputFile> opened(const std::string& path, int flags, Error* error);
    std::optional<Error> described(int failure) const;

    FileDescriptor file_;
    FileSink sink_;
    std::string path_;
};

/// Removes a regular file, or a link whatever it leads to. Anything else stays, without an error;
/// so does the absence of an entry.
[[nodiscard]] std::optional<Error> removeRegularFile(const std::string& path);

}  // namespace corvane::platform
