// One letter typed into a date field of a window: until the field, its chooser beside it and their
// pictures are up to date. Windows are drawn off-screen.
#include "corvane/controls/CVMacDateField.h"
#include "corvane/platform/Locale.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/qt/QtPopOvers.h"

#include "OffscreenProgram.h"

#include <benchmark/benchmark.h>

#include <QKeyEvent>
#include <memory>

namespace corvane::bench {
namespace {

void settle() {
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

/// What users of the language may begin to write, a letter at a time.
void typing(benchmark::State& state, const char* locale, const char* text) {
    const platform::ScopedLocale scope{platform::Locale(locale)};
    const QString letters = QString::fromUtf8(text);
    qt::HostWidget host;
    const auto field = std::make_shared<CVMacDateField>(views::Rect{10, 10, 160, 24});
    host.viewWindow().root().addSubview(field);
    host.resize(300, 400);
    host.show();
    host.activateWindow();
    settle();
    host.viewWindow().makeFirstResponder(field);
    settle();
    if (!field->isEditing() || !field->dateChooserPopover().isShown())
        return state.SkipWithError("the field is not edited");
    qsizetype next = 0;
    for (auto _ : state) {
        if (next == letters.size()) {
            state.PauseTiming();
            field->setStringValue("");
            settle();
            next = 0;
            state.ResumeTiming();
        }
        QKeyEvent press(QEvent::KeyPress, 0, {}, letters[next++]);
        QApplication::sendEvent(host.liveEditor(), &press);
        QApplication::processEvents();
    }
    if (field->stringValue() != letters.left(next).toStdString())
        state.SkipWithError("not what was typed");
    host.viewWindow().makeFirstResponder(nullptr);
}

}  // namespace
}  // namespace corvane::bench

int main(int argc, char** argv) {
    using namespace corvane;
    bench::OffscreenProgram program(argc, argv);
    qt::QtPopOvers popOvers;
    const ScopedPopOverPresenter popOverScope(popOvers);
    for (const auto& [locale, text] :
         {std::pair("en_US", "tomorrow"), std::pair("de_DE", "12. März 2027"),
          std::pair("ar_EG", "١٢ مارس"), std::pair("ja_JP", "2027年3月12日")})
        benchmark::RegisterBenchmark((std::string("fieldTyping/") + locale).c_str(),
                                     [locale = locale, text = text](benchmark::State& state) {
                                         bench::typing(state, locale, text);
                                     })
            ->Unit(benchmark::kMillisecond);
    return program.runBenchmarks();
}
