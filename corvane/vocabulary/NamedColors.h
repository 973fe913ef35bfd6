// The application's palette by the names of its colors. The values are the application's own: see
// corvane/platform/ColorResources.h. One thread: the one that draws.
#pragma once

#include "corvane/platform/Color.h"

#include <string_view>
#include <vector>

namespace corvane {

/// Each color is asked for when it is first needed and then kept for the process; it has a variant
/// for light and one for dark screens, so a change of appearance needs no new one. In place of a
/// color that the resources do not have, backgrounds are the paper of the appearance (near white,
/// near black) and everything else is a grey that shows on both; the first time that is a warning,
/// and the resources are asked again.
class NamedColors {
  public:
    NamedColors() = delete;

    static platform::Color colorNamed(std::string_view name);
    /// Those below.
    static const std::vector<std::string_view>& allNames();

    static platform::Color tintColor() { return colorNamed("tintColor"); }
    static platform::Color mainTextColor() { return colorNamed("mainTextColor"); }
    /// Of what explains or stands back.
    static platform::Color mainDescriptiveColor() { return colorNamed("mainDescriptiveColor"); }
    static platform::Color mainBackgroundColor() { return colorNamed("mainBackgroundColor"); }
    /// Of every other row.
    static platform::Color mainAlternateBackgroundColor() {
        return colorNamed("mainAlternateBackgroundColor");
    }
    static platform::Color selectedBackgroundColor() {
        return colorNamed("selectedBackgroundColor");
    }
    static platform::Color focusedBackgroundColor() { return colorNamed("focusedBackgroundColor"); }

    static platform::Color sectionHeaderTextColor() { return colorNamed("sectionHeaderTextColor"); }
    static platform::Color sectionHeaderBackgroundColor() {
        return colorNamed("sectionHeaderBackgroundColor");
    }
    static platform::Color sectionHeaderBackgroundAlternativeColor() {
        return colorNamed("sectionHeaderBackgroundAlternativeColor");
    }
    static platform::Color sectionHeaderBorderColor() {
        return colorNamed("sectionHeaderBorderColor");
    }
    static platform::Color sectionHeaderBorderAlternativeColor() {
        return colorNamed("sectionHeaderBorderAlternativeColor");
    }
    static platform::Color rowSeparatorColor() { return colorNamed("rowSeparatorColor"); }
    static platform::Color accessoryLineColor() { return colorNamed("accessoryLineColor"); }

    static platform::Color categoryGrayColor() { return colorNamed("categoryGrayColor"); }
    static platform::Color categoryPurpleColor() { return colorNamed("categoryPurpleColor"); }
    static platform::Color categoryVioletColor() { return colorNamed("categoryVioletColor"); }
    static platform::Color categoryBlueColor() { return colorNamed("categoryBlueColor"); }
    static platform::Color categoryCyanColor() { return colorNamed("categoryCyanColor"); }
    static platform::Color categoryGreenColor() { return colorNamed("categoryGreenColor"); }
    static platform::Color categoryOrangeColor() { return colorNamed("categoryOrangeColor"); }
    static platform::Color categoryRedColor() { return colorNamed("categoryRedColor"); }

    static platform::Color priorityLowestBackgroundColor() {
        return colorNamed("priorityLowestBackgroundColor");
    }
    static platform::Color priorityLowBackgroundColor() {
        return colorNamed("priorityLowBackgroundColor");
    }
    static platform::Color priorityHighBackgroundColor() {
        return colorNamed("priorityHighBackgroundColor");
    }
    static platform::Color priorityHighestBackgroundColor() {
        return colorNamed("priorityHighestBackgroundColor");
    }
};

}  // namespace corvane
