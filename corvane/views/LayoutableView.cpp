#include "corvane/views/LayoutableView.h"

#include "corvane/platform/RunLoop.h"

#include <algorithm>
#include <utility>

namespace corvane::views {

namespace {

/// Layouts that demand each other for ever must not stop the program: the rest waits for a turn.
constexpr int kMostPasses = 16;

class LayoutQueue {
  public:
    static LayoutQueue& shared() {
        static LayoutQueue queue;
        return queue;
    }

    void add(std::weak_ptr<View> view) {
        waiting_.push_back(std::move(view));
        wake();
    }

    /// Sees to it that a turn of the loop in force takes what waits.
    void wake() {
        if (!running_) post();
    }

  private:
    struct Running {
        explicit Running(bool& running) : flag(running) { flag = true; }
        ~Running() { flag = false; }
        bool& flag;
    };

    struct Entry {
        int depth;
        std::shared_ptr<View> view;
    };

    /// Where the loop in which the call was posted has gone, so has its token.
    void post() {
        auto& loop = platform::mainRunLoop();
        if (loop_ == &loop && !token_.expired()) return;
        const auto token = std::make_shared<int>();
        token_ = token;
        loop_ = &loop;
        loop.post([this, token] { run(token); });
    }

    void run(const std::weak_ptr<int>& token) {
        if (token.lock() == token_.lock()) token_.reset();
        if (running_) return;
        {
            const Running running(running_);
            for (int pass = 0; pass < kMostPasses && !waiting_.empty(); ++pass) {
                for (const Entry& entry : takeWaiting())
                    entry.view->layoutIfNeeded();
            }
        }
        if (!waiting_.empty()) post();
    }

    std::vector<Entry> takeWaiting() {
        std::vector<Entry> entries;
        for (const auto& weak : std::exchange(waiting_, {})) {
            auto view = weak.lock();
            if (!view) continue;
            int depth = 0;
            for (const View* above = view->superview(); above; above = above->superview())
                ++depth;
            entries.push_back({depth, std::move(view)});
        }
        std::stable_sort(entries.begin(), entries.end(),
                         [](const Entry& a, const Entry& b) { return a.depth < b.depth; });
        return entries;
    }

    std::vector<std::weak_ptr<View>> waiting_;
    std::weak_ptr<int> token_;
    const platform::RunLoop* loop_ = nullptr;
    bool running_ = false;
};

}  // namespace

void LayoutableView::setNeedsApplyLayout() {
    layoutNeeded_ = true;
    if (layoutQueued_) {
        LayoutQueue::shared().wake();
    } else {
        enqueue();
    }
}

void LayoutableView::enqueue() {
    if (laysOutOnlyWhenSeen()) return setNeedsDisplay();
    auto self = weak_from_this();
    if (self.expired()) return;  // under construction: it will come into a superview
    layoutQueued_ = true;
    LayoutQueue::shared().add(std::move(self));
}

void LayoutableView::layoutIfNeeded() {
    layoutQueued_ = false;
    if (!layoutNeeded_) return;
    layoutNeeded_ = false;
    const auto keepAlive = weak_from_this().lock();
    applyLayout();
}

void LayoutableView::didMoveToSuperview() {
    if (layoutNeeded_ && !layoutQueued_ && !laysOutOnlyWhenSeen()) enqueue();
}

void LayoutableView::frameDidChange(const Rect& before) {
    if (before.size() == frame().size()) return;
    // What has got another frame is drawn again in any case.
    if (laysOutOnlyWhenSeen()) {
        layoutNeeded_ = true;
    } else {
        setNeedsApplyLayout();
    }
}

}  // namespace corvane::views
