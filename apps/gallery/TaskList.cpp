#include "apps/gallery/TaskList.h"

#include "corvane/table/HGMacListViewItem.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXImageMap.h"
#include "corvane/vocabulary/HGCorvaneStyleCollection.h"

#include "apps/gallery/TaskTable.h"

#include <algorithm>
#include <utility>

namespace corvane::gallery {

namespace {

constexpr std::int64_t kBadgeColor = 4;
constexpr std::int64_t kBadgeIndicator = 6;

}  // namespace

std::shared_ptr<TaskList> TaskList::make(std::string name, std::vector<std::string> titles,
                                         Log log) {
    std::shared_ptr<TaskList> made(
        new TaskList(std::move(name), std::move(titles), std::move(log)));
    made->list_->setDelegate(made);
    made->list_->loadData();
    return made;
}

TaskList::TaskList(std::string name, std::vector<std::string> titles, Log log)
    : name_(std::move(name)),
      titles_(std::move(titles)),
      log_(std::move(log)),
      list_(std::make_shared<List>()),
      scrollView_(std::make_shared<views::ScrollView>()) {
    list_->setAccessibilityName(name_);
    scrollView_->setDocumentView(list_);
    sizeObservation_ = platform::defaultNotificationCenter().addObserver(
        views::kScrollViewFrameDidChange, scrollView_.get(),
        [this](const platform::Notification&) { fit(); });
    showItems();
    followEditing();
    followDrops();
}

void TaskList::note(const std::string& what, Index index) {
    if (log_) log_(name_ + ": " + what + " " + std::to_string(index));
}

/// As wide as what is visible, and at least as high, so that one can drop below the last item.
void TaskList::fit() {
    const auto visible = scrollView_->contentSize();
    const double height = list_->preferredSizeThatFits(visible).height;
    list_->setFrameSize({visible.width, std::max(visible.height, height)});
}

void TaskList::showItems() {
    numberOfItemsInListView = [this](List&) { return static_cast<Index>(titles_.size()); };
    listViewItemForPlaceholderAtIndex = [](List& list, Index) {
        auto item = list.dequeueReusableItem();
        if (const auto map = HGCorvaneStyleCollection::indicatorSmallImageMapForColor(kBadgeColor))
            item->imageView()->setImage(map->imageAtIndex(kBadgeIndicator));
        return item;
    };
    listViewItemAtIndex = [this](List& list, Index index) {
        auto item = listViewItemForPlaceholderAtIndex(list, index);
        item->textField()->setStringValue(titles_.at(static_cast<std::size_t>(index)));
        return item;
    };
    requestAutoResizingForListView = [this](List&) { fit(); };
    requestNextKeyViewForListView = [](List& list) {
        if (list.window()) list.window()->selectNextKeyViewOf(list);
    };
    requestPreviousKeyViewForListView = [](List& list) {
        if (list.window()) list.window()->selectPreviousKeyViewOf(list);
    };
}

void TaskList::followEditing() {
    listViewInsertItemForPlaceholderAtIndex = [this](List&, Index index, const std::string& value) {
        note("inserts", index);
        titles_.insert(titles_.begin() + index, value);
    };
    listViewUpdateTextFieldValue = [this](List&, const std::string& value, Index index) {
        note("edits", index);
        titles_.at(static_cast<std::size_t>(index)) = value;
    };
    listViewDeleteItemAtIndex = [this](List& list, Index index) {
        note("deletes", index);
        if (!list.items().at(static_cast<std::size_t>(index))->placeholder())
            titles_.erase(titles_.begin() + index);
    };
    listViewMoveItemAtIndex = [this](List&, Index from, Index to) {
        note("moves", from);
        const std::string title = titles_.at(static_cast<std::size_t>(from));
        titles_.erase(titles_.begin() + from);
        titles_.insert(titles_.begin() + to, title);
    };
}

void TaskList::insert(Index index, const std::string& title) {
    titles_.insert(titles_.begin() + index, title);
    list_->insertItemsAtIndexes({index});
}

std::string TaskList::take(Index index) {
    std::string title = titles_.at(static_cast<std::size_t>(index));
    titles_.erase(titles_.begin() + index);
    list_->deleteItemsAtIndexes({index});
    return title;
}

void TaskList::followDrops() {
    const auto always = [](auto&&...) { return true; };
    listViewWillDropSourceIndexPaths = always;
    listViewWillDropTexts = always;
    listViewDidDropSourceIndexPaths = [this](List&, const std::vector<CVIndexPath>& paths,
                                             CVMacTableView& source, Index index) {
        note("rows are dropped before", index);
        const auto table = std::dynamic_pointer_cast<TaskTable>(source.dataSource());
        if (!table) return false;
        std::vector<std::string> taken;
        for (const auto& path : paths)
            if (const auto title = table->titleAt(path)) taken.push_back(*title);
        source.performDeleteRowsAtIndexPaths(paths);
        for (const auto& title : taken)
            insert(index++, title);
        return true;
    };
    listViewDidDropTexts = [this](List&, const std::vector<std::string>& texts, Index index) {
        note("texts are dropped before", index);
        for (const auto& text : texts)
            insert(index++, text);
        return true;
    };
}

}  // namespace corvane::gallery
