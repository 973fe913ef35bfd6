// One file of a directory, as a list of files shows it and sorts by it.
#pragma once

#include "corvane/models/EXKeyValueObject.h"
#include "corvane/platform/Instant.h"
#include "corvane/platform/URL.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

inline constexpr std::string_view EXFileItemUrlKey = "url";
inline constexpr std::string_view EXFileItemFileNameKey = "fileName";
inline constexpr std::string_view EXFileItemCreatedKey = "created";
inline constexpr std::string_view EXFileItemModifiedKey = "modified";

/// Held by std::shared_ptr; one thread, that of the list. Knows only where the file is: the times
/// are the file system's at the moment of asking, and none when there is no file, or no such time.
class EXFileItem final : public EXKeyValueObject {
  public:
    explicit EXFileItem(std::optional<platform::URL> url = {}) : url_(std::move(url)) {}
    EXFileItem(const EXFileItem&) = delete;
    EXFileItem& operator=(const EXFileItem&) = delete;

    const std::optional<platform::URL>& url() const { return url_; }
    void setUrl(std::optional<platform::URL> url) { url_ = std::move(url); }

    std::optional<std::string> fileName() const;
    std::optional<platform::Instant> created() const;
    std::optional<platform::Instant> modified() const;

    /// By the four keys above, of which only the URL can be set.
    EXValue valueForKey(std::string_view key) const override;
    void setValueForKey(const EXValue& value, std::string_view key) override;

  private:
    std::optional<platform::URL> url_;
};

}  // namespace corvane
