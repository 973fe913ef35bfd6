// The task lists of one of the application's main views, one list a section.
#pragma once

#include "corvane/bridge/HGTaskProxyList.h"
#include "corvane/platform/Archivable.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

/// Sections that programs ask for by number. The last two share a number because they belong to
/// different models.
inline constexpr std::size_t HGTaskProxyModelSectionStarred = 0;      ///< of the Today model
inline constexpr std::size_t HGTaskProxyModelSectionDueToday = 1;     ///< of the Today model
inline constexpr std::size_t HGTaskProxyModelSectionDueTomorrow = 1;  ///< of the Next model

/// Immutable, so for any thread; held by std::shared_ptr.
class HGTaskProxyModel final : public platform::Archivable {
  public:
    using TaskProxyLists = std::vector<std::shared_ptr<HGTaskProxyList>>;

    static constexpr std::string_view kArchiveClassName = "HGTaskProxyModel";
    static constexpr bool supportsSecureCoding = true;

    /// Absent lists make a model without sections.
    explicit HGTaskProxyModel(std::optional<TaskProxyLists> taskProxyLists = std::nullopt);

    /// A missing key reads as absent.
    explicit HGTaskProxyModel(platform::KeyedUnarchiver& coder);
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGTaskProxyModel(const HGTaskProxyModel&) = delete;
    HGTaskProxyModel& operator=(const HGTaskProxyModel&) = delete;

    std::size_t numberOfSections() const { return taskProxyLists_ ? taskProxyLists_->size() : 0; }

    /// Throws std::out_of_range unless section < numberOfSections(): ask that first.
    const std::shared_ptr<HGTaskProxyList>& taskProxyListForSection(std::size_t section) const;

    /// Absent, when decoded from an archive without it, means the same as empty.
    const std::optional<TaskProxyLists>& taskProxyLists() const { return taskProxyLists_; }

  private:
    std::optional<TaskProxyLists> taskProxyLists_;
};

}  // namespace corvane
