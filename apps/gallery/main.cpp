// The program corvane-gallery: the library's pictures and controls, to be looked at.
#include "corvane/platform/Clock.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/Files.h"
#include "corvane/platform/GroupContainer.h"
#include "corvane/platform/KnownLocales.h"
#include "corvane/platform/TimeZone.h"
#include "corvane/platform/UserDefaultsLocation.h"
#include "corvane/platform/WritingDirection.h"
#include "corvane/qt/PdfPages.h"
#include "corvane/qt/QtPopOvers.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"

#include "apps/ExitCodes.h"
#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/Pictures.h"
#include "apps/gallery/StateReport.h"
#include "apps/gallery/Surroundings.h"
#include "apps/gallery/TaskTable.h"
#include "apps/gallery/Tools.h"

#include <CLI/CLI.hpp>

#include <QApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane::gallery {

namespace {

/// What the command line says; empty for what it does not.
struct Arguments {
    std::string container;
    std::string report;
    std::string screenshots;
    std::string sheets;
    std::string print;
    std::string page;
    std::string locale;
    std::string appearance;
    std::string scale;

    bool needsNoDisplay() const {
        return !screenshots.empty() || !sheets.empty() || !print.empty();
    }
};

std::string checkLocale(const std::string& text) {
    return platform::knownLocale(text) ? "" : "there is no locale '" + text + "'";
}

void describe(CLI::App& app, Arguments& arguments) {
    app.description("Shows the library's lists, forms and controls, to be tried and looked at.");
    auto* container = app.add_option("--container", arguments.container,
                                     "Lists what is published in that directory");
    app.add_option("--page", arguments.page, "Begins with that page; of pictures, that one alone");
    app.add_option("--locale", arguments.locale, "Language and formats, such as de_AT")
        ->check(CLI::Validator(checkLocale, ""));
    app.add_option("--appearance", arguments.appearance, "light or dark")
        ->check(CLI::IsMember({"light", "dark"}));
    app.add_option("--scale", arguments.scale, "Pixels to a point")->check(CLI::Range(1.0, 4.0));
    app.add_option("--report", arguments.report,
                   "Keeps the file up to date with what is in the window, as JSON, and prints what "
                   "the controls tell");
    auto* screenshots = app.add_option("--screenshots", arguments.screenshots,
                                       "Instead writes pictures of all pages, light and dark");
    auto* sheets =
        app.add_option("--sheets", arguments.sheets, "Instead writes every image and color");
    auto* print =
        app.add_option("--print", arguments.print, "Instead prints the example tasks to a PDF");
    for (auto* written : {screenshots, sheets, print})
        written->excludes(container)->excludes("--report");
    for (auto* option : app.get_options())
        option->type_name("");
    app.footer("The last three need no display.");
}

bool makeDirectory(const std::string& directory) {
    const auto error = platform::createDirectories(directory);
    if (error)
        std::fprintf(stderr, "corvane-gallery: %s: %s\n", directory.c_str(),
                     error->message.c_str());
    return !error;
}

bool printTasks(const std::string& path) {
    auto sections = exampleTasksForHome();
    for (auto& section : exampleTasksForWork())
        sections.push_back(std::move(section));
    const auto tasks = TaskTable::make("Tasks", std::move(sections), {});
    const QByteArray pdf = qt::pdfOfTable(tasks->sharedTable(), "Tasks");
    const auto error =
        platform::replaceFile(path, std::as_bytes(std::span(pdf)), platform::Durability::Rename);
    if (error)
        std::fprintf(stderr, "corvane-gallery: %s: %s\n", path.c_str(), error->message.c_str());
    return !error;
}

bool isPage(const std::string& page) {
    const auto pages = toolIdentifiers();
    if (page.empty() || std::find(pages.begin(), pages.end(), page) != pages.end()) return true;
    std::string known;
    for (const auto& one : pages)
        known += (known.empty() ? "" : ", ") + one;
    std::fprintf(stderr, "corvane-gallery: there is no page '%s', but %s\n", page.c_str(),
                 known.c_str());
    return false;
}

bool writeFiles(const Arguments& arguments) {
    // The same on every day and for every user.
    const QTemporaryDir settings;
    platform::setUserDefaultsDirectoryOverride(settings.path().toStdString());
    const auto day = platform::TimeZone::utc().instantFromCivil({2026, 5, 4, 9, 0, 0});
    const platform::FixedClock clock(day);
    const platform::ScopedClock clockScope(clock);
    const platform::ScopedTimeZone zoneScope(platform::TimeZone::utc());
    const auto page = arguments.page.empty() ? std::nullopt : std::optional(arguments.page);
    if (const auto& directory = arguments.sheets; !directory.empty())
        if (!makeDirectory(directory) || !writeSheets(directory)) return false;
    if (const auto& directory = arguments.screenshots; !directory.empty())
        if (!makeDirectory(directory) || !writePages(directory, page)) return false;
    return arguments.print.empty() || printTasks(arguments.print);
}

int showWindow(const Arguments& arguments) {
    qt::QtPopOvers popOvers;
    const ScopedPopOverPresenter popOverScope(popOvers);
    if (!arguments.appearance.empty()) useDarkPalette(arguments.appearance == "dark");
    GalleryWindow window;
    if (!arguments.page.empty()) window.showPage(arguments.page);
    window.setEchoes(!arguments.report.empty());
    window.show();
    std::optional<StateReport> report;
    if (!arguments.report.empty()) report.emplace(QString::fromStdString(arguments.report));
    return QApplication::exec();
}

int run(const Arguments& arguments) {
    std::optional<PublishedTasks> published;
    if (!arguments.container.empty()) {
        platform::setGroupContainerOverride(arguments.container);
        published = publishedTasks();
        if (!published) {
            std::fprintf(stderr, "corvane-gallery: nothing is published in %s\n",
                         arguments.container.c_str());
            return kFailed;
        }
    }
    const Surroundings surroundings(published);
    if (!isPage(arguments.page)) return kWrongUsage;
    if (!arguments.needsNoDisplay()) return showWindow(arguments);
    return writeFiles(arguments) ? kDone : kFailed;
}

int runInLocale(const Arguments& arguments) {
    if (arguments.locale.empty()) return run(arguments);
    const auto locale = *platform::knownLocale(arguments.locale);
    const platform::ScopedLocale localeScope(locale);
    const platform::ScopedLanguages languages({std::string(locale.baseName())});
    QLocale::setDefault(QLocale(QString::fromStdString(locale.identifier())));
    return run(arguments);
}

}  // namespace

}  // namespace corvane::gallery

int main(int argc, char** argv) {
    using namespace corvane;
    CLI::App app("", "corvane-gallery");
    gallery::Arguments arguments;
    gallery::describe(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::fprintf(stderr, "corvane-gallery: %s\n", error.what());
        return kWrongUsage;
    }
    // What goes into files must look the same with and without a display.
    if (arguments.needsNoDisplay()) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (!arguments.scale.empty()) ::setenv("QT_SCALE_FACTOR", arguments.scale.c_str(), 1);
    platform::setApplicationIdentifier("corvane-gallery");
    int count = 1;
    const QApplication application(count, argv);
    if (arguments.needsNoDisplay()) QApplication::setStyle("fusion");
    qt::QtRunLoop loop;
    const platform::ScopedMainRunLoop loopScope(loop);
    qt::QtTextMeasurer measurer;
    const views::ScopedTextMeasurer measurerScope(measurer);
    return gallery::runInLocale(arguments);
}
