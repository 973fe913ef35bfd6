// What companions know of an attachment: a snapshot without a link back to the application's store.
#pragma once

#include "corvane/platform/Archivable.h"
#include "corvane/platform/SharedText.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

namespace platform {
class KeyedArchiver;
class KeyedUnarchiver;
}  // namespace platform

/// A record: held by std::shared_ptr, equal only to itself. Filled on one thread, then left
/// unchanged and readable from any.
class HGAttachmentProxy final : public platform::Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "HGAttachmentProxy";
    static constexpr bool supportsSecureCoding = true;

    explicit HGAttachmentProxy(std::optional<platform::URL> uriRepresentation = std::nullopt);

    /// Missing keys read as absent or 0, not as the defaults of a new record.
    explicit HGAttachmentProxy(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGAttachmentProxy(const HGAttachmentProxy&) = delete;
    HGAttachmentProxy& operator=(const HGAttachmentProxy&) = delete;

    /// The attachment's identity in the application's store.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }

    /// A code of the application's own; companions only pass it through.
    std::int16_t type() const { return type_; }
    void setType(std::int16_t type) { type_ = type; }

    /// The target as text, not parsed.
    std::optional<std::string_view> url() const { return url_.get(); }
    void setUrl(std::optional<std::string_view> url) { url_ = platform::SharedText(url); }

    bool isEqual(const platform::Archivable* other) const { return this == other; }

  private:
    std::int16_t type_ = 0;
    std::optional<platform::URL> uriRepresentation_;
    platform::SharedText url_;
};

}  // namespace corvane
