#include "corvane/logging/LogFiles.h"

#include "corvane/platform/DirectoryListing.h"
#include "corvane/platform/Files.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <utility>

namespace corvane::logging {

namespace {

using std::chrono::sys_seconds;

/// More of one second means that something else is wrong.
constexpr int kMostOfOneSecond = 1000;

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kExtension = ".log";

/// The numbers in a text, up to as many as there is room for; whatever stands between them.
template <std::size_t Count>
std::array<int, Count> numbersIn(std::string_view text) {
    std::array<int, Count> numbers{};
    for (int& number : numbers) {
        text.remove_prefix(std::min(text.find_first_of(kDigits), text.size()));
        const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
    return numbers;
}

}  // namespace

std::string LogFileName::text(std::string_view program) const {
    const auto day = std::chrono::floor<std::chrono::days>(creation);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(creation - day);
    return fmt::format("{} {:04}-{:02}-{:02} {:02}-{:02}-{:02}Z{}{}", program,
                       static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()), time.hours().count(),
                       time.minutes().count(), time.seconds().count(),
                       number > 1 ? fmt::format(" {}", number) : std::string(), kExtension);
}

std::optional<LogFileName> LogFileName::parse(std::string_view program, std::string_view name) {
    if (!name.starts_with(program)) return std::nullopt;
    const auto [year, month, day, hour, minute, second, number] =
        numbersIn<7>(name.substr(program.size()));
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok()) return std::nullopt;
    const LogFileName parsed{std::chrono::sys_days(date) + std::chrono::hours(hour) +
                                 std::chrono::minutes(minute) + std::chrono::seconds(second),
                             std::max(number, 1)};
    // Whatever was read too generously comes back as another text.
    if (parsed.text(program) != name) return std::nullopt;
    return parsed;
}

LogFiles::LogFiles(std::string directory, std::string program, double mostSeconds,
                   std::size_t mostFiles)
    : directory_(std::move(directory)),
      program_(std::move(program)),
      mostSeconds_(mostSeconds),
      mostFiles_(mostFiles) {}

bool LogFiles::isFull(sys_seconds creation, platform::Instant now) const {
    const std::chrono::duration<double> age = now - creation;
    return std::abs(age.count()) >= mostSeconds_;
}

std::string LogFiles::path(const LogFileName& name) const {
    return directory_ + "/" + name.text(program_);
}

std::vector<LogFileName> LogFiles::existing() const {
    std::vector<LogFileName> names;
    const auto entries = platform::listDirectory(directory_);
    if (!entries) return names;
    for (const auto& entry : *entries)
        if (auto name = LogFileName::parse(program_, entry.name)) names.push_back(*name);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<LogFiles::OpenFile> LogFiles::continued(platform::Instant now) const {
    const auto names = existing();
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        if (isFull(name->creation, now)) continue;
        auto file = platform::AppendFile::open(path(*name));
        if (file) return OpenFile{std::move(*file), name->creation};
    }
    return std::nullopt;
}

std::optional<LogFiles::OpenFile> LogFiles::created(platform::Instant now,
                                                    platform::Error* error) const {
    platform::Error failure;
    LogFileName name{std::chrono::floor<std::chrono::seconds>(now)};
    for (; name.number <= kMostOfOneSecond; ++name.number) {
        auto file = platform::AppendFile::create(path(name), &failure);
        if (file) return OpenFile{std::move(*file), name.creation};
        if (failure.code != EEXIST && failure.code != EAGAIN) break;
    }
    if (error) *error = std::move(failure);
    return std::nullopt;
}

std::optional<LogFiles::OpenFile> LogFiles::open(platform::Instant now,
                                                 platform::Error* error) const {
    if (auto failure = platform::createDirectories(directory_, 0700)) {
        if (error) *error = std::move(*failure);
        return std::nullopt;
    }
    auto file = continued(now);
    if (!file) file = created(now, error);
    if (file) removeOldest();
    return file;
}

void LogFiles::removeOldest() const {
    if (mostFiles_ == 0) return;
    const auto names = existing();
    std::size_t left = names.size();
    for (auto name = names.begin(); name != names.end() && left > mostFiles_; ++name)
        if (platform::AppendFile::removeUnlessHeld(path(*name))) --left;
}

}  // namespace corvane::logging
