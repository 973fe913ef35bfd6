#include "corvane/vocabulary/HGIndicatorNameProvider.h"

namespace corvane {

const std::vector<std::string>& HGIndicatorNameProvider::allCategoryIndicatorNames() {
    // The titles of 20 and 21 are "App" and "Brush", the other way round than their images are
    // named. Stored codes and image files depend on both, so neither may be put right.
    static const std::vector<std::string> names{
        "default", "phone",    "email",        "question",      "problems",   // to 4
        "idea",    "agenda",   "errands",      "computer",      "home",       // to 9
        "office",  "review",   "gear",         "music",         "photo",      // to 14
        "wave",    "decision", "development",  "money",         "megaphone",  // to 19
        "brush",   "app",      "bug",          "car",           "cloud",      // to 24
        "cook",    "game",     "plane",        "star",          "tv",         // to 29
        "brain",   "gift",     "speechbubble", "video",         "fitness",    // to 34
        "flower",  "yin-yang", "device-phone", "device-tablet", "apple",      // to 39
        "android", "windows",  "web",          "handshake",     "heart"       // to 44
    };
    return names;
}

const std::vector<std::string>& HGIndicatorNameProvider::allTaskStatusIndicatorNames() {
    static const std::vector<std::string> names{
        "status-inbox",      "status-someday",     "status-scratchpad",
        "status-actionable", "status-in-progress", "status-on-hold",
        "status-completed",  "status-canceled",    "status-trash"};
    return names;
}

const std::string& HGIndicatorNameProvider::nameForCategoryIndicator(std::int64_t code) {
    return allCategoryIndicatorNames().at(static_cast<std::size_t>(code));
}

const std::string& HGIndicatorNameProvider::nameForTaskStatusIndicator(std::int64_t code) {
    return allTaskStatusIndicatorNames().at(static_cast<std::size_t>(code));
}

}  // namespace corvane
