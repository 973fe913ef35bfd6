#include "apps/gallery/GalleryWindow.h"

#include "corvane/qt/HostWidget.h"
#include "corvane/views/ScrollView.h"

#include "apps/gallery/TaskList.h"
#include "apps/gallery/TaskTable.h"

#include <QApplication>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <cstdio>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr int kMostLogLines = 2000;

std::shared_ptr<views::ScrollView> scrolling(const std::shared_ptr<views::View>& document) {
    auto scrollView = std::make_shared<views::ScrollView>();
    scrollView->setDocumentView(document);
    return scrollView;
}

}  // namespace

GalleryWindow::GalleryWindow(std::optional<PublishedTasks> published)
    : log_(new QPlainTextEdit(this)) {
    setWindowTitle("Gallery");
    log_->setReadOnly(true);
    log_->setMaximumBlockCount(kMostLogLines);
    log_->setPlaceholderText("What the tables tell their delegates");
    const auto note = [this](const std::string& line) { tell(line); };
    if (published) {
        tables_ = {TaskTable::make("Today", std::move(published->today), note),
                   TaskTable::make("Next", std::move(published->next), note)};
    } else {
        tables_ = {TaskTable::make("Home", exampleTasksForHome(), note),
                   TaskTable::make("Work", exampleTasksForWork(), note)};
    }
    list_ = TaskList::make("Shopping", exampleShopping(), note);

    auto* across = new QSplitter;
    for (const auto& table : tables_)
        across->addWidget(addScrolling(scrolling(table->sharedTable())));
    across->addWidget(addScrolling(list_->scrollView()));
    for (int i = 0; i < across->count(); ++i)
        across->setStretchFactor(i, i < across->count() - 1 ? 3 : 2);
    auto* down = new QSplitter(Qt::Vertical);
    down->addWidget(across);
    down->addWidget(log_);
    down->setStretchFactor(0, 4);
    down->setStretchFactor(1, 1);

    auto* side = new QWidget;
    auto* sideLayout = new QVBoxLayout(side);
    auto* dark = new QCheckBox("Dark");
    connect(dark, &QCheckBox::toggled, dark, &useDarkPalette);
    sideLayout->addWidget(makeSwitches(tables_, side));
    sideLayout->addWidget(dark);
    sideLayout->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(down, 1);
    layout->addWidget(side);
    resize(1240, 680);
}

GalleryWindow::~GalleryWindow() = default;

qt::HostWidget* GalleryWindow::addScrolling(const std::shared_ptr<views::ScrollView>& scrollView) {
    auto* host = new qt::HostWidget(this);
    host->setContentView(scrollView);
    host->setMinimumWidth(160);
    return host;
}

void GalleryWindow::tell(const std::string& line) {
    log_->appendPlainText(QString::fromStdString(line));
    // For scripts that try the window.
    std::puts(line.c_str());
    std::fflush(stdout);
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
