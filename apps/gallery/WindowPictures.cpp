#include "apps/gallery/WindowPictures.h"

#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/TaskTable.h"

#include <QApplication>

namespace corvane::gallery {

namespace {

void settle() {
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

}  // namespace

std::vector<WindowPicture> windowPictures() {
    std::vector<WindowPicture> pictures;
    for (const bool dark : {false, true}) {
        useDarkPalette(dark);
        GalleryWindow window;
        window.show();
        window.activateWindow();
        settle();
        const std::string suffix = dark ? "-dark" : "-light";
        const auto take = [&](const std::string& name) {
            settle();
            pictures.push_back({name + suffix, window.grab()});
        };
        auto& right = window.rightTable().table();
        right.performSelectRowAtIndexPath({0, 1});
        auto& left = window.leftTable().table();
        left.performSelectRowAtIndexPath({0, 1});
        left.selectRangeToCell(left.cellForRowAtIndexPath({1, 0}));
        take("tables-selection");
        window.leftTable().table().startInlineEditingRowAtIndexPath(CVIndexPath(0, 3));
        take("tables-editing");
        window.leftTable().table().startInlineEditingRowAtIndexPath(std::nullopt);
        take("tables-placeholder");
    }
    useDarkPalette(false);
    return pictures;
}

}  // namespace corvane::gallery
