// Puts a table on the pages of a PDF. The main thread; an application object must exist.
#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QString>
#include <memory>

namespace corvane {
class CVMacTableView;
}

namespace corvane::qt {

/// Portrait, with margins, on the paper that is usual where the user lives.
QPageLayout usualPageLayout();

/// The whole document, in light colours, at the size that things have on a screen of 96 dots an
/// inch. Below the rows of each page stands which one of how many it is. Empty where the layout
/// leaves no room.
QByteArray pdfOfTable(const std::shared_ptr<CVMacTableView>& table, const QString& title,
                      const QPageLayout& layout = usualPageLayout());

}  // namespace corvane::qt
