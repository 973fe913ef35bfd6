#include "apps/cli/QueuedTask.h"

#include "corvane/vocabulary/VocabularyKeys.h"

#include <fmt/format.h>

#include <optional>

namespace corvane::cli {

namespace {

constexpr const char* kTitleOfUntitled = "Untitled";
constexpr const char* kOnHoldContext = "waiting";

/// None for an absent name as well as for one of which nothing is left.
std::optional<std::string> heldNameOf(std::optional<std::string_view> name) {
    auto held = heldName(name.value_or(""));
    return held.empty() ? std::nullopt : std::optional(held);
}

class Conversion {
  public:
    explicit Conversion(const HGTaskProxy& task) : task_(task) {}

    QueuedTask convert(const GeneralProjectNames& generalProjectNames) {
        line().title = heldTitle(task_.title().value_or(""));
        if (line().title.empty()) line().title = kTitleOfUntitled;
        bool inProject = task_.projectName() && !generalProjectNames.contains(*task_.projectName());
        if (inProject) line().project = heldNameOf(task_.projectName());
        if (task_.notes() && !task_.notes()->empty()) line().notes = task_.notes();
        line().starred = task_.starred();
        convertCategory();
        convertDue();
        convertPriority();
        convertStatus();
        if (task_.repeat() != 0) lose("its repeat");
        if (task_.contributorName())
            lose(fmt::format("the contributor {}", *task_.contributorName()));
        if (const auto count = task_.attachmentProxiesCount())
            lose(fmt::format("{} {}", count, count == 1 ? "attachment" : "attachments"));
        return std::move(result_);
    }

  private:
    TodoLine& line() { return result_.line; }
    void lose(std::string what) { result_.lost.push_back(std::move(what)); }

    void convertCategory() {
        line().category = heldNameOf(task_.categoryName());
        if (line().category != kOnHoldContext) return;
        // The word for it means something else.
        line().category.reset();
        lose(fmt::format("the category {}", kOnHoldContext));
    }

    void convertDue() {
        if (!task_.due()) return;
        line().due = existingDay(task_.due()->isoString());
        if (line().due == task_.due()) return;
        line().due.reset();
        lose("the due day " + task_.due()->isoString());
    }

    void convertPriority() {
        if (task_.priority() >= 0 && task_.priority() <= kHighestPriority) {
            line().priority = task_.priority();
        } else {
            lose(fmt::format("the priority {}", task_.priority()));
        }
    }

    void convertStatus() {
        line().onHold = task_.status() == kOnHoldStatus;
        line().completed = task_.status() == kCompletedStatus;
        // Inbox and Actionable differ by what else the line says.
        bool held = line().onHold || line().completed || task_.status() == kInboxStatus ||
                    task_.status() == kActionableStatus;
        if (held) return;
        auto code = static_cast<std::size_t>(task_.status());
        lose(code < kTaskStatusKeys.size() ? fmt::format("the status {}", kTaskStatusKeys[code])
                                           : fmt::format("the status {}", task_.status()));
    }

    const HGTaskProxy& task_;
    QueuedTask result_;
};

}  // namespace

QueuedTask queuedTaskOf(const HGTaskProxy& task, const GeneralProjectNames& generalProjectNames) {
    return Conversion(task).convert(generalProjectNames);
}

}  // namespace corvane::cli
