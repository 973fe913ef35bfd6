#include "QtLists.h"

#include "corvane/qt/QtImage.h"

#include "TaskRecords.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace corvane::bench {

namespace {

const QPixmap& iconPixmap() {
    static const QPixmap pixmap =
        QPixmap::fromImage(qt::renderedImage(taskIcon(), 1, platform::Appearance::Light));
    return pixmap;
}

QFont fontOfSize(int pixels) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    return font;
}

void prepare(QAbstractItemView& view) {
    view.setFrameShape(QFrame::NoFrame);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.resize(kViewportWidth, kViewportHeight);
}

/// Icon, texts and date as widgets.
class RowWidget final : public QWidget {
  public:
    explicit RowWidget(std::size_t number) {
        const auto& record = qtTaskRecord(number);
        const int right = kViewportWidth - 20;
        const int width = right - kTextLeft - kDateWidth - 2 * kMargin;
        const int titleHeight = QFontMetrics(fontOfSize(kTitleSize)).height();
        auto* icon = add({}, kTitleSize, {kMargin, kMargin, kIconSide, kIconSide});
        icon->setPixmap(iconPixmap());
        add(record.title, kTitleSize, {kTextLeft, kMargin, width, titleHeight});
        add(record.note, kNoteSize, {kTextLeft, kMargin + titleHeight, width, kNoteSize + 4});
        add(record.date, kNoteSize, {right - kDateWidth, kMargin, kDateWidth, kNoteSize + 4})
            ->setAlignment(Qt::AlignRight);
    }

    void paintEvent(QPaintEvent*) override { ++paintedRows; }

  private:
    QLabel* add(const QString& text, int size, const QRect& place) {
        auto* label = new QLabel(text, this);
        label->setFont(fontOfSize(size));
        label->setGeometry(place);
        return label;
    }
};

}  // namespace

class DelegateList::Model final : public QAbstractListModel {
  public:
    explicit Model(std::size_t rows) : numbers_(recordNumbers(rows)) {}

    int rowCount(const QModelIndex&) const override { return static_cast<int>(numbers_.size()); }
    QVariant data(const QModelIndex&, int) const override { return {}; }
    std::size_t numberAt(const QModelIndex& index) const {
        return numbers_[static_cast<std::size_t>(index.row())];
    }
    void insertAtTop() {
        beginInsertRows({}, 0, 0);
        numbers_.insert(numbers_.begin(), 0);
        endInsertRows();
    }
    void removeAtTop() {
        beginRemoveRows({}, 0, 0);
        numbers_.erase(numbers_.begin());
        endRemoveRows();
    }
    void moveByOne() {
        // The target counts with the row.
        beginMoveRows({}, 3, 3, {}, 5);
        std::swap(numbers_[3], numbers_[4]);
        endMoveRows();
    }

  private:
    std::vector<std::size_t> numbers_;
};

class DelegateList::RowPainter final : public QStyledItemDelegate {
  public:
    explicit RowPainter(const Model& model) : model_(model) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {kViewportWidth / 2, 2 * kMargin + titleMetrics_.height() + noteMetrics_.height()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        ++paintedRows;
        const auto& record = qtTaskRecord(model_.numberAt(index));
        if (option.state.testFlag(QStyle::State_Selected))
            painter->fillRect(option.rect, option.palette.highlight());
        const QRect content = option.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
        painter->drawPixmap(content.topLeft(), iconPixmap());
        const int textLeft = option.rect.left() + kTextLeft;
        const int textWidth = content.right() - kDateWidth - kMargin - textLeft;
        drawLine(*painter, titleFont_, titleMetrics_, record.title,
                 {textLeft, content.top(), textWidth, titleMetrics_.height()}, Qt::AlignLeft);
        const QRect note(textLeft, content.top() + titleMetrics_.height(), textWidth,
                         noteMetrics_.height());
        drawLine(*painter, noteFont_, noteMetrics_, record.note, note, Qt::AlignLeft);
        const QRect date(content.right() - kDateWidth, content.top(), kDateWidth,
                         noteMetrics_.height());
        drawLine(*painter, noteFont_, noteMetrics_, record.date, date, Qt::AlignRight);
        painter->fillRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1,
                          option.palette.mid());
    }

  private:
    /// Cut off with an ellipsis where it is too long, as everybody has it.
    static void drawLine(QPainter& painter, const QFont& font, const QFontMetrics& metrics,
                         const QString& text, const QRect& rect, Qt::Alignment alignment) {
        painter.setFont(font);
        painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter),
                         metrics.elidedText(text, Qt::ElideRight, rect.width()));
    }

    const Model& model_;
    QFont titleFont_ = fontOfSize(kTitleSize);
    QFont noteFont_ = fontOfSize(kNoteSize);
    QFontMetrics titleMetrics_{titleFont_};
    QFontMetrics noteMetrics_{noteFont_};
};

DelegateList::DelegateList(std::size_t rows)
    : model_(std::make_unique<Model>(rows)), painter_(std::make_unique<RowPainter>(*model_)) {
    prepare(view_);
    view_.setItemDelegate(painter_.get());
    view_.setModel(model_.get());
    view_.show();
    view_.activateWindow();
}

DelegateList::~DelegateList() = default;

void DelegateList::goToRow(std::size_t row) {
    view_.setCurrentIndex(model_->index(static_cast<int>(row)));
    settle();
}

void DelegateList::down() {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(&view_, &event);
}

void DelegateList::insertAtTop() {
    model_->insertAtTop();
}

void DelegateList::removeAtTop() {
    model_->removeAtTop();
}

void DelegateList::moveByOne() {
    model_->moveByOne();
}

void DelegateList::filterToTenth() {
    for (int row = 0; row < model_->rowCount({}); ++row)
        if (row % 10 != 0) view_.setRowHidden(row, true);
}

void DelegateList::showAll() {
    for (int row = 0; row < model_->rowCount({}); ++row)
        if (row % 10 != 0) view_.setRowHidden(row, false);
}

void DelegateList::wheel(bool down) {
    const QPointF at(kViewportWidth / 2, kViewportHeight / 2);
    QWheelEvent event(at, view_.mapToGlobal(at), {}, {0, down ? -120 : 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view_.viewport(), &event);
}

WidgetList::WidgetList(std::size_t rows) {
    prepare(list_);
    for (std::size_t row = 0; row < rows; ++row) {
        auto* item = new QListWidgetItem(&list_);
        item->setSizeHint({kViewportWidth / 2, 44});
        list_.setItemWidget(item, new RowWidget(row));
    }
    list_.show();
}

}  // namespace corvane::bench
