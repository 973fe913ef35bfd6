// What companions know of a category: a snapshot without a link back to the application's store.
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
class HGCategoryProxy final : public platform::Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "HGCategoryProxy";
    static constexpr bool supportsSecureCoding = true;

    explicit HGCategoryProxy(std::optional<platform::URL> uriRepresentation = std::nullopt);

    /// Missing keys read as absent or 0, not as the defaults of a new record.
    explicit HGCategoryProxy(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGCategoryProxy(const HGCategoryProxy&) = delete;
    HGCategoryProxy& operator=(const HGCategoryProxy&) = delete;

    /// The category's identity in the application's store.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }

    std::optional<std::string_view> name() const { return name_.get(); }
    void setName(std::optional<std::string_view> name) { name_ = platform::SharedText(name); }

    std::int16_t color() const { return color_; }  ///< code of the colour list
    void setColor(std::int16_t color) { color_ = color; }
    std::int16_t indicator() const { return indicator_; }  ///< code of the indicator list
    void setIndicator(std::int16_t indicator) { indicator_ = indicator; }

    /// Index of the badge among the category icons: indicator + colour * 45, unchecked.
    std::int64_t iconIndex() const;

    bool isEqual(const platform::Archivable* other) const { return this == other; }

  private:
    std::int16_t color_ = 0;
    std::int16_t indicator_ = 0;
    std::optional<platform::URL> uriRepresentation_;
    platform::SharedText name_;
};

}  // namespace corvane
