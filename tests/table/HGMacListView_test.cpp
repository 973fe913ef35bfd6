#include "corvane/table/HGMacListView.h"

#include "corvane/table/DropIndicator.h"
#include "corvane/table/HGMacListViewItem.h"
#include "corvane/views/Drag.h"

#include "tests/table/TableFixture.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace corvane;
using namespace corvane::test;
using namespace corvane::views;

namespace {

struct ListFixture {
    explicit ListFixture(std::vector<std::string> texts = {"one", "two", "three"})
        : values(std::move(texts)) {
        const auto itemFor = [this](HGMacListView& sender, std::int64_t index) {
            auto item = sender.dequeueReusableItem();
            if (!item->placeholder()) item->textField()->setStringValue(valueAt(index));
            return item;
        };
        delegate->numberOfItemsInListView = [this](auto&) {
            return static_cast<std::int64_t>(values.size());
        };
        delegate->listViewItemAtIndex = itemFor;
        delegate->listViewItemForPlaceholderAtIndex = [](auto& sender, auto) {
            return sender.dequeueReusableItem();
        };
        delegate->listViewInsertItemForPlaceholderAtIndex = [this](auto&, auto index, auto& text) {
            values.insert(values.begin() + index, text);
        };
        delegate->listViewUpdateTextFieldValue = [this](auto&, auto& text, auto index) {
            values[static_cast<std::size_t>(index)] = text;
        };
        delegate->listViewDeleteItemAtIndex = [this](auto& sender, auto index) {
            if (!sender.items()[static_cast<std::size_t>(index)]->placeholder())
                values.erase(values.begin() + index);
        };
        delegate->listViewMoveItemAtIndex = [this](auto&, auto from, auto to) {
            const std::string value = valueAt(from);
            values.erase(values.begin() + from);
            values.insert(values.begin() + to, value);
        };
        delegate->requestAutoResizingForListView = [this](auto& sender) {
            ++resizings;
            sender.setFrameSize(sender.preferredSizeThatFits(sender.frame().size()));
        };
        list->setDelegate(delegate);
        window.root().addSubview(list);
        list->loadData();
        loop.runTurn();
    }
    std::string valueAt(std::int64_t index) const {
        return index < static_cast<std::int64_t>(values.size())
                   ? values[static_cast<std::size_t>(index)]
                   : "";
    }
    /// What the list shows, and what the delegate has.
    std::string state() const {
        std::string shown;
        for (const auto& item : list->items())
            shown += (item->placeholder() ? "P" : item->textField()->stringValue()) + " ";
        shown += "/ ";
        for (const auto& value : values)
            shown += value + " ";
        return shown;
    }
    std::shared_ptr<HGMacListViewItem> item(std::size_t index) const {
        return list->items().at(index);
    }
    void click(Point point) {
        window.mouseDown(MouseEvent(point));
        window.mouseUp(MouseEvent(point));
    }
    void press(char32_t key) { window.keyDown(KeyEvent(key)); }
    void type(const char* text) { window.keyDown(KeyEvent(std::string(text))); }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    platform::ManualRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    std::vector<std::string> values;
    int resizings = 0;
    std::shared_ptr<HGMacListViewDelegate> delegate = std::make_shared<HGMacListViewDelegate>();
    std::shared_ptr<HGMacListView> list = std::make_shared<HGMacListView>(Rect{0, 0, 100, 50});
    Window window{{100, 300}};
};

}  // namespace

TEST(ListView, StacksItsItemsAndMeasuresThemForItsWidth) {
    ListFixture fixture({"one", "one two three four", "x"});
    EXPECT_EQ(fixture.list->frame().height, 25 + 59 + 25);  // the second one in three lines
    EXPECT_EQ(fixture.item(2)->frame(), (Rect{0, 84, 100, 25}));
    fixture.list->setFrameSize({200, 92});
    fixture.loop.runTurn();
    EXPECT_EQ(fixture.item(2)->frame(), (Rect{0, 50, 200, 25}));
    EXPECT_EQ(fixture.list->indexOfItemAtPoint({5, 30}), 1);
    EXPECT_EQ(fixture.list->indexOfItemAtPoint({5, 80}), HGMacListView::kNotFound);
    const auto last = fixture.item(2);
    fixture.values = {"a", "b"};
    fixture.list->deleteItemsAtIndexes({2, 7, 2});
    EXPECT_EQ(fixture.list->dequeueReusableItem(), last);
    fixture.list->reloadItemsAtIndexes({1, 0});
    fixture.list->moveItemAtIndex(0, 1);
    fixture.list->moveItemAtIndex(0, 2);
    EXPECT_EQ(fixture.state(), "b a / a b ");
    fixture.list->reloadData();
    EXPECT_EQ(fixture.state(), "a b / a b ");
    fixture.list->unloadData();
    EXPECT_EQ(fixture.list->frame().height, 0);
    EXPECT_TRUE(fixture.list->subviews().empty());
}

