// The program corvane-gallery: the library's pictures and controls, to be looked at.
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/qt/PdfPages.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/IconSheet.h"
#include "apps/gallery/PublishedTasks.h"
#include "apps/gallery/Resources.h"
#include "apps/gallery/StateReport.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/WindowPictures.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace {

using namespace corvane;

constexpr const char* kUsage =
    "usage: corvane-gallery [--container DIRECTORY | --report FILE | --screenshots DIRECTORY |\n"
    "                        --print FILE]\n"
    "\n"
    "Shows tables to try, with their settings and what they tell: an example list, or with\n"
    "--container what is published in that directory. With --report, keeps the file up to date\n"
    "with what is in the window, as JSON. With --screenshots, writes pictures of the\n"
    "window instead, and every image and color of the application with captions, in light and\n"
    "dark, the latter at scale 1 and 2. With --print, prints the tasks of the tables to a PDF.\n"
    "The last two need no display.\n";

bool writeSheet(const gallery::IconSheet& sheet, const std::string& directory) {
    struct Variant {
        platform::Appearance appearance;
        double scale;
        const char* suffix;
    };
    for (const Variant& variant : {Variant{platform::Appearance::Light, 1, "-light.png"},
                                   Variant{platform::Appearance::Light, 2, "-light@2x.png"},
                                   Variant{platform::Appearance::Dark, 1, "-dark.png"},
                                   Variant{platform::Appearance::Dark, 2, "-dark@2x.png"}}) {
        const auto path = directory + "/" + sheet.name + variant.suffix;
        const auto image = sheet.rendered(variant.scale, variant.appearance);
        if (!image.save(QString::fromStdString(path))) {
            std::fprintf(stderr, "corvane-gallery: could not write %s\n", path.c_str());
            return false;
        }
        std::printf("%s\n", path.c_str());
    }
    return true;
}

bool writeWindow(const gallery::WindowPicture& picture, const std::string& directory) {
    const auto path = directory + "/" + picture.name + ".png";
    if (picture.pixels.save(QString::fromStdString(path))) {
        std::printf("%s\n", path.c_str());
        return true;
    }
    std::fprintf(stderr, "corvane-gallery: could not write %s\n", path.c_str());
    return false;
}

bool writeScreenshots(const std::string& directory) {
    if (auto error = platform::createDirectories(directory)) {
        std::fprintf(stderr, "corvane-gallery: %s: %s\n", directory.c_str(),
                     error->message.c_str());
        return false;
    }
    for (const auto& sheet : gallery::allIconSheets())
        if (!writeSheet(sheet, directory)) return false;
    for (const auto& picture : gallery::windowPictures())
        if (!writeWindow(picture, directory)) return false;
    return true;
}

bool printTasks(const std::string& path) {
    auto sections = gallery::exampleTasksForHome();
    for (auto& section : gallery::exampleTasksForWork())
        sections.push_back(std::move(section));
    const auto tasks = gallery::TaskTable::make("Tasks", std::move(sections), {});
    const QByteArray pdf = qt::pdfOfTable(tasks->sharedTable(), "Tasks");
    const auto error =
        platform::replaceFile(path, std::as_bytes(std::span(pdf)), platform::Durability::Rename);
    if (error)
        std::fprintf(stderr, "corvane-gallery: %s: %s\n", path.c_str(), error->message.c_str());
    return !error;
}

int showWindow(const char* reportPath, const char* container) {
    std::optional<gallery::PublishedTasks> published;
    if (container) {
        platform::setGroupContainerOverride(container);
        published = gallery::publishedTasks();
        if (!published) {
            std::fprintf(stderr, "corvane-gallery: nothing is published in %s\n", container);
            return 1;
        }
    }
    gallery::GalleryWindow window(std::move(published));
    window.show();
    std::optional<gallery::StateReport> report;
    if (reportPath) report.emplace(QString::fromLocal8Bit(reportPath));
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--help") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    const bool screenshots = argc == 3 && std::string_view(argv[1]) == "--screenshots";
    const bool prints = argc == 3 && std::string_view(argv[1]) == "--print";
    const bool needsNoDisplay = screenshots || prints;
    const bool reports = argc == 3 && std::string_view(argv[1]) == "--report";
    const bool published = argc == 3 && std::string_view(argv[1]) == "--container";
    if (argc != 1 && !needsNoDisplay && !reports && !published) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    // What goes into files must look the same with and without a display.
    if (needsNoDisplay) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    if (screenshots) QApplication::setStyle("fusion");
    qt::QtRunLoop loop;
    const platform::ScopedMainRunLoop loopScope(loop);
    qt::QtTextMeasurer measurer;
    const views::ScopedTextMeasurer measurerScope(measurer);
    const gallery::Resources resources;
    EXStyleCollection::setDefaultCollection(std::make_shared<HGCorvaneStyleCollection>());
    if (!needsNoDisplay)
        return showWindow(reports ? argv[2] : nullptr, published ? argv[2] : nullptr);
    return (screenshots ? writeScreenshots(argv[2]) : printTasks(argv[2])) ? 0 : 1;
}
