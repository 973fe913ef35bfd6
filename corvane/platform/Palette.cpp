#include "corvane/platform/Palette.h"

#include "corvane/platform/StringTable.h"

#include <charconv>
#include <cstdint>

namespace corvane::platform {

namespace {

constexpr std::string_view kBlanks = " \t";

/// "#RRGGBB", or "#RRGGBBAA".
std::optional<RGBA> parsedColor(std::string_view text) {
    if (!text.starts_with('#') || (text.size() != 7 && text.size() != 9)) return std::nullopt;
    std::uint32_t bits = 0;
    const char* last = text.data() + text.size();
    auto [end, error] = std::from_chars(text.data() + 1, last, bits, 16);
    if (error != std::errc() || end != last) return std::nullopt;
    if (text.size() == 7) bits = bits << 8 | 0xFF;
    const auto part = [&](int shift) { return (bits >> shift & 0xFF) / 255.0; };
    return RGBA{part(24), part(16), part(8), part(0)};
}

/// One color for both appearances, or a light and a dark one.
std::optional<Color> parsedPair(std::string_view text) {
    const auto blank = text.find_first_of(kBlanks);
    const auto light = parsedColor(text.substr(0, blank));
    if (!light) return std::nullopt;
    if (blank == text.npos) return Color(*light);
    const auto dark = parsedColor(text.substr(text.find_first_not_of(kBlanks, blank)));
    if (!dark) return std::nullopt;
    return Color(*light, *dark);
}

}  // namespace

Palette Palette::parse(std::string_view text) {
    Palette palette;
    const auto parsed = StringTable::parse(text);
    for (const auto& problem : parsed.problems)
        palette.problems_.push_back("line " + std::to_string(problem.line) + ": " +
                                    problem.message);
    for (const auto& [name, value] : parsed.table.entries())
        if (auto color = parsedPair(value))
            palette.colors_.emplace(name, *color);
        else
            palette.problems_.push_back(name + ": not one or two colors");
    return palette;
}

std::optional<Color> Palette::colorNamed(std::string_view name) {
    auto found = colors_.find(name);
    if (found == colors_.end()) return std::nullopt;
    return found->second;
}

}  // namespace corvane::platform
