#include "corvane/views/Mirroring.h"

#include "corvane/platform/Locale.h"
#include "corvane/platform/WritingDirection.h"

#include <string>
#include <utility>

namespace corvane::views {

bool isMirrored() {
    // Asked for every text that is drawn; the locale's own data take longer to find.
    static std::pair<std::string, bool> last;
    const platform::Locale locale = platform::currentLocale();
    if (last.first != locale.identifier())
        last = {locale.identifier(), platform::isRightToLeft(locale)};
    return last.second;
}

platform::Rect mirrored(const platform::Rect& rect, double widthOfView) {
    if (!isMirrored()) return rect;
    return {widthOfView - rect.x - rect.width, rect.y, rect.width, rect.height};
}

TextAlignment leadingAlignment() {
    return isMirrored() ? TextAlignment::Right : TextAlignment::Left;
}

TextAlignment trailingAlignment() {
    return isMirrored() ? TextAlignment::Left : TextAlignment::Right;
}

TextAlignment resolved(TextAlignment alignment) {
    if (alignment == TextAlignment::Leading) return leadingAlignment();
    return alignment == TextAlignment::Trailing ? trailingAlignment() : alignment;
}

}  // namespace corvane::views
