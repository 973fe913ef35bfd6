#include "corvane/vocabulary/HGColorNameProvider.h"
#include "corvane/vocabulary/HGIndicatorNameProvider.h"

#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/JsonOutput.h"
#include "apps/cli/TextOutput.h"

#include <fmt/format.h>

namespace corvane::cli {

namespace {

/// "red phone", the color and the indicator of a category icon, or "red" where it has no indicator;
/// its number where there is no such icon.
std::string iconText(std::int64_t index) {
    const auto& colors = HGColorNameProvider::allColorNames();
    const auto& indicators = HGIndicatorNameProvider::allCategoryIndicatorNames();
    const auto columns = static_cast<std::int64_t>(indicators.size());
    if (index == EXChoiceListItem::kNoIcon) return "";
    if (index < 0 || index >= columns * static_cast<std::int64_t>(colors.size())) {
        return fmt::format("icon {}", index);
    }
    const std::string& color = HGColorNameProvider::nameForColor(index / columns);
    if (index % columns == 0) return color;
    return color + " " + HGIndicatorNameProvider::nameForCategoryIndicator(index % columns);
}

std::string textOf(const EXChoiceList& list) {
    std::string text;
    for (const auto& section : list.sections()) {
        if (section->items().empty() && !section->title()) continue;
        if (!text.empty()) text += "\n";
        if (section->title()) text += onOneLine(*section->title()) + "\n";
        for (const auto& item : section->items()) {
            std::string line = fmt::format("  {:<30}  {}", onOneLine(item->title().value_or("")),
                                           iconText(item->iconIndex()));
            text += line.erase(line.find_last_not_of(' ') + 1) + "\n";
        }
    }
    return text;
}

void printList(const EXChoiceList& list, Format format) {
    print(format == Format::JSON ? choiceListJson(list) : textOf(list));
}

}  // namespace

void runProjects(Format format) {
    printList(*publishedRepository()->allProjectProxiesChoiceList(), format);
}

void runCategories(Format format) {
    printList(*publishedRepository()->allCategoryProxiesChoiceList(), format);
}

}  // namespace corvane::cli
