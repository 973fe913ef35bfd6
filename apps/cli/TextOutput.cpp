#include "apps/cli/TextOutput.h"

#include "corvane/platform/TextEncoding.h"

#include "apps/cli/TodoLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace corvane::cli {

namespace {

// Beyond this a title pushes what follows it to the right, rather than all other lines as well.
constexpr std::size_t kWidestColumn = 48;

/// In columns of a terminal, and up to the widest one.
std::size_t widthOf(const std::string& text) {
    if (platform::isASCII(text)) return std::min(text.size(), kWidestColumn);
    auto padding = fmt::format("{:<{}}", text, kWidestColumn).size() - text.size();
    return kWidestColumn - padding;
}

struct Cell {
    Cell(std::string content) : text(std::move(content)), width(widthOf(text)) {}

    std::string text;
    std::size_t width;
};

constexpr std::size_t kColumns = 6;
using Row = std::array<Cell, kColumns>;
using Widths = std::array<std::size_t, kColumns>;

std::string marksOf(const HGTaskProxy& task) {
    std::string marks;
    if (task.status() == kCompletedStatus) marks += 'x';
    if (task.status() == kOnHoldStatus) marks += 'w';
    if (task.starred()) marks += '*';
    return marks;
}

Row rowOf(const HGTaskProxy& task) {
    auto prefixed = [](char mark, std::optional<std::string_view> name) {
        return name ? mark + onOneLine(*name) : std::string();
    };
    return {marksOf(task),
            priorityLetter(task.priority()),
            task.due() ? task.due()->isoString() : "",
            onOneLine(task.title().value_or("")),
            prefixed('+', task.projectName()),
            prefixed('@', task.categoryName())};
}

void appendLine(std::string& text, const Row& row, const Widths& widths) {
    text += ' ';
    for (std::size_t column = 0; column < kColumns; ++column) {
        if (widths[column] == 0) continue;
        text.append(" ").append(row[column].text);
        text.append(widths[column] - row[column].width + 1, ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
}

std::int64_t badge(const HGBadgeValues& badges, std::string_view key) {
    auto found = badges.find(key);
    return found == badges.end() ? 0 : found->second;
}

}  // namespace

void print(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool flushOutput() {
    return std::fflush(stdout) == 0 && !std::ferror(stdout);
}

std::string onOneLine(std::string_view text) {
    std::string line(text);
    for (std::size_t i = 0; i < line.size(); ++i) {
        auto byte = static_cast<unsigned char>(line[i]);
        // U+0080 to U+009F are control characters as well.
        bool second = i > 0 && line[i - 1] == '\xC2' && byte >= 0x80 && byte < 0xA0;
        if (second) line[i] = '\xA0';
        if (byte < 0x20 || byte == 0x7F) line[i] = ' ';
    }
    return line;
}

std::string taskLines(std::span<const std::shared_ptr<HGTaskProxy>> tasks) {
    return alignedTaskLines({&tasks, 1}).front();
}

std::vector<std::string> alignedTaskLines(
    std::span<const std::span<const std::shared_ptr<HGTaskProxy>>> lists) {
    std::vector<std::vector<Row>> rowsOfLists(lists.size());
    Widths widths{};
    for (std::size_t i = 0; i < lists.size(); ++i) {
        for (const auto& task : lists[i]) {
            const Row& row = rowsOfLists[i].emplace_back(rowOf(*task));
            for (std::size_t column = 0; column < kColumns; ++column)
                widths[column] = std::max(widths[column], row[column].width);
        }
    }
    std::vector<std::string> texts;
    for (const auto& rows : rowsOfLists) {
        std::string& text = texts.emplace_back();
        for (const Row& row : rows)
            appendLine(text, row, widths);
    }
    return texts;
}

std::string sectionedTaskLines(const EXOverviewModel& list, const TaskAtPath& taskAt) {
    const auto sections = static_cast<std::size_t>(list.numberOfSections());
    std::vector<std::vector<std::shared_ptr<HGTaskProxy>>> tasks(sections);
    for (const platform::IndexPath& path : list.indexPathsForAllObjects())
        tasks[static_cast<std::size_t>(path.section)].push_back(taskAt(path));
    const auto lines = alignedTaskLines(
        std::vector<std::span<const std::shared_ptr<HGTaskProxy>>>(tasks.begin(), tasks.end()));
    std::string text;
    for (std::size_t section = 0; section < sections; ++section) {
        const auto title = list.titleForSection(static_cast<std::int64_t>(section));
        text += "\n";
        if (title && title != list.title()) text += onOneLine(*title) + "\n";
        text += lines[section].empty() ? "  nothing\n" : lines[section];
    }
    return text;
}

std::string badgesText(const HGBadgeValues& badges) {
    return fmt::format("inbox {}, today {} ({} tomorrow), next {}, waiting for {}",
                       badge(badges, HGSharedInfoBadgeValueInboxKey),
                       badge(badges, HGSharedInfoBadgeValueTodayKey),
                       badge(badges, HGSharedInfoBadgeValueTodayForTomorrowKey),
                       badge(badges, HGSharedInfoBadgeValueNextKey),
                       badge(badges, HGSharedInfoBadgeValueWaitingForKey));
}

std::string counted(std::size_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string priorityLetter(std::int16_t priority) {
    bool shown = priority >= 0 && priority <= kHighestPriority && priority != kMediumPriority;
    return shown ? std::string(1, static_cast<char>('A' + kHighestPriority - priority)) : "";
}

}  // namespace corvane::cli
