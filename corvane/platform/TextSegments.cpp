#include "corvane/platform/TextSegments.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <memory>

namespace corvane::platform {

namespace {

struct CloseText {
    void operator()(UText* text) const { utext_close(text); }
};

}  // namespace

std::string firstCharacters(std::string_view text, std::size_t count) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UText, CloseText> unicode(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
    // The characters of a text are the same in every language.
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) return std::string(text);
    characters->setText(unicode.get(), status);
    std::int32_t end = 0;
    for (; count > 0 && end != icu::BreakIterator::DONE; --count)
        end = characters->next();
    return std::string(text.substr(0, static_cast<std::size_t>(end)));
}

}  // namespace corvane::platform
