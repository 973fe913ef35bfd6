#include "corvane/platform/WritingDirection.h"

#include <unicode/locid.h>

namespace corvane::platform {

bool isRightToLeft(const Locale& locale) {
    return icu::Locale(locale.identifier().c_str()).isRightToLeft();
}

}  // namespace corvane::platform
