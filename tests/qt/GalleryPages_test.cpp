#include "corvane/models/CVToolManager.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/MainBundle.h"
#include "corvane/platform/StringTable.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/HGMacListView.h"
#include "corvane/views/Button.h"
#include "corvane/views/Label.h"
#include "corvane/views/SegmentedControl.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/IconSheet.h"
#include "apps/gallery/Resources.h"
#include "apps/gallery/Texts.h"
#include "apps/gallery/Tools.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <functional>
#include <set>

using namespace corvane;
using views::View;

namespace {

std::string resource(const std::string& file) {
    return platform::readTextFile(CORVANE_GALLERY_RESOURCES "/" + file).value_or("");
}

void settle() {
    for (int i = 0; i < 10; ++i)
        QApplication::processEvents();
}

/// The window in a language, with all its texts.
struct Program {
    explicit Program(const std::string& locale)
        : formats(platform::Locale(locale)),
          languages({locale}),
          resources(resource(gallery::kPaletteFile), resource(gallery::kImagesFile),
                    gallery::Resources::Icons::Drawn) {
        EXStyleCollection::setDefaultCollection(std::make_shared<HGCorvaneStyleCollection>());
        gallery::addTexts();
        gallery::registerTools();
        window = std::make_unique<gallery::GalleryWindow>();
        window->show();
        window->activateWindow();
        settle();
    }
    ~Program() { EXStyleCollection::setDefaultCollection(nullptr); }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    platform::ScopedLocale formats;
    platform::ScopedLanguages languages;
    platform::ScopedMainBundle bundle{std::string(CORVANE_GALLERY_RESOURCES)};
    qt::QtRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    qt::QtTextMeasurer measurer;
    views::ScopedTextMeasurer measurerScope{measurer};
    gallery::Resources resources;
    ScopedToolRegister tools;
    std::unique_ptr<gallery::GalleryWindow> window;
};

using Visit = std::function<void(const std::shared_ptr<View>&)>;

/// All that is not hidden. Of tables and lists only themselves.
void visit(const std::shared_ptr<View>& view, const Visit& each) {
    if (view->isHidden()) return;
    each(view);
    const bool hasRows =
        dynamic_cast<CVMacTableView*>(view.get()) || dynamic_cast<HGMacListView*>(view.get());
    if (hasRows) return;
    for (const auto& inside : view->subviews())
        visit(inside, each);
}

/// What is cut off in the view, because it is narrower than its text.
std::string cutOff(View& view) {
    const double room = view.frame().width + 0.5;
    if (const auto* label = dynamic_cast<views::Label*>(&view)) {
        const auto size = views::textMeasurer().sizeOfText(label->text(), label->font());
        return !label->wraps() && size.width > room ? label->text() : "";
    }
    const bool hasTitle =
        dynamic_cast<views::Button*>(&view) || dynamic_cast<views::SegmentedControl*>(&view);
    if (!hasTitle || view.preferredSizeThatFits({10000, 10000}).width <= room) return "";
    return view.accessibilityName() + view.accessibilityValue() + ", in " + std::to_string(room);
}

std::string nameOf(const View& view) {
    return std::string(typeid(view).name()) + " " + view.accessibilityName();
}

}  // namespace

TEST(GalleryPagesTest, ShowNoTextThatIsCutOffInAnyLanguage) {
    for (const char* locale : {"en_US", "de_DE", "ar_EG"}) {
        const Program program(locale);
        for (const auto& page : gallery::toolIdentifiers()) {
            ASSERT_TRUE(program.window->showPage(page)) << page;
            settle();
            ASSERT_TRUE(program.window->page()) << page;
            visit(program.window->host().viewWindow().contentView(), [&](const auto& view) {
                EXPECT_EQ(cutOff(*view), "") << page << " in " << locale;
            });
        }
        EXPECT_FALSE(program.window->showPage("no page"));
    }
}

TEST(GalleryPagesTest, LeadTabThroughAllTheirControlsAndBack) {
    const Program program("en_US");
    auto& window = program.window->host().viewWindow();
    for (const auto& page : gallery::toolIdentifiers()) {
        program.window->showPage(page);
        settle();
        std::set<std::string> all;
        visit(program.window->page(), [&](const auto& view) {
            if (view->canBecomeKeyView()) all.insert(nameOf(*view));
        });
        ASSERT_FALSE(all.empty()) << page;
        for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
            std::set<std::string> reached;
            for (int i = 0; i < 80; ++i) {
                QKeyEvent tab(QEvent::KeyPress,
                              modifiers == Qt::NoModifier ? Qt::Key_Tab : Qt::Key_Backtab,
                              modifiers);
                QApplication::sendEvent(QApplication::focusWidget(), &tab);
                settle();
                ASSERT_TRUE(window.firstResponder()) << page;
                reached.insert(nameOf(*window.firstResponder()));
            }
            for (const auto& name : all)
                EXPECT_TRUE(reached.contains(name)) << name << " on " << page;
        }
    }
}

TEST(GalleryTextsTest, HaveTheSameKeysInAllLanguages) {
    std::map<std::string, platform::StringTable::Entries> tables;
    for (const auto& language : gallery::languagesWithTexts()) {
        const auto parsed =
            platform::StringTable::parse(resource("gallery." + language + ".strings"));
        EXPECT_TRUE(parsed.problems.empty()) << language;
        tables[language] = parsed.table.entries();
        EXPECT_FALSE(tables[language].empty()) << language;
    }
    // The other way round, Arabic also has what the library has in German by itself.
    for (const auto& [key, text] : tables.at("de"))
        EXPECT_TRUE(tables.at("ar").contains(key)) << key;
}

TEST(GalleryPages, LookWithAnotherFontAsIfTheyHadBegunWithIt) {
    const Program program("en");
    const QFont before = QApplication::font();
    QFont wide = before;
    wide.setStretch(130);
    for (const auto& page : gallery::toolIdentifiers()) {
        program.window->showPage(page);
        settle();
        QApplication::setFont(wide);
        program.window->activateWindow();
        settle();
        const QImage changed = program.window->grab().toImage();
        gallery::GalleryWindow fresh;
        fresh.showPage(page);
        fresh.show();
        fresh.activateWindow();
        settle();
        EXPECT_TRUE(changed == fresh.grab().toImage()) << page;
        QApplication::setFont(before);
    }
}
