#include "TaskRecords.h"

#include "corvane/qt/QtImage.h"

#include <QAbstractEventDispatcher>
#include <QPainter>
#include <numeric>

namespace corvane::bench {

namespace {

/// More would only be copies: nobody sees two that far apart at once.
constexpr std::size_t kDifferentRecords = 500;

std::vector<TaskRecord<std::string>> makeRecords() {
    std::vector<TaskRecord<std::string>> records;
    for (std::size_t number = 0; number < kDifferentRecords; ++number) {
        const std::string text = std::to_string(number);
        records.push_back({"Task " + text + " has a title of ordinary length",
                           "A note below it, for those who look twice at task " + text,
                           std::to_string(number % 28 + 1) + " March 2024"});
    }
    return records;
}

std::vector<TaskRecord<QString>> makeQtRecords() {
    std::vector<TaskRecord<QString>> records;
    for (std::size_t number = 0; number < kDifferentRecords; ++number) {
        const auto& record = taskRecord(number);
        records.push_back({QString::fromStdString(record.title),
                           QString::fromStdString(record.note),
                           QString::fromStdString(record.date)});
    }
    return records;
}

}  // namespace

const TaskRecord<std::string>& taskRecord(std::size_t number) {
    static const auto records = makeRecords();
    return records[number % kDifferentRecords];
}

const TaskRecord<QString>& qtTaskRecord(std::size_t number) {
    static const auto records = makeQtRecords();
    return records[number % kDifferentRecords];
}

const platform::ImagePtr& taskIcon() {
    static const platform::ImagePtr icon =
        qt::drawnImage({kIconSide, kIconSide}, [](QPainter& painter, platform::Appearance) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(200, 80, 60));
            painter.drawEllipse(1, 1, kIconSide - 2, kIconSide - 2);
        });
    return icon;
}

std::vector<std::size_t> recordNumbers(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

void settle() {
    // One round takes only what is most urgent, and timers of no delay are never that.
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
}

}  // namespace corvane::bench
