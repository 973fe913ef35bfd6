#include "corvane/vocabulary/NamedColors.h"

#include "corvane/platform/ColorResources.h"
#include "corvane/platform/Console.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace corvane {

namespace {

using platform::Color;

constexpr Color kMissingBackground({0.98, 0.98, 0.98}, {0.12, 0.12, 0.12});
constexpr Color kMissingColor({0.45, 0.45, 0.45}, {0.6, 0.6, 0.6});

Color fallbackFor(std::string_view name) {
    return name.find("Background") == name.npos ? kMissingColor : kMissingBackground;
}

void warnOnce(std::string_view name) {
    static std::set<std::string, std::less<>> warned;
    if (!warned.emplace(name).second) return;
    platform::currentConsole().writeLine("WARNING: Could not load color '" + std::string(name) +
                                         "'");
}

}  // namespace

Color NamedColors::colorNamed(std::string_view name) {
    static std::map<std::string, Color, std::less<>> kept;
    auto found = kept.find(name);
    if (found != kept.end()) return found->second;
    auto color = platform::colorResources().colorNamed(name);
    if (color) return kept.emplace(name, *color).first->second;
    warnOnce(name);
    return fallbackFor(name);
}

const std::vector<std::string_view>& NamedColors::allNames() {
    static const std::vector<std::string_view> names{
        "tintColor",
        "mainTextColor",
        "mainDescriptiveColor",
        "mainBackgroundColor",
        "mainAlternateBackgroundColor",
        "selectedBackgroundColor",
        "focusedBackgroundColor",
        "sectionHeaderTextColor",
        "sectionHeaderBackgroundColor",
        "sectionHeaderBackgroundAlternativeColor",
        "sectionHeaderBorderColor",
        "sectionHeaderBorderAlternativeColor",
        "rowSeparatorColor",
        "accessoryLineColor",
        "categoryGrayColor",
        "categoryPurpleColor",
        "categoryVioletColor",
        "categoryBlueColor",
        "categoryCyanColor",
        "categoryGreenColor",
        "categoryOrangeColor",
        "categoryRedColor",
        "priorityLowestBackgroundColor",
        "priorityLowBackgroundColor",
        "priorityHighBackgroundColor",
        "priorityHighestBackgroundColor",
    };
    return names;
}

}  // namespace corvane
