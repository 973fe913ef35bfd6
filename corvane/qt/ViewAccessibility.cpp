#include "corvane/qt/ViewAccessibility.h"

#include "corvane/qt/Geometry.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/qt/ViewAccessible.h"
#include "corvane/views/TextField.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>

namespace corvane::qt {

using views::View;

namespace {

/// The host, with its topmost views as children. The live editor is told of by Qt itself when it
/// has the focus.
class HostAccessible final : public QAccessibleWidget {
  public:
    explicit HostAccessible(HostWidget& host)
        : QAccessibleWidget(&host, QAccessible::Grouping), host_(host) {}

    int childCount() const override { return static_cast<int>(views().size()); }
    QAccessibleInterface* child(int index) const override {
        const auto all = views();
        if (index < 0 || index >= static_cast<int>(all.size())) return nullptr;
        return accessibleOf(host_, all[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto all = views();
        const auto* ours = dynamic_cast<const ViewAccessible*>(child);
        const auto found = ours ? std::find(all.begin(), all.end(), ours->view()) : all.end();
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const auto point = pointOf(host_.mapFromGlobal(QPointF(x, y)));
        for (auto view = host_.viewWindow().viewAt(point).get(); view; view = view->superview())
            if (view->accessibilityRole() != views::Role::None)
                return accessibleOf(host_, view->shared_from_this());
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        const auto first = host_.viewWindow().firstResponder();
        if (auto* interface = accessibleOf(host_, first)) return interface;
        return QAccessibleWidget::focusChild();
    }

  private:
    std::vector<std::shared_ptr<View>> views() const {
        return accessibleViewsIn(host_.viewWindow().root());
    }

    HostWidget& host_;
};

/// The desktop, by way of Qt, which knows whether anybody there wants to hear.
class Desktop final : public AccessibilityListener {
  public:
    bool isActive() override { return QAccessible::isActive(); }
    void hear(QAccessibleEvent& event) override { QAccessible::updateAccessibility(&event); }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* host = dynamic_cast<HostWidget*>(object);
    return host ? new HostAccessible(*host) : nullptr;
}

}  // namespace

std::atomic<AccessibilityListener*>& listenerInForce() {
    static Desktop desktop;
    static std::atomic<AccessibilityListener*> listener{&desktop};
    return listener;
}

AccessibilityListener& accessibilityListener() {
    return *listenerInForce();
}

void installViewAccessibility() {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    static_cast<void>(installed);
}

void tellFocusOf(HostWidget& host, View& view) {
    if (!accessibilityListener().isActive()) return;
    auto* interface = accessibleOf(host, view.shared_from_this());
    if (!interface) return;
    QAccessibleEvent event(interface, QAccessible::Focus);
    accessibilityListener().hear(event);
}

void tellChangeOf(HostWidget& host, View& view, views::AccessibilityChange change) {
    if (!accessibilityListener().isActive()) return;
    // While a field is edited, the live editor tells of it.
    const auto* field = dynamic_cast<const views::TextField*>(&view);
    if (field && field->isEditing() && change == views::AccessibilityChange::Value) return;
    if (auto* interface = accessibleOf(host, view.weak_from_this().lock())) interface->tell(change);
}

}  // namespace corvane::qt
