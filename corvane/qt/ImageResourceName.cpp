#include "corvane/qt/ImageResourceName.h"

namespace corvane::qt {

namespace {

constexpr double kNormalSide = 24;
constexpr double kSmallSide = 16;
constexpr double kUltraSmallSide = 12;

bool removeSuffix(std::string_view& name, std::string_view suffix) {
    // Something must be left to be a name.
    if (name.size() <= suffix.size() || !name.ends_with(suffix)) return false;
    name.remove_suffix(suffix.size());
    return true;
}

}  // namespace

ImageResourceName ImageResourceName::parse(std::string_view name) {
    if (!removeSuffix(name, "-t")) return {name, kNormalSide};
    if (removeSuffix(name, "-us")) return {name, kUltraSmallSide};
    if (removeSuffix(name, "-s")) return {name, kSmallSide};
    return {name, kNormalSide};
}

}  // namespace corvane::qt
