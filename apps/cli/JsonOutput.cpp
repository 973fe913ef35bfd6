#include "apps/cli/JsonOutput.h"

#include "corvane/platform/TimeZone.h"
#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace corvane::cli {

namespace {

using nlohmann::ordered_json;

std::string document(const ordered_json& json) {
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

ordered_json orNull(const auto& value) {
    return value ? ordered_json(*value) : ordered_json();
}

ordered_json uriJson(const std::optional<platform::URL>& uri) {
    return uri ? ordered_json(uri->absoluteString()) : ordered_json();
}

/// The vocabulary's key for the code; null for a code that it does not have.
ordered_json keyOf(const auto& keys, std::int64_t code) {
    bool known = code >= 0 && code < static_cast<std::int64_t>(keys.size());
    return known ? ordered_json(std::string(keys[static_cast<std::size_t>(code)])) : ordered_json();
}

ordered_json attachmentsJson(const HGTaskProxy& task) {
    ordered_json json = ordered_json::array();
    if (!task.attachmentProxies()) return json;
    for (const auto& attachment : *task.attachmentProxies()) {
        json.push_back({{"uri", uriJson(attachment->uriRepresentation())},
                        {"url", orNull(attachment->url())},
                        {"type", attachment->type()}});
    }
    return json;
}

ordered_json taskJson(const HGTaskProxy& task) {
    return {
        {"uri", uriJson(task.uriRepresentation())},
        {"title", orNull(task.title())},
        {"notes", orNull(task.notes())},
        {"status", task.status()},
        {"statusName", keyOf(kTaskStatusKeys, task.status())},
        {"starred", task.starred()},
        {"priority", task.priority()},
        {"priorityName", keyOf(kPriorityKeys, task.priority())},
        {"due", task.due() ? ordered_json(task.due()->isoString()) : ordered_json()},
        {"repeats", task.repeat() != 0},
        {"project", orNull(task.projectName())},
        {"category", orNull(task.categoryName())},
        {"categoryIconIndex",
         task.categoryName() ? ordered_json(task.categoryIconIndex()) : ordered_json()},
        {"contributor", orNull(task.contributorName())},
        {"attachments", attachmentsJson(task)},
    };
}

ordered_json tasksArray(std::span<const std::shared_ptr<HGTaskProxy>> tasks) {
    ordered_json json = ordered_json::array();
    for (const auto& task : tasks)
        json.push_back(taskJson(*task));
    return json;
}

ordered_json itemJson(const EXChoiceListItem& item) {
    const std::int64_t icon = item.iconIndex();
    const auto indicators =
        static_cast<std::int64_t>(HGIndicatorNameProvider::allCategoryIndicatorNames().size());
    ordered_json json{
        {"title", orNull(item.title())},
        {"value", item.value().text() ? ordered_json(*item.value().text()) : ordered_json()},
        {"iconIndex", nullptr},
        {"color", nullptr},
        {"indicator", nullptr}};
    if (icon == EXChoiceListItem::kNoIcon) return json;
    json["iconIndex"] = icon;
    json["color"] = keyOf(HGColorNameProvider::allColorNames(), icon < 0 ? -1 : icon / indicators);
    json["indicator"] = keyOf(HGIndicatorNameProvider::allCategoryIndicatorNames(),
                              icon < 0 ? -1 : icon % indicators);
    return json;
}

ordered_json badgesJson(const HGBadgeValues& badges) {
    auto value = [&](std::string_view key) {
        auto found = badges.find(key);
        return found == badges.end() ? 0 : found->second;
    };
    return {{"inbox", value(HGSharedInfoBadgeValueInboxKey)},
            {"today", value(HGSharedInfoBadgeValueTodayKey)},
            {"todayForTomorrow", value(HGSharedInfoBadgeValueTodayForTomorrowKey)},
            {"next", value(HGSharedInfoBadgeValueNextKey)},
            {"waitingFor", value(HGSharedInfoBadgeValueWaitingForKey)}};
}

}  // namespace

std::string tasksJson(std::span<const std::shared_ptr<HGTaskProxy>> tasks) {
    return document({{"tasks", tasksArray(tasks)}});
}

std::string sectionedTasksJson(
    const EXOverviewModel& list,
    const std::function<std::shared_ptr<HGTaskProxy>(const platform::IndexPath&)>& taskAt) {
    ordered_json sections = ordered_json::array();
    for (std::int64_t section = 0; section < list.numberOfSections(); ++section)
        sections.push_back(
            {{"title", orNull(list.titleForSection(section))}, {"tasks", ordered_json::array()}});
    for (const platform::IndexPath& path : list.indexPathsForAllObjects())
        sections[static_cast<std::size_t>(path.section)]["tasks"].push_back(
            taskJson(*taskAt(path)));
    return document({{"sections", sections}});
}

std::string viewJson(std::string_view view, std::int64_t badge,
                     std::optional<std::int64_t> badgeForTomorrow, const HGTaskProxyModel& model) {
    ordered_json sections = ordered_json::array();
    for (std::size_t i = 0; i < model.numberOfSections(); ++i) {
        const HGTaskProxyList& list = *model.taskProxyListForSection(i);
        sections.push_back({{"identifier", orNull(list.identifier())},
                            {"title", orNull(list.title())},
                            {"tasks", list.taskProxies() ? tasksArray(*list.taskProxies())
                                                         : ordered_json::array()}});
    }
    return document({{"view", view},
                     {"badge", badge},
                     {"badgeForTomorrow", orNull(badgeForTomorrow)},
                     {"sections", sections}});
}

std::string choiceListJson(const EXChoiceList& list) {
    ordered_json sections = ordered_json::array();
    for (const auto& section : list.sections()) {
        ordered_json items = ordered_json::array();
        for (const auto& item : section->items())
            items.push_back(itemJson(*item));
        sections.push_back({{"title", orNull(section->title())}, {"items", items}});
    }
    return document({{"sections", sections}});
}

std::string filesJson(const std::string& directory, std::span<const ListedFile> files) {
    ordered_json json = ordered_json::array();
    for (const ListedFile& file : files)
        json.push_back(
            {{"name", file.name},
             {"created", file.created ? ordered_json(isoText(*file.created)) : ordered_json()},
             {"modified", isoText(file.modified)},
             {"size", file.size}});
    return document({{"directory", directory}, {"files", json}});
}

std::string statusJson(const Status& status) {
    return document(
        {{"container", status.container},
         {"updated", status.updated ? ordered_json(isoText(*status.updated)) : ordered_json()},
         {"badges", status.badges ? badgesJson(*status.badges) : ordered_json()},
         {"queue", {{"batches", status.queuedBatches}, {"tasks", status.queuedTasks}}}});
}

std::string momentJson(const Moment& moment) {
    return document(
        {{"day", moment.day ? ordered_json(moment.day->isoString()) : ordered_json()},
         {"time", moment.time ? ordered_json(moment.time->isoString()) : ordered_json()},
         {"word", orNull(moment.word)}});
}

std::string isoText(platform::Instant instant) {
    const auto time = platform::TimeZone::utc().civilFromInstant(instant);
    const auto microseconds = instant - std::chrono::floor<std::chrono::seconds>(instant);
    bool expanded = time.year < 0 || time.year > 9999;
    return fmt::format(
        "{}-{:02}-{:02}T{:02}:{:02}:{:02}.{:06}Z",
        expanded ? fmt::format("{:+05}", time.year) : fmt::format("{:04}", time.year), time.month,
        time.day, time.hour, time.minute, time.second, microseconds.count());
}

}  // namespace corvane::cli
