#include "corvane/platform/CaseFolding.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>

#include <algorithm>
#include <string>

namespace corvane::platform {

namespace {

std::string folded(std::string_view text) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8Fold(0, {text.data(), static_cast<int32_t>(text.size())}, sink, nullptr,
                           status);
    return U_FAILURE(status) ? std::string(text) : result;
}

}  // namespace

int compareIgnoringCase(std::string_view a, std::string_view b) {
    // The order of UTF-8's bytes is that of code points.
    return std::clamp(folded(a).compare(folded(b)), -1, 1);
}

}  // namespace corvane::platform
