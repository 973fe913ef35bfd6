// The window of the gallery: a source list of pages, the page that was chosen, and what its
// controls tell. One thread: the one of the windows.
#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {
class CVTool;
}

namespace corvane::qt {
class HostWidget;
}

namespace corvane::views {
class View;
}

namespace corvane::gallery {

class Notices;
class PageArea;
class SourceList;

/// The main run loop and the text measurer in force must be Qt's, and the tools be registered.
/// Pages are made when they are first shown, and stay.
class GalleryWindow final : public QWidget {
  public:
    /// Shows the startup tool.
    explicit GalleryWindow(QWidget* parent = nullptr);
    ~GalleryWindow() override;

    /// By the identifier of its tool; false where there is no such tool.
    bool showPage(std::string_view identifier);
    /// What is shown; null before the first.
    const std::shared_ptr<views::View>& page() const;

    qt::HostWidget& host() { return *host_; }

    /// Also writes what the controls tell to the standard output, for scripts that try the window.
    void setEchoes(bool echoes) { *echoes_ = echoes; }

  private:
    void showTool(CVTool& tool);

    qt::HostWidget* host_;
    std::shared_ptr<SourceList> sourceList_;
    std::shared_ptr<Notices> notices_;
    std::shared_ptr<PageArea> area_;
    std::map<std::string, std::shared_ptr<views::View>, std::less<>> pages_;
    std::shared_ptr<bool> echoes_;  ///< shared with the pages, of which parts may outlive this
};

/// The palette of a dark desktop, or that of the style.
void useDarkPalette(bool dark);

}  // namespace corvane::gallery
