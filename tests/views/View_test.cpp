#include "corvane/views/View.h"

#include "corvane/views/Canvas.h"
#include "corvane/views/Drag.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Window.h"

#include <gtest/gtest.h>

#include <random>

using namespace corvane::views;
using corvane::platform::Pasteboard;
using corvane::platform::PasteboardItem;

namespace {

std::shared_ptr<View> viewIn(View& parent, const Rect& frame) {
    auto view = std::make_shared<View>(frame);
    parent.addSubview(view);
    return view;
}

/// Notes who was drawn, and where its origin lay.
struct DrawingLog final : Canvas {
    struct Offset {
        double x = 0, y = 0;
    };
    void save() override { offsets.push_back(offsets.back()); }
    void restore() override { offsets.pop_back(); }
    void translate(double dx, double dy) override {
        offsets.back().x += dx;
        offsets.back().y += dy;
    }
    void clip(const Rect&) override {}
    void fillRect(const Rect&, const corvane::platform::Color&) override {
        origins.push_back({offsets.back().x, offsets.back().y});
    }
    void fillRoundedRect(const Rect&, double, const corvane::platform::Color&) override {}
    void strokeRoundedRect(const Rect&, double, const corvane::platform::Color&, double) override {}
    void drawLine(Point, Point, const corvane::platform::Color&, double) override {}
    void drawImage(const corvane::platform::ImagePtr&, const Rect&) override {}
    void drawTiledImage(const corvane::platform::ImagePtr&, const Rect&, Point) override {}
    void drawText(std::string_view, const Rect&, const TextStyle&) override {}

    std::vector<Offset> offsets{1};
    std::vector<Point> origins;
};

struct Filled : View {
    using View::View;
    void draw(Canvas& canvas, const Rect&) override { canvas.fillRect(bounds(), {}); }
};

}  // namespace

TEST(View, KeepsItsSubviewsInOrderWhateverComesAndGoes) {
    EXPECT_LE(sizeof(View), 150u);
    const auto parent = std::make_shared<View>();
    std::vector<std::shared_ptr<View>> expected;
    std::mt19937 random(7);
    for (int step = 0; step < 3000; ++step) {
        const auto pick = expected.empty() ? 0 : random() % expected.size();
        if (expected.empty() || random() % 3 == 0) {
            expected.push_back(viewIn(*parent, {}));
        } else if (random() % 2) {
            expected[pick]->removeFromSuperview();
            EXPECT_EQ(expected[pick]->superview(), nullptr);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(pick));
        } else {  // what is added again comes out on top
            const auto view = expected[pick];
            parent->addSubview(view);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(pick));
            expected.push_back(view);
        }
        if (random() % 5 == 0) {
            ASSERT_EQ(parent->subviews(), expected) << step;
        }
    }
    const auto child = viewIn(*parent, {});
    child->addSubview(parent);  // not into what it holds itself
    EXPECT_EQ(parent->superview(), nullptr);
}

TEST(View, FindsAndDrawsWhatLiesThere) {
    Window window({100, 100});
    const auto content = std::make_shared<Filled>();
    window.setContentView(content);
    const auto add = [](View& parent, const Rect& frame) {
        auto view = std::make_shared<Filled>(frame);
        parent.addSubview(view);
        return view;
    };
    const auto lower = add(*content, {10, 10, 50, 50});
    const auto inner = add(*lower, {5, 5, 10, 10});
    const auto upper = add(*content, {40, 40, 30, 30});
    for (auto& [point, view] : {std::pair<Point, View*>{{15, 15}, inner.get()},
                                {{25, 25}, lower.get()},
                                {{45, 45}, upper.get()},
                                {{70, 70}, content.get()},
                                {{100, 50}, nullptr}})
        EXPECT_EQ(window.viewAt(point).get(), view) << point.x << "," << point.y;
    EXPECT_EQ(inner->convertToWindow(Point{1, 2}), (Point{16, 17}));
    EXPECT_EQ(inner->convertFromWindow({16, 17}), (Point{1, 2}));

    DrawingLog all;
    window.draw(all, {0, 0, 100, 100});
    EXPECT_EQ(all.origins, (std::vector<Point>{{0, 0}, {10, 10}, {15, 15}, {40, 40}}));
    DrawingLog corner;
    window.draw(corner, {65, 65, 20, 20});
    EXPECT_EQ(corner.origins, (std::vector<Point>{{0, 0}, {40, 40}}));

    window.takeDirtyRect();
    inner->setFrame({0, 0, 10, 10});  // where it was and where it is
    EXPECT_EQ(window.takeDirtyRect(), (Rect{10, 10, 15, 15}));
    lower->setHidden(true);
    EXPECT_EQ(window.takeDirtyRect(), lower->frame());
    inner->setNeedsDisplay();  // in vain: nobody sees it
    EXPECT_TRUE(window.takeDirtyRect().isEmpty());
    EXPECT_EQ(window.viewAt({45, 45}), upper);
    EXPECT_EQ(window.viewAt({15, 15}), content);
}

