#include "apps/gallery/Pictures.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDetailForm.h"
#include "corvane/controls/CVMacTabularOverview.h"
#include "corvane/controls/CVMacToolbar.h"
#include "corvane/dates/HGCustomRepeat.h"
#include "corvane/platform/Color.h"
#include "corvane/platform/Locale.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/views/ScrollView.h"

#include "apps/gallery/BarsPage.h"
#include "apps/gallery/DatesPage.h"
#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/IconSheetView.h"
#include "apps/gallery/ListsPage.h"
#include "apps/gallery/RepeatPage.h"
#include "apps/gallery/TaskPage.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/Tools.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <cstdio>
#include <functional>
#include <vector>

namespace corvane::gallery {

namespace {

using platform::Appearance;

/// What is to be seen of a page: something done to it, or nothing.
struct State {
    std::string page;
    std::string suffix;
    std::function<void(GalleryWindow& window)> prepare;
};

void settle() {
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

bool save(const QImage& picture, const std::string& path) {
    if (picture.save(QString::fromStdString(path))) {
        std::printf("%s\n", path.c_str());
        return true;
    }
    std::fprintf(stderr, "corvane-gallery: could not write %s\n", path.c_str());
    return false;
}

std::string fileEnding(Appearance appearance, int scale) {
    return std::string(appearance == Appearance::Dark ? "-dark" : "-light") +
           (scale == 2 ? "@2x.png" : ".png");
}

template <class Page>
Page& pageOf(GalleryWindow& window) {
    return dynamic_cast<Page&>(*window.page());
}

void selectRows(GalleryWindow& window) {
    auto& lists = pageOf<ListsPage>(window);
    lists.rightTable().table().performSelectRowAtIndexPath({0, 1});
    auto& left = lists.leftTable().table();
    left.performSelectRowAtIndexPath({0, 1});
    left.selectRangeToCell(left.cellForRowAtIndexPath({1, 0}));
}

std::vector<State> allStates() {
    std::vector<State> states;
    for (const auto& page : toolIdentifiers())
        states.push_back({page, "", nullptr});
    states.push_back({"lists", "-selection", selectRows});
    states.push_back(
        {"lists", "-editing", [](GalleryWindow& window) {
             pageOf<ListsPage>(window).leftTable().table().startInlineEditingRowAtIndexPath(
                 CVIndexPath(0, 3));
         }});
    states.push_back(
        {"lists", "-placeholder", [](GalleryWindow& window) {
             pageOf<ListsPage>(window).leftTable().table().startInlineEditingRowAtIndexPath(
                 std::nullopt);
         }});
    states.push_back({"overview", "-search", [](GalleryWindow& window) {
                          auto& overview = pageOf<CVMacOverview>(window);
                          overview.overviewTable()->performSelectRowAtIndexPath({1, 0});
                          overview.toolbar()->validateActions();
                          overview.showOverviewSearchBar();
                      }});
    states.push_back(
        {"table", "-sorted", [](GalleryWindow& window) {
             pageOf<CVMacTabularOverview>(window).setSorting("title", true);
             pageOf<CVMacTabularOverview>(window).overviewTable()->performSelectRowAtIndexPath(
                 {0, 1});
         }});
    states.push_back({"task", "-below", [](GalleryWindow& window) {
                          pageOf<TaskPage>(window).form().scrollView()->scrollBy(0, 4000);
                      }});
    states.push_back({"repeat", "-monthly", [](GalleryWindow& window) {
                          pageOf<RepeatPage>(window).setRepeat(
                              HGCustomRepeat(HGCustomRepeat::kMonthly, 3, 0b1000000000000001));
                      }});
    states.push_back({"repeat", "-yearly", [](GalleryWindow& window) {
                          pageOf<RepeatPage>(window).setRepeat(
                              HGCustomRepeat(HGCustomRepeat::kYearly, 1, 0b100000010000));
                      }});
    states.push_back({"dates", "-chooser", [](GalleryWindow& window) {
                          window.host().viewWindow().makeFirstResponder(
                              pageOf<DatesPage>(window).dateField());
                      }});
    states.push_back({"bars", "-large", [](GalleryWindow& window) {
                          pageOf<BarsPage>(window).toolbar().setUsesLargeIcons(true);
                          pageOf<BarsPage>(window).setNeedsApplyLayout();
                          window.resize(700, window.height());
                      }});
    states.push_back(
        {"bars", "-sheet", [](GalleryWindow& window) { pageOf<BarsPage>(window).showSheet(); }});
    states.push_back(
        {"bars", "-panel", [](GalleryWindow& window) { pageOf<BarsPage>(window).showPanel(); }});
    return states;
}

bool writeState(const State& state, const std::string& directory, Appearance appearance) {
    GalleryWindow window;
    window.show();
    window.activateWindow();
    window.showPage(state.page);
    settle();
    if (state.prepare) state.prepare(window);
    settle();
    const QImage picture = window.grab().toImage();
    const auto language = std::string(platform::currentLocale().language());
    const int scale = picture.devicePixelRatio() > 1 ? 2 : 1;
    return save(picture, directory + "/" + state.page + state.suffix + "-" + language +
                             fileEnding(appearance, scale));
}

}  // namespace

bool writePages(const std::string& directory, const std::optional<std::string>& page) {
    for (const auto appearance : {Appearance::Light, Appearance::Dark}) {
        useDarkPalette(appearance == Appearance::Dark);
        for (const auto& state : allStates())
            if ((!page || state.page == *page) && !writeState(state, directory, appearance))
                return false;
    }
    useDarkPalette(false);
    return true;
}

bool writeSheets(const std::string& directory) {
    for (const auto& sheet : allIconSheets())
        for (const auto appearance : {Appearance::Light, Appearance::Dark})
            for (const int scale : {1, 2})
                if (!save(pictureOfSheet(sheet, scale, appearance),
                          directory + "/" + sheet.name + fileEnding(appearance, scale)))
                    return false;
    return true;
}

}  // namespace corvane::gallery
