// One titled list of tasks, as a section of a companion's view shows it.
#pragma once

#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/platform/Archivable.h"
#include "corvane/platform/SharedText.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Held by std::shared_ptr. Only the title can change. Filled on one thread, then left unchanged
/// and readable from any.
class HGTaskProxyList final : public platform::Archivable {
  public:
    using TaskProxies = std::vector<std::shared_ptr<HGTaskProxy>>;

    static constexpr std::string_view kArchiveClassName = "HGTaskProxyList";
    static constexpr bool supportsSecureCoding = true;

    /// Absent tasks make an empty list. `identifier` names the list for the program, `title` for
    /// the user.
    explicit HGTaskProxyList(std::optional<TaskProxies> taskProxies = std::nullopt,
                             std::optional<std::string_view> identifier = std::nullopt,
                             std::optional<std::string_view> title = std::nullopt);

    /// Missing keys read as absent.
    explicit HGTaskProxyList(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGTaskProxyList(const HGTaskProxyList&) = delete;
    HGTaskProxyList& operator=(const HGTaskProxyList&) = delete;

    std::size_t count() const { return taskProxies_ ? taskProxies_->size() : 0; }

    /// Null when the index is negative or not below count().
    std::shared_ptr<HGTaskProxy> taskProxyAtIndex(std::int64_t index) const;

    /// Absent, when decoded from an archive without it, means the same as empty.
    const std::optional<TaskProxies>& taskProxies() const { return taskProxies_; }
    std::optional<std::string_view> identifier() const { return identifier_.get(); }
    std::optional<std::string_view> title() const { return title_.get(); }
    void setTitle(std::optional<std::string_view> title) { title_ = platform::SharedText(title); }

  private:
    std::optional<TaskProxies> taskProxies_;
    platform::SharedText identifier_;
    platform::SharedText title_;
};

}  // namespace corvane
