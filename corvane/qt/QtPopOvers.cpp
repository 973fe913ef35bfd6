#include "corvane/qt/QtPopOvers.h"

#include "corvane/platform/WritingDirection.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Theme.h"

#include <QEvent>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace corvane::qt {

using platform::Rect;
using views::View;

namespace {

constexpr double kBorder = 1;
constexpr int kGap = 3;

class Frame final : public View {
  public:
    Frame(const platform::Color& background, const std::shared_ptr<View>& content)
        : background_(background), content_(content) {
        addSubview(content);
    }
    views::Role accessibilityRole() const override { return views::Role::Group; }
    void draw(views::Canvas& canvas, const Rect&) override {
        canvas.fillRect(bounds(), background_);
        canvas.strokeRoundedRect(bounds(), 0, views::theme().border, kBorder);
    }

  protected:
    void frameDidChange(const Rect&) override {
        content_->setFrame(bounds().insetBy(kBorder, kBorder));
    }

  private:
    platform::Color background_;
    std::shared_ptr<View> content_;
};

}  // namespace

/// The window of one pop-over, which is forgotten when it is dismissed.
class QtPopOvers::Panel final : public HostWidget {
  public:
    Panel(PopOver& popOver, HostWidget& host, const std::shared_ptr<View>& view)
        : HostWidget(&host), popOver_(&popOver), host_(&host), view_(view) {
        // A tool tip is the one window that takes neither the focus nor the first click elsewhere.
        setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setFocusPolicy(Qt::NoFocus);
        setContentView(std::make_shared<Frame>(popOver.backgroundColor(), popOver.contentView()));
        place();
        host.installEventFilter(this);
        host.window()->installEventFilter(this);
        show();
    }

    /// With the host, maybe, of which the pop-over knows nothing.
    ~Panel() override {
        if (PopOver* shown = std::exchange(popOver_, nullptr)) shown->close();
    }

    /// In the middle of a click on it, maybe: it goes later.
    void dismiss() {
        popOver_ = nullptr;
        hide();
        deleteLater();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Paint:  // the view may have moved, with whatever scrolls
            case QEvent::Move:
            case QEvent::Resize:
                placeSoon();
                break;
            case QEvent::Hide:
            case QEvent::WindowDeactivate:
                closeSoon();
                break;
            default:
                break;
        }
        return HostWidget::eventFilter(watched, event);
    }

  private:
    void placeSoon() {
        if (std::exchange(awaitsPlace_, true)) return;
        QMetaObject::invokeMethod(
            this,
            [this] {
                awaitsPlace_ = false;
                place();
            },
            Qt::QueuedConnection);
    }

    /// Later, since it ends this very panel.
    void closeSoon() {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (popOver_) popOver_->close();
            },
            Qt::QueuedConnection);
    }

    void place() {
        if (!popOver_) return;
        const auto view = view_.lock();
        if (!host_ || !view || view->window() != &host_->viewWindow() ||
            view->visibleRect().isEmpty())
            return closeSoon();
        const QRect screen = host_->screen()->availableGeometry();
        const auto preferred = popOver_->contentView()->preferredSizeThatFits(
            {static_cast<double>(screen.width()), static_cast<double>(screen.height())});
        const QSize size =
            qRectAround({0, 0, preferred.width + 2 * kBorder, preferred.height + 2 * kBorder})
                .size();
        const QRect beside = qRectAround(view->convertToWindow(view->bounds()));
        const QPoint upper = host_->mapToGlobal(beside.topLeft());
        const bool rightToLeft = platform::isRightToLeft(platform::currentLocale());
        int x = rightToLeft ? upper.x() + beside.width() - size.width() : upper.x();
        x = std::clamp(x, screen.left(), std::max(screen.left(), screen.right() - size.width()));
        int y = upper.y() + beside.height() + kGap;
        if (y + size.height() > screen.bottom()) y = upper.y() - kGap - size.height();
        setGeometry({QPoint(x, std::max(y, screen.top())), size});
    }

    PopOver* popOver_;
    QPointer<HostWidget> host_;
    std::weak_ptr<View> view_;
    bool awaitsPlace_ = false;
};

QtPopOvers::QtPopOvers() = default;

QtPopOvers::~QtPopOvers() {
    for (const auto& [popOver, panel] : panels_)
        if (panel) panel->dismiss();
}

void QtPopOvers::present(PopOver& popOver, const std::shared_ptr<View>& view) {
    auto* host = dynamic_cast<HostWidget*>(&view->window()->host());
    if (host) panels_[&popOver] = new Panel(popOver, *host, view);
}

void QtPopOvers::dismiss(PopOver& popOver) {
    const auto panel = panels_.extract(&popOver);
    popOver.contentView()->removeFromSuperview();
    if (panel && panel.mapped()) panel.mapped()->dismiss();
}

}  // namespace corvane::qt
