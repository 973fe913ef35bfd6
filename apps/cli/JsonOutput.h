// What scripts read. docs/cli.md tells the schemas, which do not change but for new keys.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/dates/EXDateOnly.h"
#include "corvane/dates/EXTimeOnly.h"
#include "corvane/models/EXOverviewModel.h"
#include "corvane/platform/Instant.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane::cli {

// Every operation returns a whole JSON document with its final line break.

std::string tasksJson(std::span<const std::shared_ptr<HGTaskProxy>> tasks);

/// The sections of a list whose objects `taskAt` gives as tasks.
std::string sectionedTasksJson(
    const EXOverviewModel& list,
    const std::function<std::shared_ptr<HGTaskProxy>(const platform::IndexPath&)>& taskAt);

std::string viewJson(std::string_view view, std::int64_t badge,
                     std::optional<std::int64_t> badgeForTomorrow, const HGTaskProxyModel& model);

/// The icon indexes of the list are those of category icons.
std::string choiceListJson(const EXChoiceList& list);

struct ListedFile {
    std::string name;
    std::optional<platform::Instant> created;
    platform::Instant modified;
    std::int64_t size = 0;  ///< in bytes
};
std::string filesJson(const std::string& directory, std::span<const ListedFile> files);

struct Status {
    std::string container;
    std::optional<platform::Instant> updated;
    std::optional<HGBadgeValues> badges;
    std::size_t queuedBatches = 0;
    std::size_t queuedTasks = 0;
};
std::string statusJson(const Status& status);

/// What a typed text means.
struct Moment {
    std::optional<EXDateOnly> day;
    std::optional<EXTimeOnly> time;
    std::optional<std::string> word;
};
std::string momentJson(const Moment& moment);

/// "2024-03-05T14:07:09.123000Z"; years beyond four digits have a sign.
std::string isoText(platform::Instant instant);

}  // namespace corvane::cli
