#include "corvane/views/Event.h"

#include "corvane/platform/TextEncoding.h"

namespace corvane::views {

namespace {

/// Keys are ASCII or of the private-use block, which has three bytes each.
std::string utf8(char32_t key) {
    if (key < 0x80) return std::string(1, static_cast<char>(key));
    std::string bytes;
    bytes += static_cast<char>(0xE0 | (key >> 12 & 0x0F));
    bytes += static_cast<char>(0x80 | (key >> 6 & 0x3F));
    bytes += static_cast<char>(0x80 | (key & 0x3F));
    return bytes;
}

double& interval() {
    static double seconds = 0.5;
    return seconds;
}

}  // namespace

KeyEvent::KeyEvent(char32_t key, std::uint64_t modifierFlags)
    : characters_(utf8(key)), modifierFlags_(modifierFlags) {}

char32_t KeyEvent::firstCharacter() const {
    const auto units = platform::utf16BigEndianFromUTF8(characters_);
    if (units.size() < 2) return 0;
    return static_cast<char32_t>(units[0] << 8 | units[1]);
}

bool KeyEvent::isText() const {
    if (modifierFlags_ & (kModifierCommand | kModifierControl)) return false;
    const char32_t first = firstCharacter();
    const bool functionKey = first >= 0xF700 && first <= 0xF8FF;
    return first >= U' ' && first != kKeyBackspace && !functionKey;
}

double doubleClickInterval() {
    return interval();
}

void setDoubleClickInterval(double seconds) {
    interval() = seconds;
}

}  // namespace corvane::views
