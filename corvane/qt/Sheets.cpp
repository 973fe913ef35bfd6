#include "corvane/qt/Sheets.h"

#include "corvane/qt/Geometry.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace corvane::qt {

namespace {

/// Closed without a choice, which is possible only for a program: as Escape does it.
int answerOf(const QMessageBox& box, const QList<QPushButton*>& buttons) {
    const auto index = buttons.indexOf(qobject_cast<QPushButton*>(box.clickedButton()));
    return views::kAlertFirstButtonReturn +
           static_cast<int>(index >= 0 ? index : buttons.size() - 1);
}

}  // namespace

QMessageBox* showSheet(const views::Alert& alert, QWidget& parent,
                       views::AlertCompletion completion) {
    auto* box = new QMessageBox(&parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setLayoutDirection(layoutDirection());
    box->setText(qString(alert.messageText));
    box->setInformativeText(qString(alert.informativeText));
    // The box itself would have this said of its first text only.
    for (QLabel* label : box->findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    QList<QPushButton*> buttons;
    for (const std::string& title : alert.buttons)
        buttons.append(box->addButton(titleWithoutMnemonic(title), buttons.isEmpty()
                                                                       ? QMessageBox::AcceptRole
                                                                       : QMessageBox::RejectRole));
    if (buttons.isEmpty()) buttons.append(box->addButton(QMessageBox::Ok));
    box->setDefaultButton(buttons.front());
    box->setEscapeButton(buttons.back());
    // Told when the box is done with the click: whoever gets the answer may run an event loop, or
    // take away the parent and the box with it, which Qt 6.4 does not outlive.
    QObject::connect(box, &QMessageBox::finished, &parent,
                     [box, buttons, &parent, done = std::move(completion)] {
                         QMetaObject::invokeMethod(
                             &parent, [done, answer = answerOf(*box, buttons)] { done(answer); },
                             Qt::QueuedConnection);
                     });
    box->open();
    return box;
}

}  // namespace corvane::qt
