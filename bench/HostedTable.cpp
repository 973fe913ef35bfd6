#include "HostedTable.h"

#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/views/ImageView.h"
#include "corvane/views/Label.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/TextMeasurer.h"

#include "TaskRecords.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <set>

namespace corvane::bench {

namespace {

constexpr views::Font kTitleFont{kTitleSize};
constexpr views::Font kNoteFont{kNoteSize};

struct LineHeights {
    double title;
    double note;
};

/// Measured once, as the delegate does it whose rows these are compared with.
const LineHeights& lineHeights() {
    static const LineHeights heights{views::textMeasurer().lineHeight(kTitleFont),
                                     views::textMeasurer().lineHeight(kNoteFont)};
    return heights;
}

/// Has its controls made when it is seen, which most rows never are.
class TaskRow final : public CVMacTableViewCell {
  public:
    explicit TaskRow(const CVIndexPath& path) : CVMacTableViewCell(path) {}

    void show(std::size_t number) {
        number_ = number;
        if (controls_) fill();
        setNeedsApplyLayout();
    }

    double rowHeightForContentWidth(double) override {
        return 2 * kMargin + lineHeights().title + lineHeights().note;
    }

    void applyLayout() override {
        if (!controls_) makeControls();
        CVMacTableViewCell::applyLayout();
    }

    void layoutContentView(views::View& content) override {
        const double width = content.frame().width;
        const double textWidth = width - kTextLeft - kDateWidth - 2 * kMargin;
        const auto [titleHeight, noteHeight] = lineHeights();
        const auto& [icon, title, note, date] = *controls_;
        icon->setFrame({kMargin, kMargin, kIconSide, kIconSide});
        title->setFrame({kTextLeft, kMargin, textWidth, titleHeight});
        note->setFrame({kTextLeft, kMargin + titleHeight, textWidth, noteHeight});
        date->setFrame({width - kDateWidth - kMargin, kMargin, kDateWidth, noteHeight});
    }

    void draw(views::Canvas& canvas, const views::Rect& dirty) override {
        ++paintedRows;
        CVMacTableViewCell::draw(canvas, dirty);
    }

  private:
    struct Controls {
        std::shared_ptr<views::ImageView> icon;
        std::shared_ptr<views::Label> title;
        std::shared_ptr<views::Label> note;
        std::shared_ptr<views::Label> date;
    };

    void makeControls() {
        controls_ = std::make_unique<Controls>();
        controls_->icon = createIconView();
        controls_->icon->setImage(taskIcon());
        controls_->title = addLabel(kTitleFont);
        controls_->note = addLabel(kNoteFont);
        controls_->date = addLabel(kNoteFont);
        controls_->date->setAlignment(views::TextAlignment::Right);
        fill();
    }

    std::shared_ptr<views::Label> addLabel(const views::Font& font) {
        auto label = std::make_shared<views::Label>();
        label->setFont(font);
        contentView()->addSubview(label);
        return label;
    }

    void fill() {
        const auto& record = taskRecord(number_);
        controls_->title->setText(record.title);
        controls_->note->setText(record.note);
        controls_->date->setText(record.date);
    }

    std::size_t number_ = 0;
    std::unique_ptr<Controls> controls_;
};

}  // namespace

class HostedTable::Source final : public CVMacTableViewDataSource {
  public:
    explicit Source(std::size_t rows) : numbers(recordNumbers(rows)) {}
    CellPtr tableViewCellForRowAtIndexPath(CVMacTableView&, const Path& path,
                                           const CellPtr& reusable) override {
        auto row = std::dynamic_pointer_cast<TaskRow>(reusable);
        if (!row) row = std::make_shared<TaskRow>(path);
        row->show(numbers[static_cast<std::size_t>(path.row())]);
        return row;
    }
    std::int64_t numberOfSectionsInTableView(CVMacTableView&) override { return 1; }
    std::optional<std::string> tableViewTitleForHeaderInSection(CVMacTableView&,
                                                                std::int64_t) override {
        return std::nullopt;
    }
    std::int64_t tableViewNumberOfRowsInSection(CVMacTableView&, std::int64_t) override {
        return static_cast<std::int64_t>(numbers.size());
    }

    std::vector<std::size_t> numbers;
};

HostedTable::HostedTable(std::size_t rows)
    : source_(std::make_shared<Source>(rows)),
      table_(std::make_shared<CVMacTableView>()),
      scrollView_(std::make_shared<views::ScrollView>()) {
    table_->setDataSource(source_);
    table_->setAllowsMultipleSelections(true);
    host_.resize(kViewportWidth, kViewportHeight);
    host_.setContentView(scrollView_);
    scrollView_->setDocumentView(table_);
    // Shown first, so that it is loaded for the width that it has.
    host_.show();
    host_.activateWindow();
    table_->reloadData();
}

HostedTable::~HostedTable() = default;

void HostedTable::goToRow(std::size_t row) {
    table_->performSelectRowAtIndexPath({0, static_cast<std::int64_t>(row)});
    settle();
}

void HostedTable::press(int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&host_, &event);
}

void HostedTable::down() {
    press(Qt::Key_Down, {});
}

void HostedTable::extendDown() {
    press(Qt::Key_Down, Qt::ShiftModifier);
}

void HostedTable::insertAtTop() {
    source_->numbers.insert(source_->numbers.begin(), 0);
    table_->insertRowsAtIndexPaths({{0, 0}}, 0);
}

void HostedTable::removeAtTop() {
    source_->numbers.erase(source_->numbers.begin());
    table_->deleteRowsAtIndexPaths({{0, 0}}, 0);
}

void HostedTable::moveByOne() {
    std::swap(source_->numbers[3], source_->numbers[4]);
    table_->moveRowAtIndexPath({0, 3}, {0, 4});
}

void HostedTable::filterToTenth() {
    std::set<CVIndexPath> paths;
    for (std::size_t row = 0; row < source_->numbers.size(); row += 10)
        paths.emplace_hint(paths.end(), 0, static_cast<std::int64_t>(row));
    table_->filterRowsWithIndexPaths(paths);
}

void HostedTable::showAll() {
    table_->filterRowsWithIndexPaths(std::nullopt);
}

void HostedTable::wheel(bool down) {
    const QPointF at(kViewportWidth / 2, kViewportHeight / 2);
    QWheelEvent event(at, host_.mapToGlobal(at), {}, {0, down ? -120 : 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&host_, &event);
}

}  // namespace corvane::bench
