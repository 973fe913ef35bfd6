// The table to measure: light rows over records, in the widget that hosts it.
#pragma once

#include "corvane/qt/HostWidget.h"
#include "corvane/table/CVMacTableView.h"

#include <cstddef>
#include <memory>

namespace corvane::views {
class ScrollView;
}

namespace corvane::bench {

/// The whole of it in one: made, loaded and shown when it is constructed. Paints when the event
/// loop runs.
class HostedTable {
  public:
    explicit HostedTable(std::size_t rows);
    ~HostedTable();

    CVMacTableView& table() { return *table_; }
    /// Selected, in focus, and seen.
    void goToRow(std::size_t row);
    void down();
    void extendDown();
    void insertAtTop();
    void removeAtTop();
    void moveByOne();
    void filterToTenth();
    void showAll();
    void wheel(bool down);

  private:
    class Source;
    void press(int key, Qt::KeyboardModifiers modifiers);

    std::shared_ptr<Source> source_;
    std::shared_ptr<CVMacTableView> table_;
    std::shared_ptr<views::ScrollView> scrollView_;
    qt::HostWidget host_;
};

}  // namespace corvane::bench
