// Shows alerts of views as sheets on a window. Functions without state; the main thread.
#pragma once

#include "corvane/views/Alert.h"

class QMessageBox;
class QWidget;

namespace corvane::qt {

/// Returns at once; only the parent's window is blocked. The answer comes soon after a button
/// was chosen. Escape chooses the only button, or the last of several. Nothing comes where the
/// parent goes away with the sheet. The sheet belongs to the parent and goes away by itself.
QMessageBox* showSheet(const views::Alert& alert, QWidget& parent,
                       views::AlertCompletion completion);

}  // namespace corvane::qt
