// What companions know of a project: a snapshot without a link back to the application's store.
#pragma once

#include "corvane/platform/Archivable.h"
#include "corvane/platform/SharedText.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

namespace platform {
class KeyedArchiver;
class KeyedUnarchiver;
}  // namespace platform

/// A record: held by std::shared_ptr, equal only to itself. Filled on one thread, then left
/// unchanged and readable from any.
class HGProjectProxy final : public platform::Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "HGProjectProxy";
    static constexpr bool supportsSecureCoding = true;

    explicit HGProjectProxy(std::optional<platform::URL> uriRepresentation = std::nullopt);

    /// Missing keys read as absent or 0, not as the defaults of a new record.
    explicit HGProjectProxy(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGProjectProxy(const HGProjectProxy&) = delete;
    HGProjectProxy& operator=(const HGProjectProxy&) = delete;

    /// The project's identity in the application's store.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }

    std::optional<std::string_view> name() const { return name_.get(); }
    void setName(std::optional<std::string_view> name) { name_ = platform::SharedText(name); }

    /// The project's tasks, in its order. Absent, when decoded from an archive without
    /// it, means the same as empty.
    const std::optional<std::vector<platform::URL>>& taskProxyURIs() const {
        return taskProxyURIs_;
    }
    void setTaskProxyURIs(std::optional<std::vector<platform::URL>> uris) {
        taskProxyURIs_ = std::move(uris);
    }

    std::optional<std::string_view> categoryName() const { return categoryName_.get(); }
    void setCategoryName(std::optional<std::string_view> name) {
        categoryName_ = platform::SharedText(name);
    }
    std::int16_t categoryColor() const { return categoryColor_; }
    void setCategoryColor(std::int16_t color) { categoryColor_ = color; }
    std::int16_t categoryIndicator() const { return categoryIndicator_; }
    void setCategoryIndicator(std::int16_t indicator) { categoryIndicator_ = indicator; }

    /// Index of the category's badge among the category icons: indicator + colour * 45, unchecked.
    std::int64_t categoryIconIndex() const;

    bool isEqual(const platform::Archivable* other) const { return this == other; }

  private:
    std::int16_t categoryColor_ = 0;
    std::int16_t categoryIndicator_ = 0;
    std::optional<platform::URL> uriRepresentation_;
    platform::SharedText name_;
    std::optional<std::vector<platform::URL>> taskProxyURIs_ = std::vector<platform::URL>();
    platform::SharedText categoryName_;
};

}  // namespace corvane
