// Hammers at the gallery with random input until the time is up. What it looks for are crashes,
// hangs, and the findings of sanitizers, with which it is built for long runs.
//
//     corvane-hammer [SECONDS [SEED]]
#include "corvane/platform/Console.h"
#include "corvane/platform/Locale.h"
#include "corvane/platform/UserDefaultsLocation.h"
#include "corvane/qt/QtPopOvers.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"
#include "corvane/qt/ViewAccessibility.h"

#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/Surroundings.h"
#include "apps/gallery/Tools.h"

#include "tests/hammer/Hammer.h"

#include <unistd.h>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace corvane;

constexpr unsigned kLongestStrike = 60;  ///< in seconds; what takes longer hangs

std::uint64_t seed = 0;
const hammer::Hammer* atWork = nullptr;

void tellWhere() {
    std::fprintf(stderr, "hammer: seed %llu, while doing: %s\n",
                 static_cast<unsigned long long>(seed), atWork ? atWork->presentAction() : "");
}

void stopHanging(int) {
    tellWhere();
    std::fputs("hammer: it hangs\n", stderr);
    std::abort();
}

void stopCrashing(int signal) {
    tellWhere();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Nobody reads what the library tells developers; it is written all the same.
struct UnreadConsole final : platform::Console {
    void writeLine(std::string_view line) override { size += line.size(); }
    std::atomic<std::size_t> size = 0;
};

/// But for what the off-screen platform says of itself.
void showMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

/// As one who reads along, and asks back in the middle of things.
struct CuriousListener final : qt::AccessibilityListener {
    bool isActive() override { return true; }
    void hear(QAccessibleEvent& event) override {
        auto* interface = event.accessibleInterface();
        if (!interface || !interface->isValid()) return;
        size += interface->text(QAccessible::Name).size() + interface->rect().width();
    }
    qsizetype size = 0;
};

/// The gallery in some language; another one each time.
class Stage {
  public:
    explicit Stage(hammer::Hammer& hammer) : hammer_(hammer) { build(); }

    void build() {
        static constexpr std::array kLocales{"en_US", "de_DE", "ar_EG", "he_IL",
                                             "ja_JP", "tr_TR", "th_TH", "fa_IR"};
        window_.reset();
        languages_.reset();
        locale_.reset();
        changeLocale(kLocales[hammer_.below(kLocales.size())]);
        window_ = std::make_unique<gallery::GalleryWindow>();
        turnPage();
        show();
    }

    void changeLocale(const char* name) {
        languages_.reset();
        locale_.reset();
        const platform::Locale locale(name);
        locale_.emplace(locale);
        languages_.emplace(std::vector{std::string(locale.language())});
    }

    void turnPage() {
        const auto pages = gallery::toolIdentifiers();
        window_->showPage(pages[hammer_.below(pages.size())]);
    }

    /// What was closed or hidden comes back.
    void show() {
        if (window_->isVisible()) return;
        window_->show();
        window_->activateWindow();
    }

  private:
    hammer::Hammer& hammer_;
    std::optional<platform::ScopedLocale> locale_;
    std::optional<platform::ScopedLanguages> languages_;
    std::unique_ptr<gallery::GalleryWindow> window_;
};

void strikeFor(double seconds, hammer::Hammer& hammer) {
    Stage stage(hammer);
    hammer.addAction("new window", 1, [&] { stage.build(); });
    hammer.addAction("locale", 1,
                     [&] { stage.changeLocale(hammer.below(2) == 0 ? "en_GB" : "ar_SA"); });
    hammer.addAction("page", 3, [&] { stage.turnPage(); });
    QElapsedTimer timer;
    timer.start();
    while (static_cast<double>(timer.elapsed()) < seconds * 1000) {
        ::alarm(kLongestStrike);
        stage.show();
        hammer.strike();
    }
    ::alarm(0);
}

}  // namespace

int main(int argc, char** argv) {
    const double seconds = argc > 1 ? std::atof(argv[1]) : 20;
    seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::random_device()();
    std::printf("hammer: %g seconds, seed %llu\n", seconds, static_cast<unsigned long long>(seed));
    std::fflush(stdout);

    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        ::setenv(variable, home.path().toUtf8().constData(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_HASH_SEED", "0", 1);
    platform::setUserDefaultsDirectoryOverride(home.path().toStdString());
    platform::setApplicationIdentifier("corvane-hammer");
    qInstallMessageHandler(showMessage);
    std::signal(SIGALRM, stopHanging);
    std::signal(SIGABRT, stopCrashing);

    int count = 1;
    const QApplication application(count, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    UnreadConsole console;
    const platform::ScopedConsole consoleScope(console);
    qt::QtRunLoop loop;
    const platform::ScopedMainRunLoop loopScope(loop);
    qt::QtTextMeasurer measurer;
    const views::ScopedTextMeasurer measurerScope(measurer);
    CuriousListener listener;
    const qt::ScopedAccessibilityListener listenerScope(listener);
    const gallery::Surroundings surroundings;
    qt::QtPopOvers popOvers;
    const ScopedPopOverPresenter popOverScope(popOvers);

    hammer::Hammer hammer(seed);
    atWork = &hammer;
    strikeFor(seconds, hammer);
    std::uint64_t strikes = 0;
    for (const auto& [action, times] : hammer.counts()) {
        std::printf("%8llu  %s\n", static_cast<unsigned long long>(times), action.c_str());
        strikes += times;
    }
    std::printf("hammer: %llu strikes, nothing found\n", static_cast<unsigned long long>(strikes));
    return 0;
}
