// The window of the gallery: two tables and a list side by side, their settings, and what they
// tell. One thread: the one of the windows.
#pragma once

#include "apps/gallery/PublishedTasks.h"
#include "apps/gallery/Switches.h"

#include <QWidget>

class QPlainTextEdit;

namespace corvane::qt {
class HostWidget;
}

namespace corvane::views {
class ScrollView;
}

namespace corvane::gallery {

class TaskList;

/// The main run loop and the text measurer in force must be Qt's.
class GalleryWindow final : public QWidget {
  public:
    /// Of the example list, or of what a main application has published.
    explicit GalleryWindow(std::optional<PublishedTasks> published = {});
    ~GalleryWindow() override;

    TaskTable& leftTable() { return *tables_.front(); }
    TaskTable& rightTable() { return *tables_.back(); }

  private:
    qt::HostWidget* addScrolling(const std::shared_ptr<views::ScrollView>& scrollView);
    void tell(const std::string& line);

    QPlainTextEdit* log_;
    TaskTables tables_;
    std::shared_ptr<TaskList> list_;
};

/// The palette of a dark desktop, or that of the style.
void useDarkPalette(bool dark);

}  // namespace corvane::gallery
