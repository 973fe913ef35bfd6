#include "corvane/vocabulary/ChoiceListBuilding.h"

#include "corvane/platform/Locale.h"
#include "corvane/vocabulary/EXLocalizable.h"
#include "corvane/vocabulary/VocabularyKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using platform::Locale;
using platform::ScopedLanguages;
using platform::ScopedLocale;

/// The titles of the indicator menu; looks for every item's code and icon on the way.
std::string indicatorTitles() {
    std::string result;
    auto list = choiceListInTitleOrder(kIndicatorKeys, ItemIcons::Codes);
    for (auto& item : list->firstSection()->items()) {
        auto code = static_cast<std::size_t>(item->value().integerValue());
        EXPECT_EQ(item->title(), EXLocalizable::localize(kIndicatorKeys.at(code)));
        EXPECT_EQ(item->value(), EXValue(item->iconIndex()));
        result += (result.empty() ? "" : ", ") + item->title().value_or("?");
    }
    return result;
}

TEST(ChoiceListBuilding, TheIndicatorMenuIsAlphabeticalInEachLanguage) {
    {
        ScopedLanguages languages({"en"});
        ScopedLocale locale(Locale("en"));
        EXPECT_EQ(indicatorTitles(),
                  "Android, App, Apple, Brain, Brush, Bug, Camera, Car, Cloud, Computer, Cooking, "
                  "Decision, Email, Exclamation Mark, Fitness, Flower, Game, Gear, Gift, Glasses, "
                  "Hammer, Handshake, Heart, Home, Light Bulb, List, Megaphone, Money, Music, "
                  "None, Office, Phone, Plane, Question Mark, Shopping Bag, Smartphone, "
                  "Speech Bubble, Star, Tablet, TV, Video, Wave, Web, Windows, Yin and Yang");
    }
    ScopedLanguages languages({"de_AT", "en"});
    ScopedLocale locale(Locale("de_AT"));
    EXPECT_EQ(indicatorTitles(),
              "Android, App, Apple, Ausrufezeichen, Auto, Blume, Brille, Büro, Computer, E-Mail, "
              "Einkaufstasche, Entscheidung, Fernseher, Fitness, Flugzeug, Fragezeichen, Gehirn, "
              "Geld, Geschenk, Glühbirne, Hammer, Handschlag, Herz, Käfer, Kamera, Keines, Kochen, "
              "Liste, Megafon, Musik, Pinsel, Smartphone, Spiel, Sprechblase, Stern, Tablet, "
              "Telefon, Video, Web, Welle, Windows, Wolke, Yin und Yang, Zahnrad, Zuhause");
}

TEST(ChoiceListBuilding, TitlesThatCollateAlikeShareOneItem) {
    EXLocalizable::addStringTable("et", "Alike1 = Größe\nAlike2 = GROßE\nOther = Ä");
    ScopedLanguages languages({"et"});
    const std::string_view keys[] = {"Alike1", "Other", "Alike2"};
    auto list = choiceListInTitleOrder(keys, ItemIcons::None);
    ASSERT_EQ(list->itemCount(), 2);
    EXPECT_EQ(list->titleForItemAtIndex(0), "Ä");
    EXPECT_EQ(list->itemAtIndex(0)->iconIndex(), -1);
}

}  // namespace
}  // namespace corvane
