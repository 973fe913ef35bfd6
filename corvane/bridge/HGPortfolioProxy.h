// What companions know of a portfolio: a snapshot without a link back to the application's store.
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
class HGPortfolioProxy final : public platform::Archivable {
  public:
    static constexpr std::string_view kArchiveClassName = "HGPortfolioProxy";
    static constexpr bool supportsSecureCoding = true;

    explicit HGPortfolioProxy(std::optional<platform::URL> uriRepresentation = std::nullopt);

    /// Missing keys read as absent or 0, not as the defaults of a new record.
    explicit HGPortfolioProxy(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGPortfolioProxy(const HGPortfolioProxy&) = delete;
    HGPortfolioProxy& operator=(const HGPortfolioProxy&) = delete;

    /// The portfolio's identity in the application's store.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }

    std::optional<std::string_view> name() const { return name_.get(); }
    void setName(std::optional<std::string_view> name) { name_ = platform::SharedText(name); }

    /// The portfolio's projects, in its order. Absent, when decoded from an archive without
    /// it, means the same as empty.
    const std::optional<std::vector<platform::URL>>& projectProxyURIs() const {
        return projectProxyURIs_;
    }
    void setProjectProxyURIs(std::optional<std::vector<platform::URL>> uris) {
        projectProxyURIs_ = std::move(uris);
    }

    bool isEqual(const platform::Archivable* other) const { return this == other; }

  private:
    std::optional<platform::URL> uriRepresentation_;
    platform::SharedText name_;
    std::optional<std::vector<platform::URL>> projectProxyURIs_ = std::vector<platform::URL>();
};

}  // namespace corvane