TEST(ScrollView, KeepsWhatIsVisibleAndStaysInTheDocument) {
    Window window({100, 100});
    const auto scrollView = std::make_shared<ScrollView>();
    window.setContentView(scrollView);
    const auto document = std::make_shared<View>(Rect{0, 0, 100, 500});
    scrollView->setDocumentView(document);
    const auto top = [&] { return scrollView->documentVisibleRect().y; };
    const auto row = viewIn(*document, {0, 250, 100, 30});

    row->scrollRectToVisible(row->bounds());
    EXPECT_EQ(top(), 180);
    EXPECT_EQ(row->visibleRect(), row->bounds());
    row->scrollRectToVisible(row->bounds());  // is visible
    EXPECT_EQ(top(), 180);
    document->scrollRectToVisible({0, 100, 10, 300});  // does not fit: its beginning
    EXPECT_EQ(top(), 100);
    EXPECT_EQ(row->visibleRect(), Rect{});
    row->scrollPoint({0, 0});
    EXPECT_EQ(top(), 250);
    document->setFrameSize({100, 900});
    EXPECT_EQ(top(), 250);
    document->setFrameSize({100, 300});
    EXPECT_EQ(top(), 200);
    window.setSize({100, 280});
    EXPECT_EQ(top(), 20);
    scrollView->scrollBy(0, -100);
    EXPECT_EQ(top(), 0);
    scrollView->setContentInsets({30, 0, 10, 0});
    EXPECT_EQ(top(), -30);  // it was at the top and stays there
    scrollView->scrollBy(0, 1000);
    EXPECT_EQ(top(), 30);
    document->scrollRectToVisible({0, 40, 10, 10});
    EXPECT_EQ(top(), 10);  // below the inset
    scrollView->setHasBorder(true);
    EXPECT_EQ(scrollView->contentSize(), (Size{98, 278}));
    EXPECT_EQ(document->frame().origin(), (Point{1, -9}));
}

TEST(DropRouter, TellsWhoeverADragComesToAndLeaves) {
    struct Target : View {
        Target(const Rect& frame, std::string& notes) : View(frame), log(notes) {
            registerForDraggedTypes({"text"});
        }
        DragOperation draggingEntered(DraggingInfo&) override { return note("enter ", operation); }
        DragOperation draggingUpdated(DraggingInfo&) override { return note("update ", operation); }
        void draggingExited(DraggingInfo&) override { note("exit ", 0); }
        bool prepareForDragOperation(DraggingInfo&) override { return note("prepare ", accepts); }
        bool performDragOperation(DraggingInfo&) override { return note("perform ", true); }
        void concludeDragOperation(DraggingInfo&) override { note("conclude ", 0); }
        DragOperation note(const char* what, DragOperation answer) {
            log += what;
            return answer;
        }
        std::string& log;
        DragOperation operation = kDragOperationGeneric;
        bool accepts = true;
    };
    Window window({100, 100});
    std::string log;
    const auto target = std::make_shared<Target>(Rect{0, 0, 50, 100}, log);
    const auto inside = viewIn(*target, {0, 0, 50, 50});  // takes nothing itself
    window.root().addSubview(target);
    PasteboardItem item;
    item.setValue("text", "a");
    Pasteboard pasteboard;
    pasteboard.addItem(item);
    DraggingInfo info(pasteboard);
    const auto logOf = [&](auto&& act) {
        log.clear();
        act();
        return log;
    };
    const auto move = [&](double x) {
        return logOf([&] {
            info.setDraggingLocation({x, 10});
            window.draggingMoved(info);
        });
    };
    EXPECT_EQ(move(60), "");
    EXPECT_EQ(move(10), "enter update ");
    EXPECT_EQ(move(20), "update ");
    EXPECT_EQ(move(60), "exit ");
    move(10);
    EXPECT_EQ(logOf([&] { EXPECT_TRUE(window.drop(info)); }), "update prepare perform conclude ");
    target->accepts = false;
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(window.drop(info)); }), "enter update prepare exit ");
    target->operation = kDragOperationNone;
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(window.drop(info)); }), "enter exit ");
    DraggingInfo other{Pasteboard(), {10, 10}};
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(window.drop(other)); }), "");
}