TEST(ListView, EditsInPlace) {
    ListFixture fixture;
    fixture.click({50, 40});  // the text of the second item
    EXPECT_TRUE(fixture.item(1)->textField()->isEditing());
    fixture.type(" 2 ");
    fixture.press(kKeyReturn);
    EXPECT_EQ(fixture.state(), "one  2  P three / one 2 three ");
    fixture.loop.runTurn();
    EXPECT_TRUE(fixture.item(2)->textField()->isEditing());
    fixture.type("new");
    fixture.press(kKeyReturn);
    fixture.loop.runTurn();
    EXPECT_EQ(fixture.state(), "one  2  new P three / one 2 new three ");
    fixture.press(kKeyEscape);  // nothing typed
    EXPECT_EQ(fixture.state(), "one  2  new three / one 2 new three ");
    EXPECT_EQ(fixture.window.firstResponder(), fixture.list);

    int next = 0;
    int previous = 0;
    fixture.delegate->requestNextKeyViewForListView = [&](auto&) { ++next; };
    fixture.delegate->requestPreviousKeyViewForListView = [&](auto&) { ++previous; };
    fixture.click({50, 10});
    fixture.press(kKeyBacktab);
    EXPECT_EQ(previous, 1);
    for (int i = 0; i < 4; ++i)
        fixture.press(kKeyTab);
    EXPECT_EQ(next, 1);
    EXPECT_TRUE(fixture.item(3)->textField()->isEditing());
    const int resizings = fixture.resizings;
    fixture.type("one two three four");
    EXPECT_EQ(fixture.resizings, resizings + 1);
    fixture.type("\n ");  // a line break within the text
    fixture.window.fieldEditor().setText(" \n ");
    fixture.press(kKeyTab);
    fixture.window.makeFirstResponder(fixture.list);
    EXPECT_EQ(fixture.state(), "one  2  new / one 2 new ");
    fixture.click({50, 10});
    fixture.list->reloadData();  // while it is edited
    EXPECT_EQ(fixture.state(), "one 2 new / one 2 new ");
}

TEST(ListView, TakesItemsRowsAndTexts) {
    ListFixture fixture;
    const auto dragOf = [](Window& window, Point from) {
        window.mouseDown(MouseEvent(from));
        window.mouseDragged(MouseEvent({from.x + 20, from.y}));
        return window.dragSession();
    };
    const auto dropAt = [&](DraggingInfo info, double y) {
        info.setDraggingLocation({50, y});
        return fixture.window.drop(info);
    };
    const auto session = dragOf(fixture.window, {50, 10});
    DraggingInfo info(*session, {50, 40});
    EXPECT_EQ(HGMacListView::readTextsFromPasteboard(session->pasteboard).front(), "one");
    fixture.window.draggingMoved(info);
    EXPECT_EQ(fixture.list->draggingIndicatorView()->frame(), (Rect{0, 49, 100, 2}));
    for (const double y : {10.0, 30.0, 70.0}) {
        info.setDraggingLocation({50, y});
        fixture.window.draggingMoved(info);
        EXPECT_EQ(fixture.list->draggingIndicatorView()->isHidden(), y < 37) << y;
    }
    EXPECT_TRUE(dropAt(info, 30));  // before the second one: where it is
    EXPECT_EQ(fixture.state(), "one two three / one two three ");
    EXPECT_TRUE(dropAt(info, 70));
    EXPECT_EQ(fixture.state(), "two three one / two three one ");
    session->end(kDragOperationGeneric);
    EXPECT_EQ(fixture.list->draggingIndicatorView(), nullptr);

    std::string log;
    const auto note = [&log](const char* what) {
        return [&log, what](auto&&... arguments) {
            const auto all = std::tie(arguments...);
            log += what + std::to_string(std::get<sizeof...(arguments) - 1>(all));  // the index
            return true;
        };
    };
    ListFixture other;
    TableFixture table({{1, 2}});
    table.delegate->tableViewAllowsStartDrag = [](auto&) { return true; };
    platform::PasteboardItem text;
    text.setValue(platform::kPasteboardTypeString, "text");
    platform::Pasteboard texts;
    texts.addItem(text);
    const DraggingInfo infos[] = {DraggingInfo(*dragOf(other.window, {50, 10})),
                                  DraggingInfo(*dragOf(table.window, {50, 10})),
                                  DraggingInfo(texts)};
    for (const auto& one : infos)
        EXPECT_FALSE(dropAt(one, 30));
    auto& delegate = *fixture.delegate;
    delegate.listViewDidDropSourceIndex = note("item");
    delegate.listViewDidDropSourceIndexPaths = note("rows");
    delegate.listViewDidDropTexts = note("texts");
    for (const auto& one : infos)
        EXPECT_FALSE(dropAt(one, 30));
    EXPECT_EQ(log, "");
    delegate.listViewWillDropSourceIndex = note("item?");
    delegate.listViewWillDropSourceIndexPaths = note("rows?");
    delegate.listViewWillDropTexts = note("texts?");
    for (const auto& one : infos)
        EXPECT_TRUE(dropAt(one, 30));
    EXPECT_EQ(log, "item?1item1rows?1rows1texts?1texts1");
    EXPECT_EQ(HGMacListView::readItemIndexFromPasteboard({}), HGMacListView::kNotFound);
    EXPECT_FALSE(dropAt(DraggingInfo(platform::Pasteboard()), 30));

    table.delegate->tableViewWillDropSourceIndex = [](auto&&...) { return true; };
    table.delegate->tableViewDidDropSourceIndex = [&](auto&, auto index, auto& list, auto& path) {
        return index == 0 && &list == other.list.get() && path == CVIndexPath(0, 1);
    };
    DraggingInfo ontoTable = infos[0];
    ontoTable.setDraggingLocation({50, 60});
    EXPECT_TRUE(table.window.drop(ontoTable));
}
