#include "apps/gallery/GalleryWindow.h"

#include "corvane/controls/CVMacSplitView.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolManager.h"
#include "corvane/qt/Appearance.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/views/Event.h"
#include "corvane/vocabulary/NamedColors.h"

#include "apps/gallery/Notices.h"
#include "apps/gallery/PageArea.h"
#include "apps/gallery/Panels.h"
#include "apps/gallery/SourceList.h"
#include "apps/gallery/Texts.h"
#include "apps/gallery/Tools.h"

#include <QApplication>
#include <QStyle>
#include <QVBoxLayout>
#include <cstdio>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr double kSourceListWidth = 176;
constexpr double kNoticesHeight = 84;

std::shared_ptr<views::View> darkSwitch() {
    auto dark = std::make_shared<CVMacSwitch>();
    dark->setOn(qt::appearanceOf(QApplication::palette()) == platform::Appearance::Dark);
    dark->setAction(
        [](views::Control& sender) { useDarkPalette(static_cast<CVMacSwitch&>(sender).isOn()); });
    auto foot = stackDown(0, 12);
    foot->setGround(NamedColors::mainAlternateBackgroundColor());
    foot->add(captioned(localized("Dark"), dark, 96));
    return foot;
}

/// Gives the page the shortcuts of which nobody elsewhere in the window makes anything.
class Content final : public views::CompoundView {
  public:
    Content(std::shared_ptr<CVMacSplitView> split, std::shared_ptr<PageArea> area)
        : split_(std::move(split)), area_(std::move(area)) {
        addSubview(split_);
        setKeyViewParts({split_});
    }
    void applyLayout() override { split_->setFrame(bounds()); }
    bool keyDown(const views::KeyEvent& event) override {
        const bool isShortcut =
            event.has(views::kModifierCommand) || event.has(views::kModifierControl);
        return isShortcut && area_->page() && area_->page()->keyDown(event);
    }

  private:
    std::shared_ptr<CVMacSplitView> split_;
    std::shared_ptr<PageArea> area_;
};

}  // namespace

GalleryWindow::GalleryWindow(QWidget* parent)
    : QWidget(parent),
      host_(new qt::HostWidget(this)),
      sourceList_(SourceList::make()),
      notices_(std::make_shared<Notices>()),
      area_(std::make_shared<PageArea>()),
      echoes_(std::make_shared<bool>(false)) {
    setWindowTitle(QStringLiteral("Gallery"));
    auto side = stackDown(0);
    side->add(scrolling(sourceList_->table()), {.share = 1});
    side->add(darkSwitch());
    auto main = stackDown(0);
    main->add(area_, {.share = 1});
    main->add(notices_, {.length = kNoticesHeight});
    auto split = std::make_shared<CVMacSplitView>();
    CVMacSplitView::Pane sidePane;
    sidePane.minimum = 120;
    sidePane.preferred = kSourceListWidth;
    sidePane.collapsible = true;
    split->addPane(side, sidePane);
    CVMacSplitView::Pane mainPane;
    mainPane.minimum = 400;
    mainPane.stretches = true;
    split->addPane(main, mainPane);
    auto content = std::make_shared<Content>(split, area_);
    // Round and round.
    content->setNextKeyView(content);
    host_->setContentView(content);

    sourceList_->didSelect = [this](CVTool& tool) { showTool(tool); };
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(host_);
    resize(1240, 720);
    showPage(CVToolManager::startupToolIdentifier().value_or(""));
}

GalleryWindow::~GalleryWindow() {
    // Whatever is being edited ends now, and panels close, while there is somebody to tell.
    host_->setContentView(nullptr);
    sourceList_->didSelect = nullptr;
    delete host_;
}

const std::shared_ptr<views::View>& GalleryWindow::page() const {
    return area_->page();
}

bool GalleryWindow::showPage(std::string_view identifier) {
    return sourceList_->select(identifier);
}

void GalleryWindow::showTool(CVTool& tool) {
    CVToolManager::setActiveToolIdentifier(tool.identifier());
    auto& page = pages_[tool.identifier()];
    const auto maker = tool.navigationItem().as<PageMaker>();
    if (!page && maker)
        page = maker->make([notices = notices_, echoes = echoes_](const std::string& line) {
            notices->add(line);
            if (!*echoes) return;
            std::puts(line.c_str());
            std::fflush(stdout);
        });
    area_->setPage(page);
}

void useDarkPalette(bool dark) {
    if (!dark) return QApplication::setPalette(QApplication::style()->standardPalette());
    QPalette palette;
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor text(0xe6, 0xe7, 0xe9);
    const QColor dim(0x80, 0x84, 0x8a);
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::AlternateBase})
        palette.setColor(role, window);
    for (const auto role : {QPalette::Base, QPalette::ToolTipBase})
        palette.setColor(role, QColor(0x1e, 0x1f, 0x22));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText})
        palette.setColor(role, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb3));
    QApplication::setPalette(palette);
}

}  // namespace corvane::gallery
