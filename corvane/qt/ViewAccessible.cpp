#include "corvane/qt/ViewAccessible.h"

#include "corvane/qt/Geometry.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/views/TextField.h"

#include <QAccessible>
#include <algorithm>
#include <map>

namespace corvane::qt {

using views::Role;
using views::View;

namespace {

struct Known {
    std::weak_ptr<View> view;
    QAccessible::Id id;
};

/// By address, which another view may have later: the weak reference tells.
std::map<const View*, Known>& known() {
    static std::map<const View*, Known> entries;
    return entries;
}

/// Interfaces of views that have gone are looked for when as many again have come.
void forgetTheDead() {
    static std::size_t limit = 256;
    auto& entries = known();
    if (entries.size() < limit) return;
    for (auto entry = entries.begin(); entry != entries.end();) {
        if (entry->second.view.expired()) {
            QAccessible::deleteAccessibleInterface(entry->second.id);
            entry = entries.erase(entry);
        } else {
            ++entry;
        }
    }
    limit = std::max<std::size_t>(256, entries.size() * 2);
}

void collect(const View& view, std::vector<std::shared_ptr<View>>& found) {
    for (const auto& inside : view.subviews()) {
        // A table leaves no height to rows that it filters out.
        const bool isFiltered =
            inside->accessibilityRole() == Role::Row && inside->frame().height <= 0;
        if (inside->isHidden() || isFiltered) continue;
        if (inside->accessibilityRole() == Role::None) {
            collect(*inside, found);
        } else {
            found.push_back(inside);
        }
    }
}

QAccessible::Role qRole(Role role) {
    switch (role) {
        case Role::Group:
            return QAccessible::Grouping;
        case Role::Text:
            return QAccessible::StaticText;
        case Role::TextField:
            return QAccessible::EditableText;
        case Role::Button:
            return QAccessible::Button;
        case Role::CheckBox:
        case Role::Switch:
            return QAccessible::CheckBox;
        case Role::RadioGroup:
            return QAccessible::Grouping;
        case Role::RadioButton:
            return QAccessible::RadioButton;
        case Role::PopUpButton:
            return QAccessible::ButtonMenu;
        case Role::ProgressBar:
            return QAccessible::ProgressBar;
        case Role::Toolbar:
            return QAccessible::ToolBar;
        case Role::StatusBar:
            return QAccessible::StatusBar;
        case Role::Splitter:
            return QAccessible::Splitter;
        case Role::Dialog:
            return QAccessible::Dialog;
        case Role::Image:
            return QAccessible::Graphic;
        case Role::Row:
            return QAccessible::ListItem;
        case Role::Header:
            return QAccessible::Heading;
        case Role::Table:
        case Role::List:
            return QAccessible::List;
        case Role::None:
            break;
    }
    return QAccessible::NoRole;
}

/// A row without a name of its own is read as what is in it.
QString nameOf(const View& view) {
    const std::string own = view.accessibilityName();
    if (!own.empty() || view.accessibilityRole() != Role::Row) return qString(own);
    QStringList parts;
    for (const auto& inside : accessibleViewsIn(view)) {
        const std::string value = inside->accessibilityValue();
        const std::string text = value.empty() ? inside->accessibilityName() : value;
        if (!text.empty()) parts.append(qString(text));
    }
    return parts.join(QLatin1String(", "));
}

}  // namespace

std::vector<std::shared_ptr<View>> accessibleViewsIn(const View& view) {
    std::vector<std::shared_ptr<View>> found;
    collect(view, found);
    return found;
}

QAccessibleInterface* accessibleOf(HostWidget& host, const std::shared_ptr<View>& view) {
    if (!view || view->accessibilityRole() == Role::None) return nullptr;
    const auto entry = known().find(view.get());
    if (entry != known().end()) {
        if (entry->second.view.lock() == view)
            return QAccessible::accessibleInterface(entry->second.id);
        QAccessible::deleteAccessibleInterface(entry->second.id);
        known().erase(entry);
    }
    forgetTheDead();
    auto* interface = new ViewAccessible(host, view);
    known()[view.get()] = {view, QAccessible::registerAccessibleInterface(interface)};
    return interface;
}

ViewAccessible::ViewAccessible(HostWidget& host, const std::shared_ptr<View>& view)
    : host_(&host), view_(view) {}

bool ViewAccessible::isValid() const {
    const auto view = view_.lock();
    return host_ && view && view->window() == &host_->viewWindow();
}

std::vector<std::shared_ptr<View>> ViewAccessible::children() const {
    const auto view = view_.lock();
    return view ? accessibleViewsIn(*view) : std::vector<std::shared_ptr<View>>();
}

QAccessibleInterface* ViewAccessible::parent() const {
    if (!isValid()) return nullptr;
    for (View* above = view_.lock()->superview(); above; above = above->superview())
        if (above->accessibilityRole() != Role::None)
            return accessibleOf(*host_, above->shared_from_this());
    return QAccessible::queryAccessibleInterface(host_);
}

int ViewAccessible::childCount() const {
    return static_cast<int>(children().size());
}

QAccessibleInterface* ViewAccessible::child(int index) const {
    const auto views = children();
    if (!host_ || index < 0 || index >= static_cast<int>(views.size())) return nullptr;
    return accessibleOf(*host_, views[static_cast<std::size_t>(index)]);
}

int ViewAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto views = children();
    const auto* ours = dynamic_cast<const ViewAccessible*>(child);
    const auto found = ours ? std::find(views.begin(), views.end(), ours->view()) : views.end();
    return found == views.end() ? -1 : static_cast<int>(found - views.begin());
}

