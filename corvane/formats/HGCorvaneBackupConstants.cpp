#include "corvane/formats/HGCorvaneBackupConstants.h"

#include "corvane/vocabulary/VocabularyKeys.h"

#include <array>
#include <span>
#include <string_view>

namespace corvane {

namespace {

using Names = std::span<const std::string_view>;

// Names that are not also the keys of titles. The position is the code; an entry never moves and
// no text changes, which goes for the shared tables of the vocabulary as well.

constexpr std::array<std::string_view, 34> kIndicatorNames{
    "Default", "Phone",    "Email",        "Question", "Issue",      // to 4
    "Idea",    "Agenda",   "Errands",      "Computer", "Home",       // to 9
    "Office",  "Review",   "Gear",         "Music",    "Photo",      // to 14
    "Wave",    "Decision", "Hammer",       "Money",    "Megaphone",  // to 19
    "App",     "Brush",    "Bug",          "Car",      "Cloud",      // to 24
    "Cooking", "Game",     "Plane",        "Star",     "TV",         // to 29
    "Brain",   "Gift",     "Speechbubble", "Video"                   // to 33
};
constexpr std::array<std::string_view, 2> kTaskSourceNames{"None", "Reminder"};
constexpr std::array<std::string_view, 4> kCustomRepeatFrequencyNames{"Daily", "Weekly", "Monthly",
                                                                      "Yearly"};
constexpr std::array<std::string_view, 1> kAttachmentTypeNames{"Link"};

EXXMLMapping mappingInCodeOrder(Names names) {
    EXXMLMapping mapping;
    std::int64_t code = 0;
    for (const auto name : names)
        mapping.setObject(std::string(name), code++);
    return mapping;
}

}  // namespace

const EXXMLMapping& HGCorvaneBackupConstants::colorMapping() {
    static const auto mapping = mappingInCodeOrder(kColorKeys);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::indicatorMapping() {
    static const auto mapping = mappingInCodeOrder(kIndicatorNames);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::priorityMapping() {
    static const auto mapping = mappingInCodeOrder(kPriorityKeys);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::projectStatusMapping() {
    static const auto mapping = mappingInCodeOrder(kProjectStatusKeys);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::taskStatusMapping() {
    static const auto mapping = mappingInCodeOrder(kTaskStatusKeys);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::taskSourceMapping() {
    static const auto mapping = mappingInCodeOrder(kTaskSourceNames);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::taskRepeatMapping() {
    // A rule of the task's own has another name here than its title has a key.
    static const auto mapping = [] {
        constexpr std::size_t kCustom = kTaskRepeatKeys.size() - 1;
        auto result = mappingInCodeOrder(Names(kTaskRepeatKeys).first(kCustom));
        result.setObject("Custom", kCustom);
        return result;
    }();
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::customRepeatFrequencyMapping() {
    static const auto mapping = mappingInCodeOrder(kCustomRepeatFrequencyNames);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::actionStatusMapping() {
    static const auto mapping = mappingInCodeOrder(kActionStatusKeys);
    return mapping;
}

const EXXMLMapping& HGCorvaneBackupConstants::attachmentTypeMapping() {
    static const auto mapping = mappingInCodeOrder(kAttachmentTypeNames);
    return mapping;
}

}  // namespace corvane
