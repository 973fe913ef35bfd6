// A file that always tells what is in the program's windows, for scripts that try the program. One
// thread: the one of the windows.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTimer>

namespace corvane::gallery {

/// Writes JSON: an array of windows, each as assistive technology is told of it. A part has its
/// "role", "name", "value", "rect" (x, y, width and height on the screen, in points) and "states",
/// and its parts as "children"; what is empty is left out. The file is replaced as a whole, soon
/// after something changed. All rows are looked at each time: for tables of some hundreds.
class StateReport {
  public:
    explicit StateReport(QString path);

  private:
    void write();

    QString path_;
    QByteArray written_;
    QTimer timer_;
};

}  // namespace corvane::gallery
