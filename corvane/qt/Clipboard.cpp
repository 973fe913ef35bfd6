#include "corvane/qt/Clipboard.h"

#include "corvane/qt/PasteboardMime.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace corvane::qt {

void writeToClipboard(const platform::Pasteboard& pasteboard) {
    QGuiApplication::clipboard()->setMimeData(mimeDataOf(pasteboard).release());
}

platform::Pasteboard clipboardContents() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? pasteboardOf(*data) : platform::Pasteboard();
}

}  // namespace corvane::qt
