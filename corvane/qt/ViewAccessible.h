// A view as assistive technology sees it. The main thread.
#pragma once

#include "corvane/qt/ViewValues.h"
#include "corvane/views/View.h"

#include <QAccessibleInterface>
#include <QPointer>
#include <memory>
#include <vector>

namespace corvane::qt {

class HostWidget;

/// The views with a role that a view holds; those within one without a role stand for it.
std::vector<std::shared_ptr<views::View>> accessibleViewsIn(const views::View& view);

class ViewAccessible;

/// The one interface of a view, as long as the view lives; null without a role.
ViewAccessible* accessibleOf(HostWidget& host, const std::shared_ptr<views::View>& view);

/// Belongs to the desktop's register; holds neither the view nor the host.
class ViewAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    ViewAccessible(HostWidget& host, const std::shared_ptr<views::View>& view);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    std::shared_ptr<views::View> view() const { return view_.lock(); }
    bool isOf(const HostWidget& host) const { return host_ == &host; }
    /// The desktop is to be told of a change, which has happened.
    void tell(views::AccessibilityChange change);

  private:
    std::vector<std::shared_ptr<views::View>> children() const;
    views::Role viewRole() const;
    QString description() const;
    bool canPress() const;
    void tellValue();

    QPointer<HostWidget> host_;
    std::weak_ptr<views::View> view_;
    ViewText text_;
    ViewNumber number_;
};

}  // namespace corvane::qt
