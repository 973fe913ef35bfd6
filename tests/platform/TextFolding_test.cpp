#include "corvane/platform/TextFolding.h"

#include <gtest/gtest.h>

namespace corvane::platform {
namespace {

TEST(TextFolding, FoldsCaseAndAccentsAndNothingElse) {
    struct {
        const char* what;
        const char* locale;
        const char* text;
        const char* folded;
    } const cases[] = {
        {"nothing", "en", "", ""},
        {"ASCII", "en", "Hello, World [42]", "hello, world [42]"},
        {"Latin", "en", "Café CRÈME Ågren", "cafe creme agren"},
        {"Vietnamese, two marks", "vi", "Tiếng Việt", "tieng viet"},
        {"decomposed", "en", "Cafe\u0301", "cafe"},
        {"Greek", "el", "Άνοιξη ΑΣ", "ανοιξη ας"},
        {"Cyrillic", "ru", "Ёлка Йод", "елка иод"},
        {"letters of their own", "de", "Straße ØŁÆ ﬁn", "straße øłæ ﬁn"},
        {"Kana keep their voicing", "ja", "ガぱカハ", "ガぱカハ"},
        {"decomposed Kana are composed", "ja", "カ\u3099", "ガ"},
        {"Devanagari", "hi", "हिन्दी", "हिन्दी"},
        {"Tamil", "ta", "தமிழ்", "தமிழ்"},
        {"Arabic hamza", "ar", "آ", "آ"},
        {"Hangul", "ko", "한글", "한글"},
        {"a Latin accent anywhere", "en", "カ\u0301", "カ"},
        {"a foreign mark on a Latin letter", "en", "a\u3099", "a"},
        {"a mark without base", "en", "\u3099x", "\u3099x"},
        {"beyond the basic plane", "en", "\U00010400😀", "\U00010428😀"},
        {"dotted capital", "en", "İstanbul", "istanbul"},
        {"Turkish ASCII", "tr", "ILIK", "ılık"},
        {"Turkish ASCII without I", "tr", "KALEM", "kalem"},
        {"Turkish dotted capital", "tr_TR", "İstanbul IĞDIR", "istanbul ıgdır"},
        {"Azerbaijani, decomposed", "az", "I\u0307", "i"},
        {"Turkish accented dotless I", "tr", "Ì", "ı"},
        {"ill-formed", "en", "A\xFF\xC3", "a\uFFFD\uFFFD"},
    };
    for (auto& [what, locale, text, folded] : cases)
        EXPECT_EQ(foldedForCollation(text, Locale(locale)), folded) << what;
}

// Beside a letter that needs the full way, ASCII must come out as it does alone.
TEST(TextFolding, TheShortWayForASCIIAgreesWithTheFullOne) {
    for (auto name : {"en", "tr", "lt"}) {
        Locale locale(name);
        for (int c = 1; c < 0x80; ++c) {
            std::string text(1, static_cast<char>(c));
            EXPECT_EQ(foldedForCollation(text, locale) + "カ",
                      foldedForCollation(text + "カ", locale))
                << name << " " << c;
        }
    }
}

}  // namespace
}  // namespace corvane::platform
