#include "corvane/formats/EXFileItem.h"

#include "corvane/platform/FileStatus.h"

namespace corvane {

using platform::Instant;
using platform::URL;

namespace {

std::optional<platform::FileStatus> statusOf(const std::optional<URL>& url) {
    const auto path = url ? url->path() : std::nullopt;
    return path ? platform::fileStatus(*path) : std::nullopt;
}

}  // namespace

std::optional<std::string> EXFileItem::fileName() const {
    return url_ ? std::optional(url_->lastPathComponent()) : std::nullopt;
}

std::optional<Instant> EXFileItem::created() const {
    const auto status = statusOf(url_);
    return status ? status->created : std::nullopt;
}

std::optional<Instant> EXFileItem::modified() const {
    const auto status = statusOf(url_);
    return status ? std::optional(status->modified) : std::nullopt;
}

EXValue EXFileItem::valueForKey(std::string_view key) const {
    if (key == EXFileItemUrlKey) return url_;
    if (key == EXFileItemFileNameKey) return fileName();
    if (key == EXFileItemCreatedKey) return created();
    if (key == EXFileItemModifiedKey) return modified();
    return nullptr;
}

void EXFileItem::setValueForKey(const EXValue& value, std::string_view key) {
    if (key == EXFileItemUrlKey && (value.isNull() || value.url()))
        url_ = value.url() ? std::optional(*value.url()) : std::nullopt;
}

}  // namespace corvane