QAccessibleInterface* ViewAccessible::childAt(int x, int y) const {
    if (!isValid()) return nullptr;
    const auto point = pointOf(host_->mapFromGlobal(QPointF(x, y)));
    for (const auto& view : children())
        if (view->convertToWindow(view->visibleRect()).contains(point))
            return accessibleOf(*host_, view);
    return nullptr;
}

QString ViewAccessible::text(QAccessible::Text kind) const {
    const auto view = view_.lock();
    if (!view) return {};
    switch (kind) {
        case QAccessible::Name:
            return nameOf(*view);
        case QAccessible::Value:
            return qString(view->accessibilityValue());
        case QAccessible::Help:
        case QAccessible::Description:
            return qString(view->toolTip());
        default:
            return {};
    }
}

QRect ViewAccessible::rect() const {
    if (!isValid()) return {};
    const auto view = view_.lock();
    const QRect area = qRectAround(view->convertToWindow(view->bounds()));
    return {host_->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::Role ViewAccessible::role() const {
    const auto view = view_.lock();
    return view ? qRole(view->accessibilityRole()) : QAccessible::NoRole;
}

QAccessible::State ViewAccessible::state() const {
    QAccessible::State state;
    const auto view = view_.lock();
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.focusable = view->acceptsFirstResponder();
    state.focused = view->isFirstResponder();
    state.selectable = view->accessibilityRole() == Role::Row;
    state.selected = view->accessibilitySelected();
    state.invisible = view->isHiddenOrHasHiddenAncestor();
    state.offscreen = view->visibleRect().isEmpty();
    if (const auto* field = dynamic_cast<const views::TextField*>(view.get())) {
        state.editable = field->isEditable();
        state.readOnly = !field->isEditable();
        state.multiLine = field->isMultiline();
        state.passwordEdit = field->isSecure();
    }
    const auto checked = view->accessibilityChecked();
    state.checkable = checked.has_value();
    state.checked = checked.value_or(false);
    state.disabled = !view->accessibilityEnabled();
    return state;
}

void* ViewAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type != QAccessible::ActionInterface) return nullptr;
    return static_cast<QAccessibleActionInterface*>(this);
}

QStringList ViewAccessible::actionNames() const {
    const auto view = view_.lock();
    QStringList names;
    if (view && view->accessibilityCanPress()) names.append(pressAction());
    if (view && view->acceptsFirstResponder()) names.append(setFocusAction());
    return names;
}

void ViewAccessible::doAction(const QString& name) {
    if (!isValid()) return;
    const auto view = view_.lock();
    if (name == setFocusAction()) view->window()->makeFirstResponder(view);
    if (name == pressAction() && view->accessibilityCanPress()) view->accessibilityPress();
}

}  // namespace corvane::qt
