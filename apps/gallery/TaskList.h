// Has a list show and edit things to buy, and notes what the list tells. One thread: the one that
// draws.
#pragma once

#include "corvane/platform/NotificationCenter.h"
#include "corvane/table/HGMacListView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::views {
class ScrollView;
}

namespace corvane::gallery {

/// The list's delegate. Rows of a TaskTable that are dropped on the list become its items. Held by
/// std::shared_ptr.
class TaskList : public HGMacListViewDelegate {
  public:
    using Log = std::function<void(const std::string& line)>;

    /// With a list of that name in a scroll view.
    static std::shared_ptr<TaskList> make(std::string name, std::vector<std::string> titles,
                                          Log log);

    List& list() { return *list_; }
    const std::shared_ptr<views::ScrollView>& scrollView() const { return scrollView_; }
    const std::vector<std::string>& titles() const { return titles_; }
    /// Takes an item out.
    std::string take(Index index);

  private:
    TaskList(std::string name, std::vector<std::string> titles, Log log);
    void showItems();
    void followEditing();
    void followDrops();
    void fit();
    void insert(Index index, const std::string& title);
    void note(const std::string& what, Index index);

    std::string name_;
    std::vector<std::string> titles_;
    Log log_;
    std::shared_ptr<List> list_;
    std::shared_ptr<views::ScrollView> scrollView_;
    platform::NotificationCenter::Observation sizeObservation_;
};

}  // namespace corvane::gallery
