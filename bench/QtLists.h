// What the table is measured against: Qt's own lists, which show the same rows.
#pragma once

#include <QListView>
#include <QListWidget>
#include <cstddef>
#include <memory>

namespace corvane::bench {

/// A list whose rows are painted by a delegate. As with the table, rows tell their heights. It can
/// do what HostedTable can.
class DelegateList {
  public:
    explicit DelegateList(std::size_t rows);
    ~DelegateList();

    void goToRow(std::size_t row);
    void down();
    void insertAtTop();
    void removeAtTop();
    void moveByOne();
    void filterToTenth();
    void showAll();
    void wheel(bool down);

  private:
    class Model;
    class RowPainter;

    std::unique_ptr<Model> model_;
    std::unique_ptr<RowPainter> painter_;
    QListView view_;
};

/// A list with widgets in each row.
class WidgetList {
  public:
    explicit WidgetList(std::size_t rows);

  private:
    QListWidget list_;
};

}  // namespace corvane::bench
