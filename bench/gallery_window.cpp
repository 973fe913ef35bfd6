// The gallery as its own program begins it, to be timed by gallery_start_bench.
#include "corvane/platform/UserDefaultsLocation.h"
#include "corvane/qt/QtPopOvers.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"

#include "apps/gallery/GalleryWindow.h"
#include "apps/gallery/Surroundings.h"

#include "FirstPaint.h"

int main(int argc, char** argv) {
    using namespace corvane;
    platform::setApplicationIdentifier("corvane-gallery");
    const QApplication application(argc, argv);
    qt::QtRunLoop loop;
    const platform::ScopedMainRunLoop loopScope(loop);
    qt::QtTextMeasurer measurer;
    const views::ScopedTextMeasurer measurerScope(measurer);
    const gallery::Surroundings surroundings;
    qt::QtPopOvers popOvers;
    const ScopedPopOverPresenter popOverScope(popOvers);
    gallery::GalleryWindow window;
    const bench::FirstPaint firstPaint;
    window.show();
    return QApplication::exec();
}
