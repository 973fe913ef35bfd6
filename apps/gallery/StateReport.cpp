#include "apps/gallery/StateReport.h"

#include <QAccessible>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QSaveFile>
#include <QWidget>
#include <chrono>
#include <utility>

namespace corvane::gallery {

namespace {

QJsonArray statesOf(const QAccessible::State& state) {
    QJsonArray names;
    for (const auto& [is, name] :
         {std::pair(state.active, "active"), std::pair(state.checked, "checked"),
          std::pair(state.disabled, "disabled"), std::pair(state.editable, "editable"),
          std::pair(state.focused, "focused"), std::pair(state.invisible, "invisible"),
          std::pair(state.offscreen, "offscreen"), std::pair(state.selected, "selected")})
        if (is) names.append(name);
    return names;
}

QJsonObject partOf(QAccessibleInterface& interface) {
    QJsonObject part;
    const auto role = interface.role();
    part["role"] = QMetaEnum::fromType<QAccessible::Role>().valueToKey(role);
    const QRect rect = interface.rect();
    part["rect"] = QJsonArray{rect.x(), rect.y(), rect.width(), rect.height()};
    if (const auto name = interface.text(QAccessible::Name); !name.isEmpty()) part["name"] = name;
    if (const auto value = interface.text(QAccessible::Value); !value.isEmpty())
        part["value"] = value;
    if (const auto states = statesOf(interface.state()); !states.isEmpty()) part["states"] = states;
    QJsonArray children;
    for (int i = 0; i < interface.childCount(); ++i)
        if (auto* child = interface.child(i)) children.append(partOf(*child));
    if (!children.isEmpty()) part["children"] = children;
    return part;
}

QByteArray allWindows() {
    QJsonArray windows;
    const auto widgets = QApplication::topLevelWidgets();
    for (auto* widget : widgets) {
        if (!widget->isVisible()) continue;
        if (auto* interface = QAccessible::queryAccessibleInterface(widget))
            windows.append(partOf(*interface));
    }
    return QJsonDocument(windows).toJson(QJsonDocument::Indented);
}

}  // namespace

StateReport::StateReport(QString path) : path_(std::move(path)) {
    timer_.callOnTimeout([this] { write(); });
    timer_.start(std::chrono::milliseconds(30));
}

void StateReport::write() {
    QByteArray now = allWindows();
    if (now == written_) return;
    QSaveFile file(path_);
    if (!file.open(QIODevice::WriteOnly) || file.write(now) != now.size() || !file.commit()) {
        qWarning("corvane-gallery: could not write %s: %s", qUtf8Printable(path_),
                 qUtf8Printable(file.errorString()));
        timer_.stop();
        return;
    }
    written_ = std::move(now);
}

}  // namespace corvane::gallery
