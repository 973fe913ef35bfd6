// A window with nothing in it, of nothing but the toolkit: what gallery_start_bench compares with.
#include "FirstPaint.h"

#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(1240, 680);
    const corvane::bench::FirstPaint firstPaint;
    window.show();
    return QApplication::exec();
}
