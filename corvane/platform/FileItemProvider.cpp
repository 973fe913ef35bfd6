#include "corvane/platform/FileItemProvider.h"

#include "corvane/platform/MappedFile.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace corvane::platform {

namespace {

std::string extensionOf(const URL& file) {
    const std::string name = file.lastPathComponent();
    const auto dot = name.rfind('.');
    if (dot == name.npos) return {};
    std::string extension = name.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    return extension;
}

std::optional<Error> checkReadable(const URL& file) {
    Error error{"posix", EINVAL, "cannot read '" + std::string(file.absoluteString()) + "'"};
    const auto path = file.path();
    if (path && MappedFile::open(*path, &error)) return std::nullopt;
    return error;
}

}  // namespace

FileItemProvider::FileItemProvider(URL file, const TypesByExtension& types)
    : file_(std::move(file)) {
    const auto type = types.find(extensionOf(file_));
    if (type != types.end()) typeIdentifier_ = type->second;
}

bool FileItemProvider::hasItemConformingToTypeIdentifier(std::string_view typeIdentifier) const {
    return !typeIdentifier_.empty() && typeIdentifier_ == typeIdentifier;
}

void FileItemProvider::loadItemForTypeIdentifier(std::string_view typeIdentifier,
                                                 LoadHandler handler) {
    if (!handler) throw std::invalid_argument("an item is loaded for nobody");
    std::optional<Error> refusal;
    if (!hasItemConformingToTypeIdentifier(typeIdentifier)) {
        refusal = Error{"posix", EINVAL,
                        "there is no item of the type '" + std::string(typeIdentifier) + "'"};
    }
    loads_.async([file = file_, refusal, handler = std::move(handler)] {
        const auto error = refusal ? refusal : checkReadable(file);
        handler(error ? Value() : Value(file), error);
    });
}

}  // namespace corvane::platform
