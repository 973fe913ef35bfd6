// What companions know of a task: a snapshot without a link back to the application's store.
#pragma once

#include "corvane/bridge/HGAttachmentProxy.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/Archivable.h"
#include "corvane/platform/SharedText.h"
#include "corvane/platform/URL.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A record: held by std::shared_ptr, equal only to itself, however alike the fields (match by
/// `uriRepresentation`). Filled on one thread, then left unchanged and readable from any.
///
/// Absent texts are none. Codes are kept as they are, whether or not the lists of
/// HGChoiceListFactory, which have their titles, know them.
class HGTaskProxy final : public platform::Archivable {
  public:
    using AttachmentProxies = std::vector<std::shared_ptr<HGAttachmentProxy>>;

    static constexpr std::string_view kArchiveClassName = "HGTaskProxy";
    static constexpr bool supportsSecureCoding = true;

    /// A new task: actionable (3), of medium priority (2), with an empty attachment list.
    explicit HGTaskProxy(std::optional<platform::URL> uriRepresentation = std::nullopt);

    /// Missing keys read as absent, 0 or false, not as the defaults of a new task.
    explicit HGTaskProxy(platform::KeyedUnarchiver& coder);

    /// Of `repeat`, the archive keeps only whether its low byte is zero; it reads back as 1 or 0.
    void encodeWithCoder(platform::KeyedArchiver& coder) const override;
    std::string_view archiveClassName() const override { return kArchiveClassName; }

    HGTaskProxy(const HGTaskProxy&) = delete;
    HGTaskProxy& operator=(const HGTaskProxy&) = delete;

    /// The task's identity in the application's store; absent in a task to be inserted.
    const std::optional<platform::URL>& uriRepresentation() const { return uriRepresentation_; }

    std::optional<std::string_view> title() const { return title_.get(); }
    std::optional<std::string_view> notes() const { return notes_.get(); }
    std::int16_t status() const { return status_; }  ///< code of the task status list
    bool starred() const { return starred_; }
    std::int16_t priority() const { return priority_; }  ///< code of the priority list
    std::optional<EXDateOnly> due() const { return due_; }
    std::int16_t repeat() const { return repeat_; }  ///< 0 where the task does not repeat
    std::optional<std::string_view> projectName() const { return projectName_.get(); }
    std::optional<std::string_view> categoryName() const { return categoryName_.get(); }
    std::int16_t categoryColor() const { return categoryColor_; }          ///< code of the colours
    std::int16_t categoryIndicator() const { return categoryIndicator_; }  ///< of the indicators
    std::optional<std::string_view> contributorName() const { return contributorName_.get(); }
    /// Absent, when decoded from an archive without it, means the same as empty.
    const std::optional<AttachmentProxies>& attachmentProxies() const { return attachmentProxies_; }

    void setTitle(std::optional<std::string_view> title) { title_ = platform::SharedText(title); }
    void setNotes(std::optional<std::string_view> notes) { notes_ = platform::SharedText(notes); }
    void setStatus(std::int16_t status) { status_ = status; }
    void setStarred(bool starred) { starred_ = starred; }
    void setPriority(std::int16_t priority) { priority_ = priority; }
    void setDue(std::optional<EXDateOnly> due) { due_ = due; }
    void setRepeat(std::int16_t repeat) { repeat_ = repeat; }
    void setProjectName(std::optional<std::string_view> name) {
        projectName_ = platform::SharedText(name);
    }
    void setCategoryName(std::optional<std::string_view> name) {
        categoryName_ = platform::SharedText(name);
    }
    void setCategoryColor(std::int16_t color) { categoryColor_ = color; }
    void setCategoryIndicator(std::int16_t indicator) { categoryIndicator_ = indicator; }
    void setContributorName(std::optional<std::string_view> name) {
        contributorName_ = platform::SharedText(name);
    }
    void setAttachmentProxies(std::optional<AttachmentProxies> attachments) {
        attachmentProxies_ = std::move(attachments);
    }

    /// Index of the category's badge among the category icons: indicator + colour * 45, unchecked.
    std::int64_t categoryIconIndex() const;

    std::size_t attachmentProxiesCount() const;

    /// The count as text, or the localized word for no attachments.
    std::string attachmentProxiesCountString() const;

    bool isEqual(const platform::Archivable* other) const { return this == other; }

    /// Those that mostly are this task's alone. Archivers fetch them ahead.
    std::array<const platform::SharedText*, 2> ownTexts() const { return {&title_, &notes_}; }

  private:
    bool starred_ = false;
    std::int16_t status_ = 3;
    std::int16_t priority_ = 2;
    std::int16_t repeat_ = 0;
    std::int16_t categoryColor_ = 0;
    std::int16_t categoryIndicator_ = 0;
    std::optional<platform::URL> uriRepresentation_;
    platform::SharedText title_;
    platform::SharedText notes_;
    std::optional<EXDateOnly> due_;
    platform::SharedText projectName_;
    platform::SharedText categoryName_;
    platform::SharedText contributorName_;
    std::optional<AttachmentProxies> attachmentProxies_ = AttachmentProxies();
};

}  // namespace corvane
