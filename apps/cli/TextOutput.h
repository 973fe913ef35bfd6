// What people read: lists of tasks, badges and messages as plain text.
#pragma once

#include "corvane/bridge/HGSharedInfo.h"
#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/models/EXOverviewModel.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

/// Writes to standard output.
void print(std::string_view text);

/// Whether everything printed so far has arrived.
bool flushOutput();

/// The text on one line: control characters, which could also command the terminal, become spaces.
std::string onOneLine(std::string_view text);

/// One line a task: marks ("x" completed, "w" waiting, "*" starred), priority, due day, title,
/// project, category. The columns of all tasks are aligned; those that none needs are left out.
std::string taskLines(std::span<const std::shared_ptr<HGTaskProxy>> tasks);

/// The same for several lists whose columns are aligned with each other, one text a list.
std::vector<std::string> alignedTaskLines(
    std::span<const std::span<const std::shared_ptr<HGTaskProxy>>> lists);

using TaskAtPath = std::function<std::shared_ptr<HGTaskProxy>(const platform::IndexPath&)>;

/// The same for the sections of a list, each below an empty line and its title. A section that is
/// called like the whole list needs no title of its own.
std::string sectionedTaskLines(const EXOverviewModel& list, const TaskAtPath& taskAt);

/// "inbox 3, today 5 (6 tomorrow), next 4, waiting for 2"
std::string badgesText(const HGBadgeValues& badges);

/// "1 task", "2 tasks"
std::string counted(std::size_t count, std::string_view noun);

/// The letter for a priority, "A" for the highest; empty for the medium one.
std::string priorityLetter(std::int16_t priority);

}  // namespace corvane::cli
