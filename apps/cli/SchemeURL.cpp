#include "apps/cli/SchemeURL.h"

#include "corvane/bridge/EXURLParser.h"
#include "corvane/bridge/HGURLScheme.h"

#include "apps/cli/PriorityNames.h"
#include "apps/cli/TodoLine.h"
#include "apps/cli/TypedDay.h"
#include "apps/cli/TypedWords.h"

#include <fmt/format.h>

#include <map>
#include <optional>

namespace corvane::cli {

namespace {

using Query = EXURLParser::Query;

/// What is wrong with the URL.
struct Complaint {
    std::string text;
};

/// None for a key that is missing, has no value, or an empty one.
std::optional<std::string> valueIn(const Query& query, const char* key) {
    auto found = query.find(key);
    if (found == query.end() || !found->second || found->second->empty()) return std::nullopt;
    return std::string(*found->second);
}

/// A key without a value says yes.
bool flagIn(const Query& query, const char* key) {
    auto found = query.find(key);
    if (found == query.end()) return false;
    if (!found->second) return true;
    const auto flag = flagNamed(*found->second);
    if (!flag) throw Complaint{fmt::format("'{}' is true or false", key)};
    return *flag;
}

NewTask newTaskOf(const Query& query) {
    NewTask task;
    task.title = valueIn(query, "title").value_or("");
    if (heldTitle(task.title).empty()) throw Complaint{"a task needs a title"};
    task.notes = valueIn(query, "notes");
    task.project = valueIn(query, "project");
    task.category = valueIn(query, "category");
    task.starred = flagIn(query, "starred");
    if (auto due = valueIn(query, "due")) {
        task.due = typedDay(*due);
        if (!task.due) throw Complaint{fmt::format("'{}' is not a day", *due)};
    }
    if (auto priority = valueIn(query, "priority")) {
        task.priority = priorityNamed(*priority);
        if (!task.priority) throw Complaint{fmt::format("there is no priority '{}'", *priority)};
    }
    return task;
}

SchemeRequest requestOf(std::string_view command, std::optional<std::string_view> query) {
    static const std::map<std::string_view, SchemeRequest> kViews{
        {HGURLSchemeCommandShowInbox, View::Inbox},
        {HGURLSchemeCommandShowSomeday, ShowSomeday()},
        {HGURLSchemeCommandShowToday, View::Today},
        {HGURLSchemeCommandShowNext, View::Next},
        {HGURLSchemeCommandShowWaitingFor, View::WaitingFor}};
    if (auto view = kViews.find(command); view != kViews.end()) return view->second;
    if (command != HGURLSchemeCommandAddTask) {
        throw Complaint{fmt::format("there is no '{}' in a URL", command)};
    }
    platform::Error error;
    const auto parameters = EXURLParser::parseQuery(query, &error);
    if (!parameters) throw Complaint{error.message};
    return newTaskOf(*parameters);
}

}  // namespace

std::variant<SchemeRequest, std::string> schemeRequestOf(std::string_view url) {
    const std::string start = fmt::format("{}://", HGURLSchemeName);
    if (!url.starts_with(start)) return fmt::format("a URL begins with '{}'", start);
    url = url.substr(start.size());
    url = url.substr(0, url.find('#'));
    const std::size_t mark = url.find('?');
    std::string_view command = url.substr(0, mark);
    if (command.ends_with('/')) command.remove_suffix(1);
    std::optional<std::string_view> query;
    if (mark != url.npos) query = url.substr(mark + 1);
    try {
        return requestOf(command, query);
    } catch (const Complaint& complaint) {
        return complaint.text;
    }
}

}  // namespace corvane::cli
