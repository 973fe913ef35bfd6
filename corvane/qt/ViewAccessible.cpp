#include "corvane/qt/ViewAccessible.h"

#include "corvane/qt/Geometry.h"
#include "corvane/qt/HostWidget.h"
#include "corvane/views/TextField.h"

#include <QAccessible>
#include <QElapsedTimer>
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

/// Readers ask for one child after the other, and tables have thousands of them: the list is kept
/// for a moment, in which nobody can tell an old one from a new one.
class Walk {
  public:
    std::shared_ptr<View> childOf(const std::shared_ptr<View>& parent, std::size_t index) {
        if (index == 0 || index >= children_.size() || parent_.lock() != parent ||
            !age_.isValid() || age_.hasExpired(kMoment))
            begin(parent);
        auto child = at(index);
        // One of them may have gone meanwhile.
        if (child && child->window() && child->isDescendantOf(*parent)) return child;
        begin(parent);
        return at(index);
    }

  private:
    static constexpr qint64 kMoment = 50;  ///< in milliseconds

    void begin(const std::shared_ptr<View>& parent) {
        const auto found = accessibleViewsIn(*parent);
        children_.assign(found.begin(), found.end());
        parent_ = parent;
        age_.start();
    }
    std::shared_ptr<View> at(std::size_t index) const {
        return index < children_.size() ? children_[index].lock() : nullptr;
    }

    std::weak_ptr<View> parent_;
    std::vector<std::weak_ptr<View>> children_;
    QElapsedTimer age_;
};

Walk& lastWalk() {
    static Walk walk;
    return walk;
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

ViewAccessible* accessibleOf(HostWidget& host, const std::shared_ptr<View>& view) {
    if (!view || view->accessibilityRole() == Role::None) return nullptr;
    const auto entry = known().find(view.get());
    if (entry != known().end()) {
        auto* interface =
            static_cast<ViewAccessible*>(QAccessible::accessibleInterface(entry->second.id));
        // What is shown again, as a chooser is, may have come to another host.
        if (entry->second.view.lock() == view && interface && interface->isOf(host))
            return interface;
        QAccessible::deleteAccessibleInterface(entry->second.id);
        known().erase(entry);
    }
    forgetTheDead();
    auto* interface = new ViewAccessible(host, view);
    known()[view.get()] = {view, QAccessible::registerAccessibleInterface(interface)};
    return interface;
}

ViewAccessible::ViewAccessible(HostWidget& host, const std::shared_ptr<View>& view)
    : host_(&host), view_(view), text_(view), number_(view) {}

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
    const auto view = view_.lock();
    if (!host_ || !view || index < 0) return nullptr;
    return accessibleOf(*host_, lastWalk().childOf(view, static_cast<std::size_t>(index)));
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
    const auto views = children();
    // The topmost one comes last.
    const auto found = std::find_if(views.rbegin(), views.rend(), [&](const auto& view) {
        return view->convertToWindow(view->visibleRect()).contains(point);
    });
    return found == views.rend() ? nullptr : accessibleOf(*host_, *found);
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
            return qString(view->toolTip());
        case QAccessible::Description:
            return description();
        default:
            return {};
    }
}

/// The desktop's readers know values of fields and of what can be measured; any other value would
/// remain unsaid.
QString ViewAccessible::description() const {
    const auto view = view_.lock();
    const bool isSaid = view->accessibilityRole() == Role::TextField || number_.number();
    const QString value = isSaid ? QString() : qString(view->accessibilityValue());
    const QString toolTip = qString(view->toolTip());
    if (toolTip.isEmpty() || toolTip == value || toolTip == nameOf(*view)) return value;
    return value.isEmpty() ? toolTip : value + QLatin1String(", ") + toolTip;
}

QRect ViewAccessible::rect() const {
    if (!isValid()) return {};
    const auto view = view_.lock();
    const QRect area = qRectAround(view->convertToWindow(view->bounds()));
    return {host_->mapToGlobal(area.topLeft()), area.size()};
}

Role ViewAccessible::viewRole() const {
    const auto view = view_.lock();
    return view ? view->accessibilityRole() : Role::None;
}

QAccessible::Role ViewAccessible::role() const {
    return qRole(viewRole());
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
    const Role role = viewRole();
    switch (type) {
        case QAccessible::ActionInterface:
            return static_cast<QAccessibleActionInterface*>(this);
        case QAccessible::TextInterface:
            return role == Role::TextField ? &text_ : nullptr;
        case QAccessible::ValueInterface:
            return number_.number() ? &number_ : nullptr;
        default:
            return nullptr;
    }
}

/// Not what lies below a modal view, where the pointer does not come either.
bool ViewAccessible::canPress() const {
    const auto view = view_.lock();
    return isValid() && host_->viewWindow().modalViews().admits(*view) &&
           view->accessibilityCanPress();
}

QStringList ViewAccessible::actionNames() const {
    const auto view = view_.lock();
    QStringList names;
    if (canPress()) names.append(pressAction());
    if (view && view->acceptsFirstResponder()) names.append(setFocusAction());
    return names;
}

void ViewAccessible::doAction(const QString& name) {
    if (!isValid()) return;
    const auto view = view_.lock();
    if (name == setFocusAction()) view->window()->makeFirstResponder(view);
    if (name != pressAction() || !canPress()) return;
    host_->viewWindow().eventFollowers().eventHappened();
    view->accessibilityPress();
}

// Changes.

void ViewAccessible::tell(views::AccessibilityChange change) {
    const auto send = [this](QAccessible::Event type) {
        QAccessibleEvent event(this, type);
        accessibilityListener().hear(event);
    };
    QAccessible::State changed;
    switch (change) {
        case views::AccessibilityChange::Name:
            return send(QAccessible::NameChanged);
        case views::AccessibilityChange::Value:
            return tellValue();
        case views::AccessibilityChange::Selected:
            return send(QAccessible::Selection);
        case views::AccessibilityChange::Checked:
            changed.checked = true;
            break;
        case views::AccessibilityChange::Enabled:
            changed.disabled = true;
            break;
    }
    QAccessibleStateChangeEvent event(this, changed);
    accessibilityListener().hear(event);
}

void ViewAccessible::tellValue() {
    if (viewRole() == Role::TextField) {
        const QString before = text_.takeTold();
        QAccessibleTextUpdateEvent event(this, 0, before, text_.whole());
        return accessibilityListener().hear(event);
    }
    if (const auto number = number_.number()) {
        QAccessibleValueChangeEvent event(this, *number);
        return accessibilityListener().hear(event);
    }
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    accessibilityListener().hear(event);
}

}  // namespace corvane::qt
